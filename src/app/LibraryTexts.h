// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTranslator>

class LanguageTable;

/// The library's own texts, as on the buttons of message boxes, in the language of the table, as far as they are
/// installed.
class LibraryTexts final : public QObject {
    Q_OBJECT

public:
    /// `language` must outlive it.
    explicit LibraryTexts(const LanguageTable& language);

private:
    void load();

    const LanguageTable& m_language;
    QTranslator m_translator;
};
