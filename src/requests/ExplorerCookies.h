// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/LineReader.h"
#include "requests/CookieSource.h"

#include <QFile>
#include <QStringList>

#include <optional>

class Registry;

/// The cookie folder of Internet Explorer, which the registry names: text files with nine lines for each cookie.
class ExplorerCookies final : public CookieSource {
public:
    explicit ExplorerCookies(const Registry& registry);

    [[nodiscard]] bool read(const Take& take) override;

    /// Whether the registry names a cookie folder.
    [[nodiscard]] static bool areHere(const Registry& registry);

private:
    /// False when there is none.
    [[nodiscard]] bool openNext();
    void endFile();

    QStringList m_files; ///< those that are still to be read
    QFile m_file; ///< the one that is being read
    std::optional<LineReader> m_lines; ///< of that one
    qint64 m_number = 0; ///< of its line that was read last
};
