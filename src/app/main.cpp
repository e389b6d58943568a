// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/BrowserPicker.h"
#include "app/DesktopShell.h"
#include "app/FileDialogBoxes.h"
#include "app/LibraryTexts.h"
#include "app/MainWindow.h"
#include "app/MessageBoxes.h"
#include "app/Session.h"
#include "app/Settings.h"
#include "app/SystemRegistry.h"
#include "base/allgemein.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>

namespace {

/// The file that the command line names; empty when it names none.
QString fileToOpen(const QApplication& application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Searches a web site for files."));
    parser.addPositionalArgument(
        QStringLiteral("FILE.twk"), QStringLiteral("A search file to open."), QStringLiteral("[FILE.twk]"));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.process(application);
    return parser.positionalArguments().value(0);
}

void createFolders(Session& session)
{
    const QString cookieFolder = Session::cookieFolder({});
    allgemein::createFolder(allgemein::dataFolder());
    allgemein::createFolder(cookieFolder);
    session.cookies.setCookieFolder(cookieFolder);
}

} // namespace

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Tarnwick"));
    QApplication::setApplicationVersion(QStringLiteral(TARNWICK_VERSION));
    QIcon icon;
    for (const int size : { 16, 32, 48, 256 })
        icon.addFile(QStringLiteral(":/icons/tarnwick_%1.png").arg(size), QSize(size, size));
    QApplication::setWindowIcon(icon);
    const QString fileName = fileToOpen(application);

    Session session;
    createFolders(session);
    const Settings::LoadResult settings = Settings::loadSettings(session, QApplication::applicationDirPath());
    const LibraryTexts libraryTexts(session.language);

    MessageBoxes messages;
    FileDialogBoxes fileDialogs;
    DesktopShell shell;
    BrowserPicker urlPicker(session.language, messages, BrowserPicker::usualFolders());
    const SystemRegistry registry;
    MainWindow window(session, { messages, fileDialogs, shell, urlPicker, registry });
    window.restoreState();
    window.show();
    window.resumeLanguage();
    if (const auto box = Settings::report(settings, session.language))
        messages.tell(*box);
    if (!fileName.isEmpty())
        window.open(fileName);
    return QApplication::exec();
}
