// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/allgemein.h"
#include "console/Commands.h"
#include "console/Output.h"
#include "console/SharedOptions.h"
#include "http/url.h"
#include "requests/CookieImport.h"
#include "requests/ImportReport.h"
#include "session/Session.h"

#include <QDir>
#include <QIODevice>

#include <limits>
#include <numeric>

namespace {

constexpr Option all { .name = "all", .help = "Take cookies for https only and expired ones as well." };

constexpr std::array options { &sharedOptions::cookies };
constexpr std::array importOptions { &all, &sharedOptions::cookies };

/// Chooses the command's folder. A command that only reads does not create a missing folder: it finds no cookies.
void chooseFolder(CookieStore& store, const CommandLine& line, bool stores)
{
    const QString folder = Session::cookieFolder(line.value(sharedOptions::cookies));
    if (stores || QDir(folder).exists())
        store.setCookieFolder(folder);
}

int print(const QByteArray& text)
{
    return printToStandardOutput([&](QIODevice& out) { out.write(text); }) ? Done : PartlyFailed;
}

int show(const CommandLine& line)
{
    const QByteArray url = url::withProtocol(allgemein::toSystem(line.argument()));
    if (!url::isValidUrl(url))
        throw UsageError { LanguageTable().text("lang.invalidStartUrl")
            + QStringLiteral(" '%1'").arg(line.argument()) };
    CookieStore store;
    chooseFolder(store, line, false);
    const QByteArray header = store.getCookieHeader(url);
    return print(header.isEmpty() ? QByteArray() : header.chopped(2) + '\n');
}

/// Each line of a message as the label of those below it.
QString onOneLine(const QString& message, const LanguageTable& language)
{
    const QStringList lines = message.split(u'\n');
    return std::accumulate(std::next(lines.begin()), lines.end(), lines.first(),
        [&language](const QString& label, const QString& line) { return language.labelled(label, line); });
}

/// Reads one file into the store. Returns its contribution to the exit status.
int importFile(const QString& fileName, CookieStore& store, CookieImport::Taking taking, ImportCount& count)
{
    const LanguageTable language;
    CookieImport reading(CookieImport::sourceFor(fileName), store, taking);
    while (reading.step()) { }
    count += reading.count();
    for (const QString& text : importReport::complaints(reading, language))
        complain(onOneLine(text, language));
    if (!reading.error())
        return Done;
    return reading.error()->where == ImportError::CookieFile ? PartlyFailed : Unusable;
}

/// Every file is tried, also after one that is unusable.
int importFiles(const CommandLine& line)
{
    CookieStore store;
    chooseFolder(store, line, true);
    const auto taking = line.isSet(all) ? CookieImport::Taking::All : CookieImport::Taking::Harmless;
    ImportCount count;
    int status = Done;
    for (const QString& fileName : line.arguments())
        status = qMax(status, importFile(fileName, store, taking, count));
    const LanguageTable language;
    for (const QString& note : importReport::notes(count, language))
        complain(note);
    if (count.leftOut() > 0)
        complain(QStringLiteral("--all takes those that were left out."));
    if (count.stored == 0 && status != Done)
        return status;
    return qMax(status, print(importReport::countText(count.stored, language).toUtf8() + '\n'));
}

int clear(const CommandLine& line)
{
    CookieStore store;
    chooseFolder(store, line, false);
    const LanguageTable language;
    const QStringList kept = store.deleteAll();
    for (const QString& fileName : kept)
        complain(language.labelled(language.text("lang.errWhileDelCookies"), QDir::toNativeSeparators(fileName)));
    return kept.isEmpty() ? print(language.text("lang.cookiesWereDel").toUtf8() + '\n') : PartlyFailed;
}

} // namespace

const Command commands::importCookies {
    .name = "cookies import",
    .arguments = "FILE...",
    .argumentsHelp = "A \"cookies.txt\" or a Firefox \"cookies.sqlite\"; they are told apart by their content.",
    .count = { 1, std::numeric_limits<qsizetype>::max() },
    .summary = "Copies a browser's cookies into the program's own.",
    .example = "cookies import ~/.mozilla/firefox/*/cookies.sqlite",
    .options = { importOptions },
    .run = importFiles,
};

const Command commands::clearCookies {
    .name = "cookies clear",
    .count = { 0, 0 },
    .summary = "Deletes all cookies that are stored.",
    .example = "cookies clear",
    .options = { options },
    .run = clear,
};

const Command commands::showCookies {
    .name = "cookies show",
    .arguments = "URL",
    .argumentsHelp = "The URL of the request.",
    .summary = "Prints the Cookie line that a request for URL would carry.",
    .example = "cookies show http://www.example.org/shop/",
    .options = { options },
    .run = show,
};
