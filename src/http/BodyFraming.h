// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

class HeaderFields;

/// How a header says that its body ends (RFC 9112, section 6), and whether the connection may carry another request.
struct BodyFraming {
    enum class End {
        AtLength, ///< after `length` bytes, which may be 0
        AtLastChunk,
        AtClose, ///< where the other side closes the connection
        InDoubt, ///< the header contradicts itself, or uses a transfer coding other than "chunked"
    };
    End end = End::AtClose;
    qint64 length = -1; ///< -1 unless the body ends at a length
    bool keepsConnection = false; ///< both sides know where the body ends, and the server does not close behind it

    [[nodiscard]] static BodyFraming of(const HeaderFields& header);
};

/// How a body is coded, by Content-Encoding.
enum class BodyCoding {
    None, ///< or names that are no content codings, such as "utf-8" or "none"
    Gzip,
    Deflate,
    Unreadable, ///< a coding that the program cannot decode, or several
};
/// A body whose media type is a gzip file, and which is said to be coded by gzip as well, counts as not coded: servers
/// label such files twice, and users want the file.
[[nodiscard]] BodyCoding bodyCodingOf(const HeaderFields& header);
