// SPDX-License-Identifier: GPL-3.0-or-later
// How long does it take from the start of the program to a window that can be used, and which step takes how much of
// it? Beside it, a program of the same library that shows an empty main window. Both are run by turns, off screen.
#include "app/BrowserPicker.h"
#include "app/DesktopShell.h"
#include "app/FileDialogBoxes.h"
#include "app/LibraryTexts.h"
#include "app/MainWindow.h"
#include "app/MessageBoxes.h"
#include "app/Session.h"
#include "app/Settings.h"
#include "app/SystemRegistry.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMap>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>

namespace {

constexpr int turns = 15;

const QByteArray whole = "in all, with the process";

/// Prints the microseconds since the last step.
class Steps {
public:
    Steps() { m_timer.start(); }
    void end(const char* step)
    {
        std::printf("%s\t%lld\n", step, static_cast<long long>(m_timer.nsecsElapsed() / 1000));
        m_timer.restart();
    }

private:
    QElapsedTimer m_timer;
};

/// Shows a window and waits until it is drawn and nothing is left to do.
void showToTheEnd(QWidget& window)
{
    window.show();
    QMetaObject::invokeMethod(&window, &QCoreApplication::quit, Qt::QueuedConnection);
    QCoreApplication::exec();
    window.repaint();
}

int startEmpty(int argc, char* argv[])
{
    Steps steps;
    const QApplication application(argc, argv);
    steps.end("the library");
    QMainWindow window;
    window.resize(1000, 640);
    showToTheEnd(window);
    steps.end("show and draw");
    return 0;
}

int startProgram(int argc, char* argv[])
{
    Steps steps;
    const QApplication application(argc, argv);
    steps.end("the library");
    Session session;
    session.cookies.setCookieFolder(Session::cookieFolder({}));
    const Settings::LoadResult settings = Settings::loadSettings(session, QApplication::applicationDirPath());
    steps.end("settings and languages");
    const LibraryTexts libraryTexts(session.language);
    MessageBoxes messages;
    FileDialogBoxes fileDialogs;
    DesktopShell shell;
    BrowserPicker picker(session.language, messages, BrowserPicker::usualFolders());
    const SystemRegistry registry;
    steps.end("the library's texts");
    MainWindow window(session, { messages, fileDialogs, shell, picker, registry });
    steps.end("windows and dialogs");
    window.restoreState();
    showToTheEnd(window);
    steps.end("show and draw");
    return settings.failure.isEmpty() ? 0 : 1;
}

using Times = QMap<QByteArray, QList<qint64>>;

/// Runs this program as one of the two and adds its times, and the whole of it, to `times`.
void runOnce(const QString& what, Times& times)
{
    QProcess process;
    QElapsedTimer timer;
    timer.start();
    process.start(QCoreApplication::applicationFilePath(), { what });
    process.waitForFinished();
    times[whole] += timer.nsecsElapsed() / 1000;
    for (const QByteArray& line : process.readAllStandardOutput().split('\n')) {
        if (const qsizetype tab = line.indexOf('\t'); tab >= 0)
            times[line.first(tab)] += line.sliced(tab + 1).toLongLong();
    }
}

double median(QList<qint64> times)
{
    std::sort(times.begin(), times.end());
    return static_cast<double>(times[times.size() / 2]) / 1000;
}

void print(const char* what, const Times& times)
{
    std::printf("%s\n", what);
    for (auto time = times.begin(); time != times.end(); ++time)
        std::printf("  %-40s %7.1f ms\n", time.key().constData(), median(time.value()));
}

int compare(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir home;
    qputenv("TARNWICK_DATA", home.path().toLocal8Bit());
    Times program;
    Times empty;
    for (int turn = 0; turn < turns; ++turn) {
        runOnce(QStringLiteral("program"), program);
        runOnce(QStringLiteral("empty"), empty);
    }
    print("tarnwick", program);
    print("an empty main window", empty);
    std::printf("ratio %.2f\n", median(program[whole]) / median(empty[whole]));
    return 0;
}

} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (argc < 2)
        return compare(argc, argv);
    return QByteArray(argv[1]) == "empty" ? startEmpty(argc, argv) : startProgram(argc, argv);
}
