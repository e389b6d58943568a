// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/CookiesTxt.h"

#include "base/ErrorReport.h"
#include "base/allgemein.h"

#include <QDir>

namespace {

constexpr QByteArrayView httpOnlyMark = "#HttpOnly_";

std::optional<ForeignCookie> cookieFrom(QByteArray line)
{
    if (line.startsWith(httpOnlyMark))
        line.remove(0, httpOnlyMark.size());
    const QByteArrayList fields = line.split('\t');
    if (line.trimmed().startsWith('#') || fields.size() < 7)
        return {};
    const bool isSecure = fields[3].compare("TRUE", Qt::CaseInsensitive) == 0;
    return ForeignCookie { fields[0], { fields[2], fields[5], fields[6] }, isSecure,
        allgemein::leadingNumber(fields[4]) };
}

} // namespace

CookiesTxt::CookiesTxt(const QString& fileName)
    : m_file(fileName)
    , m_lines(m_file)
{
    if (!open(m_file))
        return;
    skipUtf8Mark(m_file);
    if (!isJson(m_file))
        return;
    fail(ImportError::Json, QDir::toNativeSeparators(m_file.fileName()));
    m_file.close();
}

bool CookiesTxt::read(const Take& take)
{
    const auto line = m_file.isOpen() ? m_lines.next() : std::nullopt;
    if (!line)
        return end();
    if (line->isRest)
        return true;
    ++m_number;
    const auto cookie = line->isPiece ? std::nullopt : cookieFrom(line->text.toByteArray());
    const bool isComment = line->text.trimmed().startsWith('#');
    m_looksRight = m_looksRight || cookie || isComment;
    if (cookie)
        take(*cookie);
    else if (!line->text.trimmed().isEmpty() && (!isComment || line->text.startsWith(httpOnlyMark)))
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
