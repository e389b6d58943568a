// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

#include <memory>

class LanguageFile;
class LanguageTable;
class Messages;

/// Switches the language of the program: a built-in one, or a language file on top of one.
class LanguageChoice final : public QObject {
    Q_OBJECT

public:
    /// The value of `index` while a language file is in use.
    static constexpr int file = -1;

    /// `table` and `messages` must outlive the choice.
    LanguageChoice(LanguageTable& table, Messages& messages);
    ~LanguageChoice() override;

    void selectBuiltIn(int index);
    /// Reads a language file. At each unknown line the user is asked whether to go on.
    void load(const QString& fileName);

    /// Reads the language file that was in use at the end of the last run. The file stays chosen even if it cannot be
    /// read: its disk may be back at the next start.
    void resume(const QString& fileName);

    [[nodiscard]] int index() const { return m_index; }
    /// Full path of the language file; empty with a built-in language.
    [[nodiscard]] const QString& fileName() const { return m_fileName; }

private:
    void readOn();

    LanguageTable& m_table;
    Messages& m_messages;
    int m_index;
    QString m_fileName;
    std::unique_ptr<LanguageFile> m_reading; ///< the file that is being read; null between
};
