// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

class LanguageTable;

/// Collects the numbers of the lines of a file that could not be used, for a message.
class UnusableLines {
public:
    /// `number` counts from 1.
    void add(qint64 number);
    [[nodiscard]] bool isEmpty() const { return m_count == 0; }
    [[nodiscard]] qint64 count() const { return m_count; }
    /// The numbers of the first twenty.
    [[nodiscard]] const QList<qint64>& first() const { return m_first; }
    /// The file's name, and below it the text of `key` with the numbers in the place of its %1.
    [[nodiscard]] QString note(const QString& fileName, const char* key, const LanguageTable& language) const;

private:
    QList<qint64> m_first;
    qint64 m_count = 0;
};
