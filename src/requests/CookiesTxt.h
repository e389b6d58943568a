// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/LineReader.h"
#include "requests/CookieSource.h"

#include <QFile>

/// Reads a "cookies.txt" in the Netscape format, which old browsers kept and exporters still write: a line for each
/// cookie with seven fields between TABs. All but the second one are used. Lines that begin with "#" are comments,
/// except those that begin with "#HttpOnly_", by which exporters mark cookies that scripts cannot see.
class CookiesTxt final : public CookieSource {
public:
    explicit CookiesTxt(const QString& fileName);

    [[nodiscard]] bool read(const Take& take) override;

private:
    [[nodiscard]] bool end();

    QFile m_file;
    LineReader m_lines;
    qint64 m_number = 0; ///< of the last line that was read, from 1
    bool m_looksRight = false; ///< a line was a cookie or a comment
};
