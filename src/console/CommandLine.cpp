// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/CommandLine.h"

#include <QTextStream>

#include <cstdio>

namespace {

constexpr Option help { .name = "help", .letter = 'h', .help = "Show this help." };

QCommandLineOption parserOption(const Option& option)
{
    QStringList names { QString::fromLatin1(option.name) };
    if (option.letter != 0)
        names.prepend(QString(QLatin1Char(option.letter)));
    return { names, QString::fromLatin1(option.help), QString::fromLatin1(option.value) };
}

} // namespace

CommandLine::CommandLine(const Command& command)
    : m_command(command)
{
    const QString description = QString::fromLatin1(command.summary) + u' ' + QLatin1String(command.more);
    m_parser.setApplicationDescription(
        description.trimmed() + QLatin1String("\n\nExample:\n  tarnwick-cli ") + QLatin1String(command.example));
    m_parser.addOption(parserOption(help));
    for (const OptionGroup& group : command.options) {
        for (const Option* const option : group)
            m_parser.addOption(parserOption(*option));
    }
    // The parser knows no commands, so the usage line gets the command's name together with its arguments.
    m_parser.addPositionalArgument(QString::fromLatin1(command.arguments), QString::fromLatin1(command.argumentsHelp),
        QString(QLatin1String(command.name) + u' ' + QLatin1String(command.arguments)).trimmed());
}

bool CommandLine::parse(const QStringList& words)
{
    if (!m_parser.parse(QStringList { QStringLiteral("tarnwick-cli") } + words))
        throw UsageError { m_parser.errorText() };
    if (isSet(help)) {
        QTextStream(stdout) << m_parser.helpText();
        return false;
    }
    const QLatin1String name(m_command.name);
    const QStringList given = arguments();
    if (given.size() < m_command.count.least)
        throw UsageError { QStringLiteral("%1: %2 is missing").arg(name, QLatin1String(m_command.arguments)) };
    if (given.size() > m_command.count.most)
        throw UsageError { QStringLiteral("%1: unexpected argument '%2'").arg(name, given[m_command.count.most]) };
    return true;
}

qint32 CommandLine::wholeNumber(const Option& option) const
{
    bool ok = false;
    const qint32 number = value(option).toInt(&ok);
    if (!ok || number < 0) {
        throw UsageError {
            QStringLiteral("--%1 needs a whole number, not '%2'").arg(QLatin1String(option.name), value(option))
        };
    }
    return number;
}
