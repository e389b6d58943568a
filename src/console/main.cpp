// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/lang.h"
#include "console/CommandLine.h"
#include "console/CookiesCommand.h"
#include "console/DownloadCommand.h"
#include "console/ListCommand.h"
#include "console/NumberCommand.h"
#include "console/SearchCommand.h"
#include "console/Terminal.h"

#include <QCoreApplication>
#include <QTextStream>

namespace {

constexpr const char* help = R"(Usage: tarnwick-cli COMMAND ...
Searches a web site for files.

Commands:
  search START_URL     Searches a site and prints every URL found.
  list FILE.twk        Prints the found items of a search file.
  download TARGET_DIR SOURCE...
                       Downloads URLs, or the items of search files.
  number URL           Prints a run of numbered URLs.
  cookies import FILE...
                       Copies a browser's cookies into the program's own.
  cookies clear        Deletes all cookies that are stored.
  cookies show URL     Prints the Cookie line that a request for URL would carry.

Options:
  -h, --help           Shows this help; behind a command, the help of the command.
  -v, --version        Shows the version.

Example:
  tarnwick-cli search www.example.org --depth 2 --save example.twk

Exit status: 0 done; 1 the arguments or an input file are unusable; 2 the work was
done but something failed; 130 interrupted.
)";

int runSearchCommand(const QStringList& arguments)
{
    const auto parsed = SearchArguments::from(arguments, LanguageTable());
    return parsed ? SearchCommand(*parsed).run() : Done;
}

int runCommand(const QString& command, const QStringList& arguments)
{
    if (command == QLatin1String("search"))
        return runSearchCommand(arguments);
    if (command == QLatin1String("list"))
        return runListCommand(arguments);
    if (command == QLatin1String("download"))
        return runDownloadCommand(arguments);
    if (command == QLatin1String("number"))
        return runNumberCommand(arguments);
    if (command == QLatin1String("cookies"))
        return runCookiesCommand(arguments);
    if (command == QLatin1String("--help") || command == QLatin1String("-h")) {
        QTextStream(stdout) << help;
        return Done;
    }
    if (command == QLatin1String("--version") || command == QLatin1String("-v")) {
        QTextStream(stdout) << "tarnwick-cli " TARNWICK_VERSION "\n";
        return Done;
    }
    throw UsageError { command.isEmpty() ? QStringLiteral("no command given; try --help")
                                         : QStringLiteral("unknown command '%1'; try --help").arg(command) };
}

} // namespace

int main(int argc, char* argv[])
{
    terminal::prepare();
    // The library's own event loop: GLib's wakes itself by a system call for each event that is posted.
    qputenv("QT_NO_GLIB", "1");
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    try {
        return runCommand(arguments.value(1), arguments.mid(2));
    } catch (const UsageError& error) {
        complain(error.text);
        return Unusable;
    }
}
