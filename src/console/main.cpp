// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Version.h"
#include "console/Commands.h"
#include "console/Output.h"
#include "console/Terminal.h"

#include <QCoreApplication>
#include <QTextStream>

#include <algorithm>
#include <array>

namespace {

/// In the order in which the help lists them.
constexpr std::array allCommands { &commands::search, &commands::list, &commands::download, &commands::number,
    &commands::importCookies, &commands::clearCookies, &commands::showCookies };

QStringList nameOf(const Command& command)
{
    return QString::fromLatin1(command.name).split(u' ');
}

bool beginsWith(const QStringList& words, const QStringList& beginning)
{
    return words.mid(0, beginning.size()) == beginning;
}

/// The line of a command in the list of commands; two lines when the first column is too narrow.
QString helpLine(const Command& command)
{
    constexpr qsizetype width = 20;
    const QString usage = QString(QLatin1String(command.name) + u' ' + QLatin1String(command.arguments)).trimmed();
    const QString gap = usage.size() <= width ? QString() : u'\n' + QString(width + 2, u' ');
    return QLatin1String("  ") + usage.leftJustified(width) + gap + u' ' + QLatin1String(command.summary) + u'\n';
}

/// Lists the commands whose names begin with `group`, which may be empty.
QString commandList(const QStringList& group)
{
    QString lines;
    const char* example = nullptr;
    for (const Command* const command : allCommands) {
        if (!beginsWith(nameOf(*command), group))
            continue;
        lines += helpLine(*command);
        example = example ? example : command->example;
    }
    const QString words = (QStringList { QStringLiteral("tarnwick-cli") } + group).join(u' ');
    const char* const purpose = group.isEmpty() ? "Searches a web site for files.\n" : "";
    return QStringLiteral("Usage: %1 COMMAND ...\n%4\nCommands:\n%2\nExample:\n  tarnwick-cli %3\n")
        .arg(words, lines, QLatin1String(example), QLatin1String(purpose));
}

constexpr const char* generalHelp = R"(
Options:
  -h, --help           Shows this help; behind a command, the help of the command.
  -v, --version        Shows the version.

Exit status: 0 done; 1 the arguments or an input file are unusable; 2 the work was
done but something failed; 130 interrupted.
)";

/// Whether several commands share this first word.
bool isGroup(const QString& word)
{
    return std::any_of(allCommands.begin(), allCommands.end(), [&](const Command* command) {
        const QStringList name = nameOf(*command);
        return name.size() > 1 && name.constFirst() == word;
    });
}

/// Answers words that name no command.
int runWithoutCommand(const QStringList& words)
{
    const QStringList group = isGroup(words.value(0)) ? words.first(1) : QStringList();
    const QString next = words.value(group.size());
    if (next.isEmpty())
        throw UsageError { QStringLiteral("no command given; try --help") };
    if (next == QLatin1String("--help") || next == QLatin1String("-h"))
        QTextStream(stdout) << commandList(group) << (group.isEmpty() ? generalHelp : "");
    else if (next == QLatin1String("--version") || next == QLatin1String("-v"))
        QTextStream(stdout) << "tarnwick-cli " << version::details() << '\n';
    else
        throw UsageError {
            QStringLiteral("unknown command '%1'; try --help").arg((group + QStringList(next)).join(u' '))
        };
    return Done;
}

int run(const QStringList& words)
{
    for (const Command* const command : allCommands) {
        const QStringList name = nameOf(*command);
        if (!beginsWith(words, name))
            continue;
        CommandLine line(*command);
        return line.parse(words.sliced(name.size())) ? command->run(line) : Done;
    }
    return runWithoutCommand(words);
}

} // namespace

int main(int argc, char* argv[])
{
    terminal::prepare();
    // Use the library's own event loop: GLib's makes a system call for each event that is posted.
    qputenv("QT_NO_GLIB", "1");
    const QCoreApplication application(argc, argv);
    try {
        return run(QCoreApplication::arguments().mid(1));
    } catch (const UsageError& error) {
        complain(error.text);
        return Unusable;
    }
}
