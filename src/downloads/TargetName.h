// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayList>

#include <optional>

/// How the file of a download is named.
struct NamingRules {
    bool dirByUrl = false; ///< in directories by host, port and path
    bool extByMIME = false; ///< with an extension of its type
    bool renameForMS = true; ///< with characters that Windows does not take percent-encoded
};

/// Where a download goes, below the target folder. Nothing in it leads out of that folder.
struct TargetName {
    QByteArrayList directories; ///< one inside the other, outermost first
    QByteArray name;
};

namespace targetName {

/// Why a URL has no target.
enum class Refusal { Directory, Name };

struct Result {
    TargetName target;
    std::optional<Refusal> refusal;
};

/// The target of a URL that was answered with this Content-Type (parameters behind ";" do not count). A directory or a
/// name that would lead elsewhere, or that the system takes for a device, is refused, as is an empty name.
[[nodiscard]] Result of(const QByteArray& url, const QByteArray& contentType, const NamingRules& rules);

} // namespace targetName
