// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

/// The texts that people read, one for each key. Message keys begin with "lang.", the keys of captions with the name
/// of their window. Keys compare exactly.
class LanguageTable {
public:
    /// The built-in languages, by the index that settings files hold.
    enum BuiltIn { English };

    /// Starts in English.
    LanguageTable();

    /// Sets every text to that of a built-in language. An unknown index changes nothing.
    void selectBuiltIn(int index);

    /// The current text of `key`; empty for a key that is not in the table.
    [[nodiscard]] QString text(const char* key) const;

private:
    QHash<QByteArray, QString> m_texts;
};
