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
    if (line->isPiece)
        return true;
    const auto cookie = cookieFrom(line->text.toByteArray());
    m_looksRight = m_looksRight || cookie || line->text.trimmed().startsWith('#');
    if (cookie)
        take(*cookie);
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
