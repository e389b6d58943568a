// SPDX-License-Identifier: GPL-3.0-or-later
// How long does the event loop stand still while a search runs into the window, and while its filter is applied? The
// window is driven off screen, with list and tree shown; the loop alone, measured in the same run, tells what the
// machine itself takes.
#include "Heartbeat.h"
#include "app/MainWindow.h"
#include "app/Session.h"
#include "support/ScriptedServer.h"
#include "support/TestSeams.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>

namespace {

/// Links into many directories, a hundred files each. None of them is fetched: their port is closed.
QByteArray pageOf(int links)
{
    QByteArray page;
    for (int link = 0; link < links; ++link) {
        page += "<a href=\"http://127.0.0.1:1/section" + QByteArray::number(link / 10'000) + "/issue"
            + QByteArray::number(link / 100) + "/page" + QByteArray::number(link) + ".html\">";
    }
    return page;
}

void report(const char* what, const Heartbeat& heartbeat, qint64 milliseconds)
{
    std::printf("  %-34s longest standstill %6.1f ms, %6lld ms in all\n", what, heartbeat.longestMilliseconds(),
        static_cast<long long>(milliseconds));
    std::fflush(stdout);
}

class Driver {
public:
    explicit Driver(int items)
        : m_items(items)
        , m_window(m_session, { m_messages, m_dialogs, m_shell, m_picker, m_registry })
    {
        m_server.page("/", pageOf(items));
        m_window.resize(1000, 640);
        m_window.show();
    }

    void measure()
    {
        std::printf("%d items\n", m_items);
        waitFor("nothing", [] { QTimer::singleShot(500, qApp, &QCoreApplication::quit); });
        SearchRun& run = m_session.search;
        QObject::connect(&run, &SearchRun::finished, qApp, &QCoreApplication::quit, Qt::QueuedConnection);
        m_session.searchOptions.startUrl = m_server.origin();
        waitFor("a search, list and tree shown", [&] { run.starteSuche(m_session.searchOptions); });

        auto& model = *m_window.findChild<QAbstractItemView*>(QStringLiteral("l_founds_details"))->model();
        auto& founds = *qobject_cast<FoundModel*>(&model);
        QObject::connect(&founds, &FoundModel::rebuilt, qApp, &QCoreApplication::quit, Qt::QueuedConnection);
        const auto apply = [&] {
            founds.rebuild();
        };
        m_session.filter.urlSwitch = FilterSwitch::Whitelist;
        m_session.filter.filterTexte = { "9" };
        waitFor("a filter that hides half", apply);
        m_session.filter.urlSwitch = FilterSwitch::Off;
        waitFor("a filter that shows all again", apply);
        waitFor("all shown already", apply);
        measureCommands();
    }

    void showAs(const char* mode) { m_window.findChild<QAction*>(QString::fromLatin1(mode))->trigger(); }

private:
    /// The commands on rows, with all of them selected. Some go on between events: they are waited for.
    void measureCommands()
    {
        const auto command = [this](const char* entry) {
            m_window.findChild<QAction*>(QLatin1String(entry))->trigger();
        };
        const auto once = [&](const char* entry) {
            waitFor(entry, [&] {
                command(entry);
                QTimer::singleShot(100, qApp, &QCoreApplication::quit);
            });
        };
        for (const char* entry : { "m_selectAll", "m_selectedMark", "m_selectedInvert", "m_markedSelect" })
            once(entry);
        QObject::connect(
            QApplication::clipboard(), &QClipboard::dataChanged, qApp, &QCoreApplication::quit, Qt::QueuedConnection);
        waitFor("m_selectedToClipboard", [&] { command("m_selectedToClipboard"); });
        QTemporaryDir folder;
        for (const char* entry : { "m_exportAsUrlList", "m_exportAsCsv" }) {
            m_dialogs.choice = folder.filePath(QLatin1String(entry));
            waitFor(entry, [&] {
                command(entry);
                quitWhen([this] { return QFile::exists(m_dialogs.choice); });
            });
        }
        m_session.downloads.settings().startImmediately = false;
        waitFor("m_selectedDownload", [&] {
            command("m_selectedDownload");
            quitWhen([this] { return m_session.downloads.count() >= m_items; });
        });
        once("m_selectedDemark");
    }

    template <typename Condition> void quitWhen(Condition condition)
    {
        QObject::disconnect(m_polled);
        m_polled = QObject::connect(&m_poll, &QTimer::timeout, qApp, [this, condition] {
            if (condition()) {
                m_poll.stop();
                QCoreApplication::quit();
            }
        });
        m_poll.start(20);
    }

    template <typename Begin> void waitFor(const char* what, Begin begin)
    {
        const Heartbeat heartbeat;
        QElapsedTimer timer;
        timer.start();
        begin();
        QCoreApplication::exec();
        const qint64 elapsed = timer.elapsed();
        report(what, heartbeat, elapsed);
    }

    int m_items;
    ScriptedServer m_server;
    Session m_session;
    AnsweredMessages m_messages;
    AnsweredFileDialogs m_dialogs;
    RecordingShell m_shell;
    AnsweredPicker m_picker;
    FilledRegistry m_registry;
    MainWindow m_window;
    QTimer m_poll;
    QMetaObject::Connection m_polled;
};

} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    for (const int items : { 100'000, 1'000'000 }) {
        Driver driver(items);
        if (argc > 1)
            driver.showAs(argv[1]);
        driver.measure();
    }
    return 0;
}
