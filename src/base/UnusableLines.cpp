// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/UnusableLines.h"

#include "base/lang.h"

#include <QDir>

void UnusableLines::add(qint64 number)
{
    constexpr qint64 most = 20;
    if (++m_count <= most)
        m_first += number;
}

QString UnusableLines::note(const QString& fileName, const char* key, const LanguageTable& language) const
{
    QStringList numbers;
    for (const qint64 number : m_first)
        numbers += QString::number(number);
    QString note =
        QDir::toNativeSeparators(fileName) + u'\n' + language.text(key).arg(numbers.join(QLatin1String(", ")));
    if (const qint64 more = m_count - m_first.size(); more > 0)
        note += u' ' + language.text("more.andMore").arg(more);
    return note;
}
