// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Seams.h"

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

/// The windows beside the main one. Each is made when it is first shown, since most sessions need few of them.
class SideWindows final : public QObject {
    Q_OBJECT

public:
    /// `session` and `main` must outlive it. The dialogs belong to `main`.
    SideWindows(Session& session, const Seams& seams, QWidget& main);
    ~SideWindows() override;

    void showNewSearch();
    void showNumbered();
    void showRequests();
    /// `urls` is called when the user has chosen a program, and gives the URLs to start it with.
    void showOpenBy(std::function<QList<QByteArray>()> urls);
    void showDownloads();
    /// As above, unless the user has switched that off for added downloads.
    void showDownloadsIfWanted();

    /// Shows the session's search options and languages anew. Call it when others have changed them.
    void showOptions();
    /// Puts the state of the windows into the session.
    void rememberState() const;

signals:
    /// The user has confirmed the session's search options for a new search.
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
