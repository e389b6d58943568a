// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/allgemein.h"
#include "base/folders.h"
#include "console/Commands.h"
#include "console/ConsoleDownload.h"
#include "console/ItemOptions.h"
#include "console/SharedOptions.h"
#include "console/WebOptions.h"

#include <QDir>

#include <limits>

namespace {

constexpr Option dirByUrl { .name = "dir-by-url", .help = "Make folders by host, port and path of the URL." };
constexpr Option extByMime { .name = "ext-by-mime", .help = "Add the extension of the MIME type to file names." };
constexpr Option noRenameForMs { .name = "no-rename-for-ms",
    .help = "Keep characters in file names that Windows does not take. Without it they are percent-encoded." };
/// The default. Older scripts have the option, so it stays known.
constexpr Option renameForMs { .name = "rename-for-ms",
    .help = "Changes nothing: names are adapted to Windows anyway." };
constexpr Option overwrite { .name = "overwrite", .help = "Replace files that exist." };
constexpr Option fail { .name = "fail",
    .help = "Save nothing that comes with an HTTP status of 400 or more. Such a download has failed." };
constexpr Option parallel {
    .name = "parallel", .letter = 'p', .value = "N", .help = "How many downloads run at once, 1 to 10. Default: 3."
};
constexpr Option followRelocation { .name = "follow-relocation", .help = "Fetch the new URL of what has moved." };
constexpr Option referer {
    .name = "referer", .value = "URL", .help = "The referring URL sent. Default: that of a search file's item."
};

constexpr std::array options { &dirByUrl, &extByMime, &noRenameForMs, &renameForMs, &overwrite, &fail, &parallel,
    &followRelocation, &referer, &sharedOptions::quiet };

DownloadSettings settingsFrom(const CommandLine& line)
{
    DownloadSettings settings;
    settings.target = allgemein::withTrailingSeparator(QDir::toNativeSeparators(QDir(line.argument()).absolutePath()));
    settings.naming = { line.isSet(dirByUrl), line.isSet(extByMime), !line.isSet(noRenameForMs) };
    settings.overwrite = line.isSet(overwrite);
    settings.refuseErrors = line.isSet(fail);
    if (line.isSet(parallel))
        settings.maxDL = line.wholeNumber(parallel);
    if (settings.maxDL < 1 || settings.maxDL > DownloadSettings::mostSlots)
        throw UsageError { QStringLiteral("--parallel needs a number from 1 to %1").arg(DownloadSettings::mostSlots) };
    return settings;
}

int runDownload(const CommandLine& line)
{
    DownloadArguments arguments;
    arguments.sources = line.arguments().sliced(1);
    arguments.settings = settingsFrom(line);
    arguments.filter = itemOptions::filterFrom(line);
    arguments.referer = allgemein::toSystem(line.value(referer));
    arguments.followRelocation = line.isSet(followRelocation);
    arguments.web = webOptions::rulesFrom(line);
    arguments.quiet = line.isSet(sharedOptions::quiet);
    return ConsoleDownload(arguments).run();
}

} // namespace

const Command commands::download {
    .name = "download",
    .arguments = "TARGET_DIR SOURCE...",
    .argumentsHelp = "The folder, and the URLs and search files.",
    .count = { 2, std::numeric_limits<qsizetype>::max() },
    .summary = "Downloads URLs, or the items of search files.",
    .more = "Prints a line for each at its end: the tag (C complete, S with a warning, F failed), the file, and the "
            "URL, separated by TAB. Standard error says why one did not complete.",
    .example = "download pictures example.twk --mime image/png --dir-by-url",
    .options = { options, webOptions::group, itemOptions::filter },
    .run = runDownload,
};
