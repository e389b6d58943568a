// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCommandLineParser>
#include <QString>
#include <QStringList>

#include <functional>

class LanguageTable;
class QIODevice;

namespace SearchFile {
struct LoadResult;
}

/// What the program's end tells scripts.
enum ExitStatus {
    Done = 0,
    Unusable = 1, ///< the arguments or an input file are unusable
    PartlyFailed = 2, ///< the work was done, but something failed
    Interrupted = 130,
};

/// A reason why arguments are unusable, as one line for the user.
struct UsageError {
    QString text;
};

/// Writes one line to standard error, with the program's name in front and nothing that a terminal would act on.
void complain(const QString& text);
/// Complains of the lines of a search file that were passed over, each with the file's name and its number.
void complainOfSkippedLines(
    const QString& fileName, const SearchFile::LoadResult& result, const LanguageTable& language);

/// Lets `write` write bytes to standard output. False, after a complaint, when they cannot all be written.
[[nodiscard]] bool printToStandardOutput(const std::function<void(QIODevice&)>& write);

/// The parser of one command, with its help.
class CommandParser {
public:
    /// How many positional arguments there must be, both bounds included.
    struct Count {
        qsizetype least = 1;
        qsizetype most = 1;
    };

    /// `argument` is how the help names the positional arguments.
    CommandParser(const QString& command, const QString& description, const QString& example, const QString& argument,
        const QString& argumentDescription, Count count);
    /// For one positional argument, which is required.
    CommandParser(const QString& command, const QString& description, const QString& example, const QString& argument,
        const QString& argumentDescription)
        : CommandParser(command, description, example, argument, argumentDescription, {})
    {
    }

    void addSwitch(const QStringList& names, const QString& description);
    void addValue(const QStringList& names, const QString& description, const QString& valueName);

    /// Parses everything behind the command's name. Throws UsageError. False when help was asked for and printed.
    bool parse(const QStringList& arguments);

    [[nodiscard]] bool isSet(const QString& name) const { return m_parser.isSet(name); }
    /// The last value given; empty when there is none.
    [[nodiscard]] QString value(const QString& name) const { return m_parser.value(name); }
    [[nodiscard]] QStringList values(const QString& name) const { return m_parser.values(name); }
    /// The first positional argument.
    [[nodiscard]] QString argument() const { return m_parser.positionalArguments().constFirst(); }
    [[nodiscard]] QStringList arguments() const { return m_parser.positionalArguments(); }

    /// The value as a whole number from 0 to 2^31-1. Throws UsageError for anything else.
    [[nodiscard]] qint32 wholeNumber(const QString& name) const;

private:
    QCommandLineParser m_parser;
    QString m_command;
    QString m_argument;
    Count m_count;
};
