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
    // The Windows package has the translations beside the program; other systems install them with Qt.
    const QStringList folders { QCoreApplication::applicationDirPath() + QLatin1String("/translations"),
        QLibraryInfo::path(QLibraryInfo::TranslationsPath) };
    for (const QString& folder : folders) {
        if (m_translator.load(locale, QStringLiteral("qtbase"), QStringLiteral("_"), folder)) {
            QCoreApplication::installTranslator(&m_translator);
            return;
        }
    }
}
