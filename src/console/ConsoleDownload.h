// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "console/ProgressLine.h"
#include "console/Terminal.h"
#include "downloads/DownloadSettings.h"
#include "http/WebRules.h"
#include "results/ResultFilter.h"
#include "session/Session.h"

#include <QFile>
#include <QHash>
#include <QObject>
#include <QString>
#include <QStringList>

struct DownloadEntry;

/// The arguments of `tarnwick-cli download`.
struct DownloadArguments {
    QStringList sources; ///< search files and URLs
    DownloadSettings settings;
    ResultFilter filter; ///< of the items of search files
    QByteArray referer; ///< empty to send the referring page of a search file's item
    bool followRelocation = false; ///< fetch the new URL of a relocated entry
    WebRules web;
    bool quiet = false;
};

/// Downloads from all sources and prints a line for each entry when it ends.
class ConsoleDownload final : public QObject {
    Q_OBJECT

public:
    /// Adds the sources to the download list. Throws UsageError for a search file that cannot be read.
    explicit ConsoleDownload(const DownloadArguments& arguments);

    /// Runs the program's event loop until every entry has ended, or the user interrupts it. Returns the exit status.
    [[nodiscard]] int run();

private:
    void addSource(const QString& source);
    void addItems(const QString& fileName);
    void interrupt();
    void onEnded(const DownloadEntry& entry);
    /// Whether the entry is queued again for its new address.
    [[nodiscard]] bool follows(const DownloadEntry& entry);
    void print(const DownloadEntry& entry);
    /// Says on standard error why an entry did not end as it should.
    void report(const DownloadEntry& entry) const;
    /// The bytes as they are for scripts; on a terminal without characters that it would act on.
    [[nodiscard]] QByteArray shown(const QByteArray& text) const;
    void showProgress();

    DownloadArguments m_arguments;
    Session m_session;
    DownloadQueue& m_queue;
    terminal::InterruptWatch m_interruptWatch;
    ProgressLine m_progress;
    QFile m_out;
    bool m_printsToTerminal;
    QHash<quint64, int> m_relocations; ///< how often an entry was relocated, by its id
    qint64 m_unfetchedHttps = 0; ///< URLs that need --modern
    bool m_hasFailed = false;
    bool m_interrupted = false;
};
