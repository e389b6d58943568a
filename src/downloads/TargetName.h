// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayList>

#include <optional>

/// How the file of a download is named.
struct NamingRules {
    bool dirByUrl = false; ///< put it into directories by host, port and path
    bool extByMime = false; ///< append an extension of its MIME type
    bool renameForMs = true; ///< percent-encode characters that Windows does not take
};

/// The place of a downloaded file below the target folder. It never lies outside that folder.
struct TargetName {
    /// The part for which a URL has no place.
    enum class Refusal { Directory, Name };

    QByteArrayList directories; ///< one inside the other, outermost first
    QByteArray name;
    std::optional<Refusal> refusal; ///< if set, nothing may be created

    /// The place for a URL that was answered with this Content-Type, of which everything behind ";" is ignored. A
    /// directory or name is refused if it is "..", holds a separator, is empty, or names a device. Hidden controls in
    /// them are percent-encoded.
    [[nodiscard]] static TargetName of(const QByteArray& url, const QByteArray& contentType, const NamingRules& rules);
};
