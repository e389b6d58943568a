// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/CurrentSearch.h"
#include "app/LanguageChoice.h"
#include "app/ListFiles.h"
#include "app/MainMenus.h"
#include "app/SearchFiles.h"
#include "app/Seams.h"
#include "app/SideWindows.h"
#include "base/PacedUpdate.h"
#include "results/FoundModel.h"
#include "results/HostTree.h"
#include "results/RowCommands.h"

#include <QMainWindow>

class FilterPane;
class FoundsView;
class HostTreeView;
class QSplitter;
class Session;
class StatusPanels;

/// The main window: the results as list and tree, the filter, the menus and the status bar, wired to the search.
class MainWindow final : public QMainWindow {
    Q_OBJECT

public:
    /// Both, and what the seams refer to, must outlive the window.
    MainWindow(Session& session, const Seams& seams);
    ~MainWindow() override;

    /// Opens a search file, as the user's command does.
    void open(const QString& fileName);
    /// Puts the windows in the state that the session holds: what it was when the program last ended.
    void restoreState();
    /// Reads the language file that was in use then. It may have something to say, so call it when the window is shown.
    void resumeLanguage();

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void layOut();
    void wireSearch();
    void wireViews();
    void wireSearchMenu();
    void wireLists();
    void wireEditMenu();
    void wireViewMenu();
    void wireDownloads();
    void wireOtherMenus();
    void applyCaptions();

    void startSearch();
    void showOpened(const MimeListe& mimeTypes);
    void askForLanguageFile();
    void rememberState();
    void saveSettings();
    void showTree(bool on);
    void filterChanged();
    void rebuildViews();
    void forgetViews();
    void chooseUnit(const QAction& unit);
    void showHelp();
    void showAbout();
    void updateStatus();
    void updateTitle();
    [[nodiscard]] QString emptyText(const SearchStatus& status) const;
    [[nodiscard]] QString text(const char* key) const;

    Session& m_session;
    Seams m_seams;
    CurrentSearch m_search;
    SearchFiles m_files;
    ListFiles m_lists;
    LanguageChoice m_language;
    MainMenus m_menus;
    FoundModel m_founds;
    HostTree m_hosts;
    HostTreeView* m_baum;
    FoundsView* m_list;
    FilterPane* m_filter;
    StatusPanels* m_status;
    QSplitter* m_splitter;
    SideWindows m_sideWindows;
    RowCommands m_rowCommands;
    PacedUpdate m_statusUpdate;
    bool m_isSettled = false; ///< the settings are saved, or it was told that they cannot be
};
