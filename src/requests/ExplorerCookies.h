// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "requests/CookieSource.h"

#include <QStringList>

class Registry;

/// The cookie folder of Internet Explorer, which the registry names: text files with nine lines for each cookie.
class ExplorerCookies final : public CookieSource {
public:
    explicit ExplorerCookies(const Registry& registry);

    [[nodiscard]] bool read(const Take& take) override;

    /// Whether the registry names a cookie folder.
    [[nodiscard]] static bool areHere(const Registry& registry);

private:
    void readFile(const QString& fileName);

    QStringList m_files; ///< those that are still to be read
    QByteArrayList m_lines; ///< of the file that is being read
    qsizetype m_line = 0;
};
