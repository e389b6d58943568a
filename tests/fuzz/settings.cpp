// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Session.h"
#include "app/Settings.h"
#include "fuzz/fuzz.h"

#include <QCoreApplication>
#include <QTemporaryDir>

/// Starts a session with the settings of the data folder and ends it; `result` is what was said of them.
static QByteArray restarted(const QString& folder, Settings::LoadResult& result)
{
    Session session;
    result = Settings::loadSettings(session, folder);
    require(result.failure.isEmpty(), "the files can be read");
    require(Settings::report(result, session.language).has_value() == (result.unknownCount > 0),
        "unknown lines are told of");
    require(!Settings::saveSettings(session), "settings can be saved");
    return contentOf(folder + QLatin1String("/tarnwick.ini"));
}

/// The settings file, a line with nothing but "==", and the file of the windows' places.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static int argc = 0;
    static const QCoreApplication application(argc, nullptr);
    Input input(data, size);
    // A folder for each: of a file that was there a moment ago, the library remembers what it held.
    const QTemporaryDir folder;
    writeFile(folder.filePath(QStringLiteral("tarnwick.ini")), input.upTo("\n==\n"));
    writeFile(folder.filePath(QStringLiteral("views.ini")), input.rest());
    qputenv("TARNWICK_DATA", folder.path().toLocal8Bit());

    Settings::LoadResult result;
    const QByteArray first = restarted(folder.path(), result);
    require(restarted(folder.path(), result) == first, "settings are the same after the next start");
    require(result.unknownCount == 0, "what was saved is understood");
    return 0;
}
