// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/CommandLine.h"

#include "base/lang.h"
#include "console/Terminal.h"
#include "results/twk.h"

#include <QFile>
#include <QTextStream>

#include <cstdio>

void complain(const QString& text)
{
    QTextStream(stderr) << QLatin1String("tarnwick-cli: ") << terminal::printable(text) << Qt::endl;
}

void complainOfSkippedLines(
    const QString& fileName, const SearchFile::LoadResult& result, const LanguageTable& language)
{
    for (const SearchFile::SkippedLine& line : result.skipped) {
        complain(
            QStringLiteral("%1:%2: %3").arg(fileName, QString::number(line.number), twk::warningText(line, language)));
    }
    if (const qint64 more = result.skippedCount - result.skipped.size(); more > 0)
        complain(fileName + QLatin1String(": ") + language.text("more.andMore").arg(more));
}

bool printToStandardOutput(const std::function<void(QIODevice&)>& write)
{
    QFile out;
    bool complete = out.open(stdout, QIODevice::WriteOnly);
    if (complete) {
        write(out);
        complete = out.flush() && out.error() == QFile::NoError;
    }
    if (!complete)
        complain(QStringLiteral("standard output: ") + out.errorString());
    return complete;
}

CommandParser::CommandParser(const QString& command, const QString& description, const QString& example,
    const QString& argument, const QString& argumentDescription, Count count)
    : m_command(command)
    , m_argument(argument)
    , m_count(count)
{
    m_parser.setApplicationDescription(description + QLatin1String("\n\nExample:\n  tarnwick-cli ") + example);
    m_parser.addOption({ { QStringLiteral("h"), QStringLiteral("help") }, QStringLiteral("Show this help.") });
    // The parser knows nothing of commands: in the usage line, the command stands with its argument.
    m_parser.addPositionalArgument(argument, argumentDescription, QString(command + u' ' + argument).trimmed());
}

void CommandParser::addSwitch(const QStringList& names, const QString& description)
{
    m_parser.addOption(QCommandLineOption(names, description));
}

void CommandParser::addValue(const QStringList& names, const QString& description, const QString& valueName)
{
    m_parser.addOption(QCommandLineOption(names, description, valueName));
}

bool CommandParser::parse(const QStringList& arguments)
{
    if (!m_parser.parse(QStringList { QStringLiteral("tarnwick-cli") } + arguments))
        throw UsageError { m_parser.errorText() };
    if (m_parser.isSet(QStringLiteral("help"))) {
        QTextStream(stdout) << m_parser.helpText();
        return false;
    }
    const QStringList given = m_parser.positionalArguments();
    if (given.size() < m_count.least)
        throw UsageError { QStringLiteral("%1: %2 is missing").arg(m_command, m_argument) };
    if (given.size() > m_count.most)
        throw UsageError { QStringLiteral("%1: unexpected argument '%2'").arg(m_command, given[m_count.most]) };
    return true;
}

qint32 CommandParser::wholeNumber(const QString& name) const
{
    bool ok = false;
    const qint32 number = value(name).toInt(&ok);
    if (!ok || number < 0)
        throw UsageError { QStringLiteral("--%1 needs a whole number, not '%2'").arg(name, value(name)) };
    return number;
}
