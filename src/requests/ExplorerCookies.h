// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/LineReader.h"
#include "requests/CookieSource.h"

#include <QFile>
#include <QStringList>

#include <optional>

class Registry;

/// Reads the cookie folder of Internet Explorer, which the registry names: text files with nine lines for each cookie.
class ExplorerCookies final : public CookieSource {
public:
    explicit ExplorerCookies(const Registry& registry);

    [[nodiscard]] bool read(const Take& take) override;

    /// Whether the registry names a cookie folder.
    [[nodiscard]] static bool areHere(const Registry& registry);

private:
    /// False when no file is left.
    [[nodiscard]] bool openNext();
    void endFile();

    QStringList m_files; ///< still to be read
    QFile m_file; ///< being read
    std::optional<LineReader> m_lines; ///< of `m_file`
    qint64 m_number = 0; ///< of the last line that was read, from 1
};
