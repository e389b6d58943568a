// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/lang.h"

#include "base/LineReader.h"
#include "base/allgemein.h"

#include <QFile>

#include <array>

namespace {

struct BuiltInLanguage {
    QLocale::Language language;
    /// Its texts: UTF-8 lines of key=value.
    const char* file;
    const char* moreFile;
};

/// In the order of their indices.
constexpr std::array<BuiltInLanguage, LanguageTable::builtInCount> builtInLanguages { {
    { QLocale::English, ":/languages/english.lng", ":/languages/more_english.lng" },
    { QLocale::German, ":/languages/german.lng", ":/languages/more_german.lng" },
    { QLocale::French, ":/languages/french.lng", ":/languages/more_french.lng" },
} };

void readTexts(const char* fileName, QHash<QByteArray, QString>& texts)
{
    QFile file(QString::fromLatin1(fileName));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The language file %s is missing from the program.", fileName);
    LineReader lines(file);
    while (const auto line = lines.next()) {
        if (const auto pair = allgemein::splitKeyValue(line->text.toByteArray()))
            texts.insert(pair->key, QString::fromUtf8(pair->value));
    }
}

} // namespace

LanguageTable::LanguageTable()
{
    selectBuiltIn(English);
}

void LanguageTable::selectBuiltIn(int index)
{
    if (!isBuiltIn(index))
        return;
    const BuiltInLanguage& language = builtInLanguages[static_cast<size_t>(index)];
    readTexts(language.file, m_texts);
    readTexts(language.moreFile, m_more);
    m_builtIn = index;
    emit changed();
}

int LanguageTable::builtInFor(const QLocale& locale)
{
    for (int index = 0; index < builtInCount; ++index) {
        if (localeOf(index).language() == locale.language())
            return index;
    }
    return English;
}

QLocale LanguageTable::localeOf(int index)
{
    return QLocale(builtInLanguages.at(static_cast<size_t>(index)).language);
}

bool LanguageTable::set(const QByteArray& key, const QString& text)
{
    for (QHash<QByteArray, QString>* const texts : { &m_texts, &m_more }) {
        if (const auto place = texts->find(key); place != texts->end()) {
            *place = text;
            return true;
        }
    }
    return false;
}

QString LanguageTable::text(const QByteArray& key) const
{
    const auto place = m_texts.constFind(key);
    return place != m_texts.constEnd() ? *place : m_more.value(key);
}

QString LanguageTable::text(const char* key) const
{
    return text(QByteArray::fromRawData(key, static_cast<qsizetype>(qstrlen(key))));
}

QString LanguageTable::labelled(const QString& label, const QString& value) const
{
    return text("more.labelled").arg(label, value);
}

QString LanguageTable::plain(QString caption)
{
    caption.remove(u'&');
    if (caption.endsWith(QLatin1String("...")))
        caption.chop(3);
    return caption.trimmed();
}
