// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Seams.h"
#include "downloads/window/DownloadModel.h"

#include <QMainWindow>
#include <QTimer>

class ColumnsTable;
class DownloadQueue;
class QAction;
class QLabel;

/// The window of the download manager: the list of downloads, its commands and options. Closing it only hides it.
class DLManager final : public QMainWindow {
    Q_OBJECT

public:
    /// `queue` must outlive the window.
    DLManager(DownloadQueue& queue, const Seams& seams);

    /// Updates the menus after others have changed the queue's settings.
    void showSettings();
    [[nodiscard]] ColumnsTable& list() { return *m_list; }

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void makeEditMenu();
    void makeOptionsMenu();
    QAction* addEntry(QMenu* menu, const char* name, const QKeySequence& key = {});
    /// Adds a menu entry that switches a member of the settings.
    void addSwitch(QMenu* menu, const char* name, bool& setting);
    void applyCaptions();
    void showSummary();
    void removeSelected();
    void openSelected();
    void reportUnopened(const QStringList& files);
    void openTargetFolder();
    void askForMaximum();
    void takeMaximum(const QString& typed);
    void askForTarget();

    DownloadQueue& m_queue;
    Seams m_seams;
    DownloadModel m_model;
    ColumnsTable* m_list;
    QLabel* m_summary;
    /// The menu entries that switch a setting, each with its setting.
    QList<QPair<QAction*, bool*>> m_switches;
    QTimer m_summaryUpdate;
};
