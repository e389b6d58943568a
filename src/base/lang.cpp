// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/lang.h"

#include "base/allgemein.h"

#include <QFile>

#include <array>

namespace {

/// The built-in languages in the order of their indices. The files are UTF-8 text of key=value lines.
constexpr std::array builtInFiles { ":/languages/english.lng" };

} // namespace

LanguageTable::LanguageTable()
{
    selectBuiltIn(English);
}

void LanguageTable::selectBuiltIn(int index)
{
    if (index < 0 || index >= static_cast<int>(builtInFiles.size()))
        return;
    QFile file(QString::fromLatin1(builtInFiles[static_cast<size_t>(index)]));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The built-in language %d is missing from the program.", index);
    while (const auto line = allgemein::readLine(file)) {
        if (const auto pair = allgemein::splitKeyValue(line->text))
            m_texts.insert(pair->key, QString::fromUtf8(pair->value));
    }
}

QString LanguageTable::text(const char* key) const
{
    return m_texts.value(QByteArray::fromRawData(key, static_cast<qsizetype>(qstrlen(key))));
}
