// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QKeySequence>

#include <array>

class QAction;
class QActionGroup;
class QMainWindow;
class QMenu;

/// The menus of the main window. The object name of an entry is the name of its member; the language table has its
/// caption under that name. The window's menu bar owns all entries.
struct MainMenus {
    explicit MainMenus(QMainWindow& window);

    QAction* m_searchNew = nullptr;
    QAction* m_searchContinue = nullptr;
    QAction* m_searchStop = nullptr;
    QAction* m_searchOpen = nullptr;
    QAction* m_searchSave = nullptr;
    QAction* m_searchSaveAs = nullptr;
    QAction* m_importUrlList = nullptr;
    QAction* m_importCsv = nullptr;
    QAction* m_exportAsUrlList = nullptr;
    QAction* m_exportAsCsv = nullptr;
    QAction* m_addNumberedDL = nullptr;
    QAction* m_quit = nullptr;

    QAction* m_selectedOpen = nullptr;
    QAction* m_selectedOpenBy = nullptr;
    QAction* m_selectedDownload = nullptr;
    QAction* m_selectedToClipboard = nullptr;
    QAction* m_selectAll = nullptr;
    QAction* m_selectedMark = nullptr;
    QAction* m_selectedDemark = nullptr;
    QAction* m_selectedInvert = nullptr;
    QAction* m_markedOpen = nullptr;
    QAction* m_markedOpenBy = nullptr;
    QAction* m_markedDownload = nullptr;
    QAction* m_markedToClipboard = nullptr;
    QAction* m_markedSelect = nullptr;

    QAction* m_showFilter = nullptr;
    QAction* m_showTree = nullptr;
    QActionGroup* listModes = nullptr; ///< `m_listMode`, with `FoundsMode` for data
    QActionGroup* units = nullptr; ///< `m_einheit`, with the unit in bytes for data
    QActionGroup* languages = nullptr; ///< `m_lang`, with the index of the built-in language for data
    QAction* m_externLang = nullptr;
    QAction* m_showDlm = nullptr;

    QAction* m_requests = nullptr;
    QAction* m_resolve3xx = nullptr;
    QAction* m_filterAutoApply = nullptr;
    QAction* m_autoOpenDLM = nullptr;

    QAction* m_goHelpfile = nullptr;
    QAction* m_goWebsite = nullptr;
    QAction* m_goUpdates = nullptr;
    QAction* m_about = nullptr;

    QMenu* m_edit = nullptr;

private:
    void makeSearchMenu(QMenu* menu);
    void makeEditMenu(QMenu* menu);
    void makeViewMenu(QMenu* menu);
    void makeOptionsMenu(QMenu* menu);
    void makeHelpMenu(QMenu* menu);
};
