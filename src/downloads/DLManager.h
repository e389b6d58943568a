// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "downloads/DownloadModel.h"

#include <QMainWindow>
#include <QTimer>

class ColumnsTable;
class DownloadQueue;
class FileDialogs;
class LanguageTable;
class Messages;
class QAction;
class QLabel;
class Shell;

/// The download manager: the list of downloads with its commands and options. Closing it only hides it.
class DLManager final : public QMainWindow {
    Q_OBJECT

public:
    /// All of them must outlive the window.
    DLManager(DownloadQueue& queue, const LanguageTable& language, Messages& messages, FileDialogs& fileDialogs,
        Shell& shell);

    /// Shows the queue's settings, which others have changed.
    void showSettings();
    [[nodiscard]] ColumnsTable& list() { return *m_list; }

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void makeEditMenu();
    void makeOptionsMenu();
    QAction* addEntry(QMenu* menu, const char* name, const QKeySequence& key = {});
    /// An entry that switches a member of the settings.
    void addSwitch(QMenu* menu, const char* name, bool& setting);
    void applyCaptions();
    void showSummary();
    void removeSelected();
    void openSelected();
    void openTargetFolder();
    void askForMaximum();
    void takeMaximum(const QString& typed);
    void askForTarget();
    [[nodiscard]] QString text(const char* key) const;

    DownloadQueue& m_queue;
    const LanguageTable& m_language;
    Messages& m_messages;
    FileDialogs& m_fileDialogs;
    Shell& m_shell;
    DownloadModel m_model;
    ColumnsTable* m_list;
    QLabel* m_summary;
    /// The entries that switch a setting, with the setting.
    QList<QPair<QAction*, bool*>> m_switches;
    QTimer m_summaryUpdate;
};
