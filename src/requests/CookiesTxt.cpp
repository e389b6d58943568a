// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/CookiesTxt.h"

#include "base/ErrorReport.h"

#include <QDir>

namespace {

/// In bytes. Browsers keep no cookie of more than some kilobytes.
constexpr qsizetype longestLine = 64 * 1024;

constexpr QByteArrayView httpOnlyMark = "#HttpOnly_";

std::optional<ForeignCookie> cookieFrom(QByteArray line)
{
    if (line.startsWith(httpOnlyMark))
        line.remove(0, httpOnlyMark.size());
    const QByteArrayList fields = line.split('\t');
    if (line.trimmed().startsWith('#') || fields.size() < 7)
        return {};
    return ForeignCookie { fields[0], { fields[2], fields[5], fields[6] } };
}

} // namespace

CookiesTxt::CookiesTxt(const QString& fileName)
    : m_file(fileName)
    , m_lines(m_file, longestLine)
{
    if (m_file.size() > largestFile)
        fail(ImportError::TooLarge, QDir::toNativeSeparators(fileName));
    else if (!m_file.open(QIODevice::ReadOnly))
        fail(ImportError::File, fileFailure(m_file));
}

bool CookiesTxt::read(const Take& take)
{
    const auto line = m_file.isOpen() ? m_lines.next() : std::nullopt;
    if (!line)
        return end();
    m_number += line->isRest ? 0 : 1;
    const QByteArrayView text = line->text.trimmed();
    const auto cookie = line->isPiece ? std::nullopt : cookieFrom(line->text.toByteArray());
    const bool isNothing = line->isRest || text.isEmpty() || text.startsWith('#');
    m_looksRight = m_looksRight || cookie || text.startsWith('#');
    if (cookie)
        take(*cookie);
    else if (!isNothing)
        passOver(m_file.fileName(), m_number);
    return true;
}

bool CookiesTxt::end()
{
    if (m_file.isOpen() && m_file.error() != QFile::NoError)
        fail(ImportError::File, fileFailure(m_file));
    else if (m_file.isOpen() && m_file.pos() > 0 && !m_looksRight)
        fail(ImportError::NotCookies, QDir::toNativeSeparators(m_file.fileName()));
    m_file.close();
    return false;
}
