// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/LineReader.h"
#include "requests/CookieSource.h"

#include <QFile>

/// A "cookies.txt", as browsers kept it and exporters write it still: a line for each cookie, with seven fields between
/// TABs, of which the host, the path, the name and the value are read. Lines that begin with "#" are comments, but for
/// the mark that today's exporters put before the host of a cookie that scripts cannot see.
class CookiesTxt final : public CookieSource {
public:
    explicit CookiesTxt(const QString& fileName);

    [[nodiscard]] bool read(const Take& take) override;

private:
    [[nodiscard]] bool end();

    QFile m_file;
    LineReader m_lines;
    qint64 m_number = 0; ///< of the line that was read last
    bool m_looksRight = false; ///< something in it was a cookie or a comment
};
