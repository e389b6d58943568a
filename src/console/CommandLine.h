// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCommandLineParser>
#include <QString>
#include <QStringList>

#include <array>
#include <span>

/// The exit status of the program.
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

/// An option of the command line. Its names and its help stand here and nowhere else: a command reads the option
/// through this object.
struct Option {
    const char* name = nullptr; ///< without the dashes
    char letter = 0; ///< the short form; 0 for none
    const char* value = nullptr; ///< the help's name for the value; none for a switch
    const char* help = nullptr;
};

using OptionGroup = std::span<const Option* const>;

class CommandLine;

/// A command of the program: its help, its options, and its work.
struct Command {
    /// How many arguments a command takes beside its options, both bounds included.
    struct Count {
        qsizetype least = 1;
        qsizetype most = 1;
    };

    const char* name = nullptr; ///< one word, or two as in "cookies show"
    const char* arguments = ""; ///< the help's name for the arguments
    const char* argumentsHelp = "";
    Count count = {};
    const char* summary = nullptr; ///< a sentence
    const char* more = ""; ///< sentences that follow the summary in the command's own help
    const char* example = nullptr; ///< without the program's name
    std::array<OptionGroup, 3> options = {};
    /// Returns the exit status. Throws UsageError.
    int (*run)(const CommandLine& line) = nullptr;
};

/// The arguments and options given to one command.
class CommandLine {
public:
    /// `command` must outlive the object.
    explicit CommandLine(const Command& command);

    /// Parses everything behind the command's name. Throws UsageError. Returns false when help was asked for and
    /// printed.
    bool parse(const QStringList& words);

    [[nodiscard]] bool isSet(const Option& option) const { return m_parser.isSet(QLatin1String(option.name)); }
    /// The last value given; empty when there is none.
    [[nodiscard]] QString value(const Option& option) const { return m_parser.value(QLatin1String(option.name)); }
    [[nodiscard]] QStringList values(const Option& option) const { return m_parser.values(QLatin1String(option.name)); }
    /// The value as a whole number from 0 to 2^31-1. Throws UsageError for anything else.
    [[nodiscard]] qint32 wholeNumber(const Option& option) const;

    /// The first argument.
    [[nodiscard]] QString argument() const { return m_parser.positionalArguments().constFirst(); }
    [[nodiscard]] QStringList arguments() const { return m_parser.positionalArguments(); }

private:
    const Command& m_command;
    QCommandLineParser m_parser;
};
