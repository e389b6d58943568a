// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <array>

#include <zlib.h>

/// Decodes a body that is coded by gzip or deflate, in portions, as it arrives. How it was cut makes no difference.
/// A gzip body may consist of several members. What follows the end of the coded text is ignored.
class BodyDecoder {
public:
    enum class Format {
        Gzip,
        Deflate, ///< with the header of zlib, as the standard says, or without it, as some servers send it
    };

    explicit BodyDecoder(Format format);
    ~BodyDecoder();
    Q_DISABLE_COPY_MOVE(BodyDecoder)

    /// Decodes the beginning of `coded` and cuts it off. Returns at most `most` bytes (1 or more).
    [[nodiscard]] QByteArray decode(QByteArrayView& coded, qsizetype most);
    /// Whether `decode` may return more without further bytes, since its last portion was full.
    [[nodiscard]] bool hasMore() const { return m_hasMore; }
    /// Whether the body breaks the rules of its format or has a wrong checksum. Nothing more may be decoded then.
    [[nodiscard]] bool isBroken() const { return m_isBroken; }
    /// Whether the body may end here: at the end of the coded text, or before its first byte.
    [[nodiscard]] bool isWhole() const;

private:
    enum class Stage {
        Start, ///< before the first two bytes, which tell the kind of deflate
        Inside,
        Between, ///< behind a member of gzip; the next two bytes tell whether another one follows
        Behind, ///< what follows is ignored
    };

    void collectStart(QByteArrayView& coded);
    void begin();
    void inflateFrom(QByteArrayView& coded);

    const Format m_format;
    Stage m_stage = Stage::Start;
    std::array<char, 2> m_start {}; ///< the first two bytes of a member
    size_t m_collected = 0; ///< how many of them have come
    QByteArrayView m_unreadStart; ///< those of them that zlib has not read yet
    z_stream m_zlib {};
    bool m_hasMore = false;
    bool m_isBroken = false;
};
