// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/Session.h"
#include "console/ProgressLine.h"
#include "console/SearchArguments.h"
#include "console/Terminal.h"

#include <QHash>
#include <QObject>
#include <QSet>

/// `tarnwick-cli search`: runs one search to its end or to the user's interruption, saves it, and prints what it found.
class SearchCommand final : public QObject {
    Q_OBJECT

public:
    explicit SearchCommand(const SearchArguments& arguments);

    /// Runs the program's event loop until the search is over. Returns the exit status.
    [[nodiscard]] int run();

private:
    void tellNotes() const;
    void interrupt();
    void onReport(FundKnoten* knoten, const FetchReport& report);
    void rememberUnanswered(const FundStück& item, const FetchReport& report);
    void showProgress(const FundKnoten* knoten);
    [[nodiscard]] bool save() const;
    [[nodiscard]] bool print() const;
    /// The HTTP status, or how the fetch went when there was no answer.
    [[nodiscard]] QString statusText(const FundStück& item) const;

    SearchArguments m_arguments;
    Session m_session;
    terminal::InterruptWatch m_interruptWatch;
    ProgressLine m_progress;
    bool m_interrupted = false;
    /// The states of the items that got no answer, for the table.
    QHash<const FundStück*, FetchReport> m_unanswered;
    QSet<QByteArray> m_details;
};
