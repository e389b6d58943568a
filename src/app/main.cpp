// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/BrowserPicker.h"
#include "app/DesktopShell.h"
#include "app/EndRequest.h"
#include "app/FileDialogBoxes.h"
#include "app/MainWindow.h"
#include "app/MessageBoxes.h"
#include "base/Version.h"
#include "requests/SystemRegistry.h"
#include "session/Session.h"
#include "session/Settings.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>

#include <algorithm>
#include <string_view>

namespace {

void describe(QCommandLineParser& parser)
{
    parser.setApplicationDescription(QStringLiteral("Searches a web site for files."));
    parser.addPositionalArgument(
        QStringLiteral("FILE.twk"), QStringLiteral("A search file to open."), QStringLiteral("[FILE.twk]"));
    parser.addHelpOption();
    parser.addVersionOption();
}

/// The search file on the command line; empty when there is none.
QString fileToOpen(const QApplication& application)
{
    QCommandLineParser parser;
    describe(parser);
    parser.process(application);
    return parser.positionalArguments().value(0);
}

/// Answers --help and --version, and then ends the program. These need no display, but QApplication does.
void answerWithoutDisplay(int argc, char* argv[])
{
    const bool asked = std::any_of(argv + 1, argv + argc, [](std::string_view argument) {
        return argument == "--help" || argument == "-h" || argument == "--version" || argument == "-v";
    });
    if (!asked)
        return;
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("tarnwick"));
    QCoreApplication::setApplicationVersion(version::details());
    QCommandLineParser parser;
    describe(parser);
    parser.parse(QCoreApplication::arguments());
    if (parser.isSet(QStringLiteral("version")))
        parser.showVersion();
    parser.showHelp();
}

} // namespace

int main(int argc, char* argv[])
{
    answerWithoutDisplay(argc, argv);
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Tarnwick"));
    QApplication::setApplicationVersion(version::numberAndCommit());
    // The name of the desktop entry, by which a desktop finds the icon of the window.
    QApplication::setDesktopFileName(QStringLiteral("org.tarnwick.Tarnwick"));
    QIcon icon;
    for (const int size : { 16, 32, 48, 256 })
        icon.addFile(QStringLiteral(":/icons/tarnwick_%1.png").arg(size), QSize(size, size));
    QApplication::setWindowIcon(icon);
    const QString fileName = fileToOpen(application);

    Session session;
    const settings::LoadResult loaded = settings::loadSettings(session, QApplication::applicationDirPath());
    MessageBoxes messages;
    FileDialogBoxes fileDialogs(session.language, messages);
    DesktopShell shell;
    BrowserPicker urlPicker(session.language, messages, shell, BrowserPicker::usualFolders());
    const SystemRegistry registry;
    MainWindow window(session, { session.language, messages, fileDialogs, shell, urlPicker, registry });
    window.begin(loaded, fileName);
    const EndRequest endRequest;
    QObject::connect(&endRequest, &EndRequest::received, &window, &MainWindow::saveBeforeEnd);
    QObject::connect(&endRequest, &EndRequest::received, &application, [] { QCoreApplication::exit(); });
    return QApplication::exec();
}
