// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/Seams.h"

#include <QByteArray>
#include <QList>
#include <QObject>

#include <functional>
#include <memory>

class DLManager;
class QWidget;
class Session;
class dialog_getSearch;
class dialog_openBy;
class dialog_requests;
class getDLStack;

/// The windows beside the main one. Each is made when it is first shown, since most starts of the program end without
/// most of them.
class SideWindows final : public QObject {
    Q_OBJECT

public:
    /// All of them, and what the seams refer to, must outlive it. The dialogs belong to `main`.
    SideWindows(Session& session, const Seams& seams, QWidget& main);
    ~SideWindows() override;

    void showNewSearch();
    void showNumbered();
    void showRequests();
    /// `urls` gives those that a program is to be started on when the user has chosen it.
    void showOpenBy(std::function<QList<QByteArray>()> urls);
    void showDownloads();
    /// The same if the download manager is to open by itself.
    void showDownloadsIfWanted();

    /// Has the windows show the session's search options and languages, which others have changed.
    void showOptions();
    /// Puts the state of the windows into the session.
    void rememberState() const;

signals:
    /// The session's search options are those of a new search.
    void searchConfirmed();

private:
    [[nodiscard]] DLManager& downloads();

    Session& m_session;
    Seams m_seams;
    QWidget& m_main;
    dialog_getSearch* m_newSearch = nullptr;
    getDLStack* m_numbered = nullptr;
    dialog_requests* m_requests = nullptr;
    dialog_openBy* m_openBy = nullptr;
    std::unique_ptr<DLManager> m_downloads;
};
