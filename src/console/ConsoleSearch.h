// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "console/ItemPrinter.h"
#include "console/ProgressLine.h"
#include "console/Terminal.h"
#include "crawl/SearchOptions.h"
#include "requests/RequestPrefs.h"
#include "results/ResultFilter.h"
#include "session/Session.h"

#include <QObject>
#include <QString>

#include <chrono>

/// The arguments of `tarnwick-cli search`.
struct SearchArguments {
    SearchOptions options;
    bool unlimited = false; ///< neither a depth nor sub-URLs bound the search
    QList<QPair<QString, QByteArray>> completedSubUrls; ///< those that are not as they were typed, both ways
    RequestPrefs prefs;
    bool followRelocation = true;
    std::chrono::seconds timeLimit { 0 }; ///< 0 for none
    SearchLimits limits;
    QString cookieFolder; ///< empty for the user's own
    QString saveTo; ///< empty when nothing is saved
    ItemFormat format = ItemFormat::Tsv;
    ResultFilter filter; ///< of the items that are printed
    bool quiet = false;
    bool verbose = false; ///< say on standard error why items got no answer
};

/// Runs one search to its end, or until the user interrupts it, then saves and prints its items.
class ConsoleSearch final : public QObject {
    Q_OBJECT

public:
    explicit ConsoleSearch(const SearchArguments& arguments);

    /// Runs the program's event loop until the search is over. Returns the exit status.
    [[nodiscard]] int run();

private:
    void tellNotes() const;
    /// Ends the search before all is fetched, and the event loop.
    void endEarly();
    void onReport(FundKnoten* node, const FetchReport& report);
    void showProgress(const FundKnoten* node);
    [[nodiscard]] bool save() const;
    [[nodiscard]] bool print() const;

    SearchArguments m_arguments;
    Session m_session;
    terminal::InterruptWatch m_interruptWatch;
    ProgressLine m_progress;
    bool m_interrupted = false;
    bool m_hasReachedLimit = false;
};
