// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/DownloadCommand.h"

#include "app/Session.h"
#include "base/allgemein.h"
#include "console/CommandLine.h"
#include "console/PrintOptions.h"
#include "console/ProgressLine.h"
#include "console/Terminal.h"
#include "crawl/url.h"
#include "downloads/DownloadQueue.h"
#include "downloads/DownloadText.h"
#include "results/SearchFileReader.h"
#include "results/twk.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <cstdlib>
#include <limits>

namespace {

namespace option {
const QString dirByUrl = QStringLiteral("dir-by-url");
const QString extByMime = QStringLiteral("ext-by-mime");
const QString renameForMs = QStringLiteral("rename-for-ms");
const QString overwrite = QStringLiteral("overwrite");
const QString parallel = QStringLiteral("parallel");
const QString followRelocation = QStringLiteral("follow-relocation");
const QString referer = QStringLiteral("referer");
const QString quiet = QStringLiteral("quiet");
} // namespace option

/// A relocated entry is followed this often, then it is given up.
constexpr int mostRelocations = 20;

void describe(CommandParser& parser)
{
    parser.addSwitch({ option::dirByUrl }, QStringLiteral("Make folders by host, port and path of the URL."));
    parser.addSwitch({ option::extByMime }, QStringLiteral("Add the extension of the MIME type to file names."));
    parser.addSwitch({ option::renameForMs }, QStringLiteral("Percent-encode what Windows does not take in names."));
    parser.addSwitch({ option::overwrite }, QStringLiteral("Replace files that exist."));
    parser.addValue({ QStringLiteral("p"), option::parallel },
        QStringLiteral("How many downloads run at once, 1 to 10. Default: 3."), QStringLiteral("N"));
    parser.addSwitch({ option::followRelocation }, QStringLiteral("Fetch the new URL of what has moved."));
    parser.addValue({ option::referer },
        QStringLiteral("The referring URL sent. Default: that of a search file's item."), QStringLiteral("URL"));
    parser.addSwitch({ QStringLiteral("q"), option::quiet }, QStringLiteral("Show no progress."));
    PrintOptions::addFilterTo(parser);
}

DownloadSettings settingsFrom(const CommandParser& parser)
{
    DownloadSettings settings;
    settings.target =
        allgemein::withTrailingSeparator(QDir::toNativeSeparators(QDir(parser.argument()).absolutePath()));
    settings.naming = { parser.isSet(option::dirByUrl), parser.isSet(option::extByMime),
        parser.isSet(option::renameForMs) };
    settings.overwrite = parser.isSet(option::overwrite);
    settings.startImmediately = true;
    settings.active = false; // nothing starts before every source was read
    if (parser.isSet(option::parallel))
        settings.maxDL = parser.wholeNumber(option::parallel);
    if (settings.maxDL < 1 || settings.maxDL > DownloadSettings::mostSlots)
        throw UsageError { QStringLiteral("--parallel needs a number from 1 to %1").arg(DownloadSettings::mostSlots) };
    return settings;
}

/// Whether a source names a search file; anything else is a URL.
bool isSearchFile(const QString& source)
{
    return !source.contains(QLatin1String("://"))
        && (source.endsWith(QLatin1String(".twk"), Qt::CaseInsensitive) || QFileInfo(source).isFile());
}

class DownloadRun : public QObject {
public:
    explicit DownloadRun(const CommandParser& parser)
        : m_queue(m_session.requestProfile)
        , m_follows(parser.isSet(option::followRelocation))
        , m_progress(!parser.isSet(option::quiet) && terminal::isTerminal(stderr))
    {
        m_session.requestPrefs.userAgent = RequestPrefs::readyUserAgents().constFirst();
        m_session.cookies.setCookieFolder(Session::cookieFolder({}));
        m_queue.settings() = settingsFrom(parser);
        if (!m_out.open(stdout, QIODevice::WriteOnly))
            throw UsageError { QStringLiteral("standard output: ") + m_out.errorString() };
        connect(&m_queue, &DownloadQueue::changed, this, [this] { showProgress(); });
        connect(&m_queue, &DownloadQueue::ended, this, &DownloadRun::onEnded);
        connect(&m_queue, &DownloadQueue::idle, qApp, &QCoreApplication::quit, Qt::QueuedConnection);
        connect(&m_interruptWatch, &terminal::InterruptWatch::interrupted, this, [this] {
            m_interrupted = true;
            QCoreApplication::quit();
        });
    }

    /// Throws UsageError for a search file that cannot be read.
    void addSource(const QString& source, const ResultFilter& filter, const QByteArray& referer)
    {
        if (!isSearchFile(source)) {
            m_queue.addDL(url::withProtocol(allgemein::toSystem(source)), -1, referer);
            return;
        }
        StoredSearch search;
        const SearchFile::LoadResult result = SearchFile::load(source, search);
        const QString error = source + QLatin1String(": ") + twk::errorText(result, m_session.language);
        if (result.error == SearchFile::LoadError::Truncated) {
            complain(error);
            m_failed = true;
        } else if (result.error != SearchFile::LoadError::None) {
            throw UsageError { error };
        }
        complainOfSkippedLines(source, result, m_session.language);
        for (const FundKnoten* knoten = search.list.getStart(); knoten; knoten = knoten->naechster) {
            const FundStück& item = knoten->inhalt;
            if (filter.shows(item))
                m_queue.addDL(item.adresse, item.groesse, referer.isEmpty() ? item.referer : referer);
        }
    }

    [[nodiscard]] int run()
    {
        m_queue.settings().active = true;
        m_queue.startWaiting();
        // It may be idle for a moment, before a relocated entry is queued again.
        while (!m_interrupted && m_queue.runningCount() + m_queue.waitingCount() > 0)
            QCoreApplication::exec();
        m_progress.clear();
        const int status = m_interrupted ? Interrupted : m_failed ? PartlyFailed : Done;
        // An ordinary end would wait for name servers that are still being asked.
        if (m_interrupted)
            std::_Exit(status);
        return status;
    }

private:
    void onEnded(const DownloadEntry& entry)
    {
        if (m_follows && entry.status == DownloadStatus::Relocated && ++m_relocations[entry.id] <= mostRelocations) {
            // Once the slot that tells of it is free again.
            QMetaObject::invokeMethod(
                this,
                [this, id = entry.id] {
                    const int row = m_queue.rowOf(id);
                    m_queue.queue({ { row, row } });
                },
                Qt::QueuedConnection);
            return;
        }
        m_progress.clear();
        m_failed = m_failed || entry.tag != DownloadTag::Complete;
        const QByteArray target = entry.target.isEmpty() ? QByteArrayLiteral("-") : allgemein::toSystem(entry.target);
        if (m_out.write(letterOf(entry.tag) + '\t' + shown(target) + '\t' + shown(entry.url) + '\n') < 0
            || !m_out.flush())
            m_failed = true;
    }

    /// Exact for scripts; without anything that a terminal would act on for people.
    [[nodiscard]] QByteArray shown(const QByteArray& text) const
    {
        return m_printsToTerminal ? allgemein::toSystem(terminal::printable(allgemein::fromSystem(text))) : text;
    }

    void showProgress()
    {
        if (!m_progress.isDue())
            return;
        QStringList lines;
        for (const DownloadEntry* const entry : m_queue.running()) {
            lines += QStringLiteral("%1  %2  %3")
                         .arg(downloadText::progress(*entry, true), 4)
                         .arg(downloadText::fileName(*entry), downloadText::status(*entry, m_session.language));
        }
        m_progress.show(lines);
    }

    Session m_session;
    DownloadQueue m_queue;
    terminal::InterruptWatch m_interruptWatch;
    bool m_follows;
    ProgressLine m_progress;
    QFile m_out;
    const bool m_printsToTerminal = terminal::isTerminal(stdout);
    QHash<quint64, int> m_relocations;
    bool m_failed = false;
    bool m_interrupted = false;
};

} // namespace

int runDownloadCommand(const QStringList& arguments)
{
    CommandParser parser(QStringLiteral("download"),
        QStringLiteral(
            "Downloads URLs, or the items of search files, into a folder. Prints a line for each at its end: "
            "the tag (C complete, S with a warning, F failed), the file, and the URL, separated by TAB."),
        QStringLiteral("download pictures example.twk --mime image/png --dir-by-url"),
        QStringLiteral("TARGET_DIR SOURCE..."), QStringLiteral("The folder, and the URLs and search files."),
        { 2, std::numeric_limits<qsizetype>::max() });
    describe(parser);
    if (!parser.parse(arguments))
        return Done;
    const ResultFilter filter = PrintOptions::filterFrom(parser);
    DownloadRun run(parser);
    for (const QString& source : parser.arguments().sliced(1))
        run.addSource(source, filter, allgemein::toSystem(parser.value(option::referer)));
    return run.run();
}
