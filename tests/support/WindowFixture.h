// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/MainWindow.h"
#include "session/Session.h"
#include "session/Settings.h"
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

/// What the tests of the main window share: a scripted server and the window of a session with a data folder, all new
/// for each test. Tests drive the window by the names of its controls.
class WindowFixture : public QObject, protected AnsweredSeams {
    Q_OBJECT

protected slots:
    void initTestCase();
    void init();
    void cleanup();

protected:
    /// Starts the program anew with the settings of the data folder.
    void start();
    /// Closes the window, which saves the settings.
    void quit();
    /// Scripts a site of six items: two pages, a picture, a document, a relocation and a URL of another protocol.
    void serveSite();
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
    /// The rows' file names with commas between them.
    [[nodiscard]] QByteArray shownNames() const;
    /// The download manager; null until it was shown.
    [[nodiscard]] static QMainWindow* downloadManager();
    /// The text of a panel of the status bar, from 1.
    [[nodiscard]] QByteArray panel(int number) const;
    [[nodiscard]] DownloadSettings& downloads() const { return m_session->downloads.settings(); }
    [[nodiscard]] QString file(const char* name) const { return m_folder->filePath(QString::fromLatin1(name)); }
    [[nodiscard]] QString settingsFile() const { return file("data/tarnwick.ini"); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<ScriptedServer> m_server;
    std::unique_ptr<Session> m_session;
    std::unique_ptr<MainWindow> m_window;
};
