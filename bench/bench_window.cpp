// SPDX-License-Identifier: GPL-3.0-or-later
// How long does the event loop stand still while the window works, and how long does the work take? The main window is
// driven through its controls, off screen, with list and tree shown. For each piece of work the program prints the
// longest standstill and the whole time in milliseconds, separated by TAB.
//
//   bench_window search URL                    runs one search; the caller takes the time
//   bench_window lists FILE.twk URL FOLDER     opens the file, filters, saves and exports to the folder, then searches
//                                              URL, which drops the opened search
#include "Heartbeat.h"
#include "Shapes.h"
#include "app/MainWindow.h"
#include "results/window/FilterPane.h"
#include "session/Session.h"
#include "session/Settings.h"
#include "support/TestSeams.h"
#include "support/WindowDriver.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QDir>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>
#include <unistd.h>

namespace {

qint64 residentBytes()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    return file.open(QIODevice::ReadOnly) ? file.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE) : 0;
}

/// Ends the event loop that `measure` runs. QCoreApplication::quit would close the window, and nothing would be drawn.
void leave()
{
    QCoreApplication::exit();
}

class Driver : AnsweredSeams {
public:
    Driver()
        : m_loaded(settings::loadSettings(m_session, {}))
        , m_window(m_session, seams(m_session.language))
        , m_founds(*qobject_cast<FoundModel*>(control<QAbstractItemView>(m_window, "l_founds_details").model()))
    {
        m_messages.answer = true;
        m_session.searchOptions.maxDepth = false;
        m_session.downloads.settings().startImmediately = false;
        QObject::connect(&m_founds, &FoundModel::rebuilt, &m_window, [this] { m_rebuilt = true; });
        m_window.begin(m_loaded);
        m_window.resize(1000, 640);
    }

    void idle()
    {
        measure("nothing", [] { QTimer::singleShot(500, qApp, leave); });
    }

    void search(const QString& url)
    {
        m_rebuilt = false;
        choose(m_window, "m_searchNew");
        const auto& dialog = control<QDialog>(m_window, "dialog_getSearch");
        control<QLineEdit>(dialog, "startlink").setText(url);
        click(dialog, "b_ok");
        quitWhen([this] { return m_rebuilt && !m_session.search.isSearching(); });
    }

    void searchInPlace(const QString& url)
    {
        measure("clearing and search", [&] { search(url); });
    }

    void open(const QString& fileName)
    {
        const qint64 before = residentBytes();
        const auto& tree = control<QAbstractItemView>(m_window, "baum");
        measure("opening", [&] {
            m_window.open(fileName);
            quitWhen([&] { return m_rebuilt && tree.model()->hasChildren(tree.model()->index(0, 0)); });
        });
        qint64 urlBytes = 0;
        for (const FundKnoten* node = m_session.foundItems.getStart(); node; node = node->naechster())
            urlBytes += node->inhalt.adresse.size();
        const double own = static_cast<double>(residentBytes() - before - urlBytes);
        std::printf("bytes an item\t%.0f\n", own / m_session.foundItems.getAnzahl());
    }

    void filter()
    {
        setFilter(shapes::fiveTests());
        apply("apply, five tests");
        std::printf("rows shown\t%d\n", m_founds.rowCount());
        setFilter({});
        apply("apply, all shown again");
        apply("apply, no change");
    }

    void save(const QString& folder)
    {
        toFile("saving", "m_searchSaveAs", folder);
        once("select all", "m_selectAll");
        for (const char* entry : { "m_exportAsUrlList", "m_exportAsCsv" })
            toFile(entry, entry, folder);
    }

    void commands()
    {
        for (const char* entry : { "m_selectedMark", "m_selectedInvert", "m_markedSelect" })
            once(entry, entry);
        const auto copied =
            QObject::connect(QApplication::clipboard(), &QClipboard::dataChanged, qApp, leave, Qt::QueuedConnection);
        measure("copy", [&] { choose(m_window, "m_selectedToClipboard"); });
        QObject::disconnect(copied);
        measure("download", [&] {
            choose(m_window, "m_selectedDownload");
            quitWhen([this] { return m_session.downloads.count() >= m_founds.rowCount(); });
        });
        once("demark", "m_selectedDemark");
    }

private:
    void setFilter(const ResultFilter& filter)
    {
        m_session.filter = filter;
        m_window.findChild<FilterPane*>()->showFilter();
    }

    void apply(const char* what)
    {
        const auto rebuilt = QObject::connect(&m_founds, &FoundModel::rebuilt, qApp, leave, Qt::QueuedConnection);
        measure(what, [this] { click(m_window, "b_filterAkt"); });
        QObject::disconnect(rebuilt);
    }

    void toFile(const char* what, const char* entry, const QString& folder)
    {
        m_dialogs.choice = folder + u'/' + QLatin1String(entry);
        measure(what, [&] {
            choose(m_window, entry);
            quitWhen([this] { return QFile::exists(m_dialogs.choice); });
        });
        QFile::remove(m_dialogs.choice);
    }

    void once(const char* what, const char* entry)
    {
        measure(what, [&] {
            choose(m_window, entry);
            QTimer::singleShot(200, qApp, leave);
        });
    }

    template <typename Condition> void quitWhen(Condition condition)
    {
        m_poll.disconnect();
        QObject::connect(&m_poll, &QTimer::timeout, &m_window, [this, condition] {
            if (!condition())
                return;
            m_poll.stop();
            leave();
        });
        m_poll.start(5);
    }

    template <typename Begin> void measure(const char* what, Begin begin)
    {
        m_rebuilt = false;
        const Heartbeat heartbeat;
        QElapsedTimer timer;
        timer.start();
        begin();
        QCoreApplication::exec();
        if (!m_window.isVisible())
            qFatal("The window is closed: nothing is drawn any more.");
        const double total = static_cast<double>(timer.nsecsElapsed()) / 1e6;
        std::printf("%s\t%.2f\t%.2f\n", what, heartbeat.longestMilliseconds(), total);
        std::fflush(stdout);
    }

    Session m_session;
    settings::LoadResult m_loaded;
    MainWindow m_window;
    FoundModel& m_founds;
    QTimer m_poll;
    bool m_rebuilt = false;
};

} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    const QTemporaryDir data; // with no settings in it
    qputenv("TARNWICK_DATA", data.path().toLocal8Bit());
    Driver driver;
    if (arguments.size() == 3 && arguments[1] == QLatin1String("search")) {
        // No Heartbeat here: with its timer always due the views would be updated all the time.
        driver.search(arguments[2]);
        QCoreApplication::exec();
    } else if (arguments.size() == 5 && arguments[1] == QLatin1String("lists")) {
        driver.idle();
        driver.open(arguments[2]);
        driver.filter();
        driver.save(arguments[4]);
        driver.commands();
        driver.searchInPlace(arguments[3]);
    } else {
        return 1;
    }
    return 0;
}
