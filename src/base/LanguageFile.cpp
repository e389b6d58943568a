// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/LanguageFile.h"

#include "base/allgemein.h"
#include "base/folders.h"

#include <QDir>

namespace {

/// In bytes. The built-in languages have some ten thousand.
constexpr qint64 largestFile = 16 * 1024 * 1024;

} // namespace

LanguageFile::LanguageFile(const QString& fileName, LanguageTable& table)
    : m_file(fileName)
    , m_lines(m_file)
    , m_table(table)
{
    // The settings may name a device or a pipe.
    if (!allgemein::isOrdinaryFile(fileName) || m_file.size() > largestFile || !m_file.open(QIODevice::ReadOnly))
        return;
    // Text in another encoding that is valid UTF-8 as well hardly occurs, but for plain ASCII, which reads the same.
    m_isUtf8 = m_file.readAll().isValidUtf8();
    m_file.seek(0);
    m_isUtf8 = skipUtf8Mark(m_file) || m_isUtf8;
}

LanguageFile::Step LanguageFile::read()
{
    if (!m_file.isOpen())
        return Step::Failed;
    const Step step = readLines();
    emit m_table.changed();
    return step;
}

QString LanguageFile::place() const
{
    const QString name = QDir::toNativeSeparators(m_file.fileName());
    return m_line == 0 ? name : QString(name + u':' + QString::number(m_line));
}

LanguageFile::Step LanguageFile::readLines()
{
    while (const auto line = m_lines.next()) {
        m_line += line->isRest ? 0 : 1;
        if (!line->isPiece && !takeLine(line->text.toByteArray()))
            return Step::UnknownKey;
    }
    return m_file.error() == QFile::NoError ? Step::End : Step::Failed;
}

bool LanguageFile::takeLine(const QByteArray& line)
{
    const auto pair = allgemein::splitKeyValue(line);
    if (!pair || pair->key.startsWith("//"))
        return true;
    m_key = pair->key;
    return m_table.set(m_key, m_isUtf8 ? QString::fromUtf8(pair->value) : allgemein::fromSystem(pair->value));
}
