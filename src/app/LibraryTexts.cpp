// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/LibraryTexts.h"

#include "base/lang.h"

#include <QCoreApplication>
#include <QLibraryInfo>

LibraryTexts::LibraryTexts(const LanguageTable& language)
    : m_language(language)
{
    connect(&language, &LanguageTable::changed, this, &LibraryTexts::load);
    load();
}

void LibraryTexts::load()
{
    QCoreApplication::removeTranslator(&m_translator);
    const QLocale locale = LanguageTable::localeOf(m_language.builtIn());
    if (m_translator.load(
            locale, QStringLiteral("qtbase"), QStringLiteral("_"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&m_translator);
}
