// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

#include <memory>

class LanguageFile;
class LanguageTable;
class Messages;

/// Which language the program speaks: a built-in one, or a file laid over it.
class LanguageChoice final : public QObject {
    Q_OBJECT

public:
    /// What `index` is when a language file is in use.
    static constexpr int file = -1;

    /// Both must outlive it.
    LanguageChoice(LanguageTable& table, Messages& messages);
    ~LanguageChoice() override;

    void selectBuiltIn(int index);
    /// Reads a language file. Of each line that it does not understand the user is asked whether to go on.
    void load(const QString& fileName);

    /// Reads the language file that was in use when the program last ended. It stays chosen even if it cannot be read.
    void resume(const QString& fileName);

    [[nodiscard]] int index() const { return m_index; }
    /// The language file's full path; empty with a built-in language.
    [[nodiscard]] const QString& fileName() const { return m_fileName; }

private:
    void readOn();

    LanguageTable& m_table;
    Messages& m_messages;
    int m_index;
    QString m_fileName;
    /// The file that is being read.
    std::unique_ptr<LanguageFile> m_reading;
};
