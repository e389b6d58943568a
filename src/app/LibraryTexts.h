// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTranslator>

class LanguageTable;

/// Qt's own texts, as on the buttons of message boxes and in file dialogs, in the built-in language of the table. They
/// stay English where Qt's translations are not installed.
class LibraryTexts final : public QObject {
    Q_OBJECT

public:
    /// `language` must outlive the texts.
    explicit LibraryTexts(const LanguageTable& language);

private:
    void load();

    const LanguageTable& m_language;
    QTranslator m_translator;
};
