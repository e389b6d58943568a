// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/fuzz.h"
#include "session/Session.h"
#include "session/Settings.h"

#include <QCoreApplication>
#include <QTemporaryDir>

/// Starts a session with the settings of the data folder and ends it. `result` is the result of loading.
static QByteArray restarted(const QString& folder, settings::LoadResult& result)
{
    Session session;
    result = settings::loadSettings(session, folder);
    require(result.failure.isEmpty(), "the files can be read");
    require(settings::report(result, session.language).has_value() == (result.unknownCount > 0),
        "unknown lines are told of");
    require(!settings::saveSettings(session), "settings can be saved");
    return contentOf(folder + QLatin1String("/tarnwick.ini"));
}

/// Input: tarnwick.ini, a line "==", and views.ini.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static int argc = 0;
    static const QCoreApplication application(argc, nullptr);
    Input input(data, size);
    // Each input gets a folder of its own, since the library caches the contents of a settings file.
    const QTemporaryDir folder;
    writeFile(folder.filePath(QStringLiteral("tarnwick.ini")), input.upTo("\n==\n"));
    writeFile(folder.filePath(QStringLiteral("views.ini")), input.rest());
    qputenv("TARNWICK_DATA", folder.path().toLocal8Bit());

    settings::LoadResult result;
    const QByteArray first = restarted(folder.path(), result);
    require(restarted(folder.path(), result) == first, "settings are the same after the next start");
    require(result.unknownCount == 0, "what was saved is understood");
    return 0;
}
