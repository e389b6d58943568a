// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/MainWindow.h"
#include "app/Session.h"
#include "app/Settings.h"
#include "support/ScriptedServer.h"
#include "support/TestSeams.h"
#include "support/Text.h"
#include "support/WindowDriver.h"

#include <QDialog>
#include <QDir>
#include <QLineEdit>
#include <QMainWindow>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

/// What the tests of the main window share: a scripted server and the window of a session, in a folder of their own and
/// new for each test. The window is driven as by a user, by the names of its controls.
class WindowFixture : public QObject, protected AnsweredSeams {
    Q_OBJECT

protected slots:
    void initTestCase();
    void init();
    void cleanup();

protected:
    /// A new session with the settings that are in the data folder, and its window.
    void start();
    /// Closes the window, which saves the settings.
    void quit();
    void beginSearch();
    void searchToEnd();

    template <typename Control> [[nodiscard]] Control& the(const char* name) const
    {
        return control<Control>(*m_window, name);
    }
    void click(const char* button) const { ::click(*m_window, button); }
    void choose(const char* entry) const { ::choose(*m_window, entry); }
    /// Closes a dialog by one of its buttons.
    void confirm(const char* dialog, const char* button = "b_ok") const { ::click(the<QDialog>(dialog), button); }

    [[nodiscard]] QTableView& details() const { return the<QTableView>("l_founds_details"); }
    [[nodiscard]] QByteArray cell(int row, int column) const;
    /// The window of the downloads; null while it has not been shown.
    [[nodiscard]] static QMainWindow* downloadManager();
    /// A part of the status line.
    [[nodiscard]] QByteArray panel(int number) const;
    [[nodiscard]] DownloadSettings& downloads() const { return m_session->downloads.settings(); }
    [[nodiscard]] QString file(const char* name) const { return m_folder->filePath(QString::fromLatin1(name)); }
    [[nodiscard]] QString settingsFile() const { return file("data/tarnwick.ini"); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<ScriptedServer> m_server;
    Settings::LoadResult m_loaded;
    std::unique_ptr<Session> m_session;
    std::unique_ptr<MainWindow> m_window;
};
