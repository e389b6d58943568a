// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/LibraryTexts.h"
#include "app/MainMenus.h"
#include "app/ResultsArea.h"
#include "app/SideWindows.h"
#include "base/PacedUpdate.h"
#include "base/Seams.h"
#include "results/window/RowCommands.h"
#include "session/CurrentSearch.h"
#include "session/LanguageChoice.h"
#include "session/ListFiles.h"
#include "session/SearchFiles.h"
#include "session/SearchMessages.h"

#include <QMainWindow>

class StatusPanels;

namespace settings {
struct LoadResult;
}

/// The main window: menus, results and status bar, wired to the session.
class MainWindow final : public QMainWindow {
    Q_OBJECT

public:
    /// `session` must outlive the window.
    MainWindow(Session& session, const Seams& seams);
    ~MainWindow() override;

    /// Shows the window as it was when the program last ended. Then tells what could not be read of the settings, and
    /// opens a search file if one is named.
    void begin(const settings::LoadResult& loaded, const QString& fileName = {});
    /// Opens a search file, as the user's command does.
    void open(const QString& fileName);
    /// Saves the settings and all that is being written, without a question, before the system ends the program. A
    /// failure is not reported, since nobody could read it.
    void saveBeforeEnd();

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void wireSearch();
    void wireSearchMenu();
    void wireLists();
    void wireEditMenu();
    void wireViewMenu();
    void wireDownloads();
    void wireOtherMenus();
    void applyCaptions();

    void startSearch();
    void showOpened(const MimeTypeList& mimeTypes);
    void askForLanguageFile();
    void chooseUnit(const QAction& unit);
    void showHelp();
    void showAbout();
    void updateStatus();
    void updateTitle();
    void restoreState();
    void resumeLanguage();
    void rememberState();
    void saveSettings();

    Session& m_session;
    Seams m_seams;
    LibraryTexts m_libraryTexts;
    CurrentSearch m_search;
    SearchFiles m_files;
    SearchMessages m_searchMessages;
    ListFiles m_lists;
    LanguageChoice m_language;
    MainMenus m_menus;
    ResultsArea* m_results;
    StatusPanels* m_status;
    SideWindows m_sideWindows;
    RowCommands m_rowCommands;
    PacedUpdate m_statusUpdate;
    bool m_isSettled = false; ///< the settings are saved, or the user has read that they cannot be
};
