// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/WindowFixture.h"

#include "results/ResultColumns.h"

#include <QApplication>
#include <QFont>
#include <QLabel>

void WindowFixture::initTestCase()
{
    QGuiApplication::setApplicationName(QStringLiteral("Tarnwick"));
    // A small font, so that every window fits the off-screen platform's screen whatever fonts the system has.
    QFont small;
    small.setPixelSize(6);
    QApplication::setFont(small);
}

void WindowFixture::init()
{
    resetSeams();
    m_server = std::make_unique<ScriptedServer>();
    m_folder = std::make_unique<QTemporaryDir>();
    qputenv("TARNWICK_DATA", file("data").toLocal8Bit());
    QVERIFY(QDir().mkpath(file("data")));
    QVERIFY(writeFile(file("default_lang.ini"), "0")); // whatever language the system has
}

void WindowFixture::cleanup()
{
    m_window.reset();
    m_session.reset();
}

void WindowFixture::start()
{
    cleanup();
    m_session = std::make_unique<Session>();
    const settings::LoadResult loaded = settings::loadSettings(*m_session, m_folder->path());
    m_window = std::make_unique<MainWindow>(*m_session, seams(m_session->language));
    m_window->begin(loaded);
}

void WindowFixture::quit()
{
    m_window->close();
    cleanup();
}

void WindowFixture::serveSite()
{
    m_server->page("/",
        "<a href='a/one.html'><img src='a/two.png'><a href='b/three.pdf'><a href='old'>"
        "<a href='https://h/'>");
    m_server->script("/a/one.html", { { okHeader("text/html; x"), "<a href='/b/c/four.html'>" } });
    m_server->script(
        "/a/two.png", { { "HTTP/1.1 200 OK\r\nContent-Type: image/png\r\nContent-Length: 2048\r\n\r\n" } });
    m_server->script("/b/three.pdf",
        { { "HTTP/1.1 200 OK\r\nContent-Type: application/pdf\r\nContent-Length: 5000000000\r\n\r\n" } });
    m_server->relocation("/old", "/a/one.html");
}

void WindowFixture::beginSearch()
{
    choose("m_searchNew");
    the<QLineEdit>("startlink").setText(QString::fromLatin1(m_server->origin()));
    confirm("dialog_getSearch");
}

void WindowFixture::searchToEnd()
{
    beginSearch();
    QTRY_COMPARE(m_session->search.isSearching(), false);
}

QByteArray WindowFixture::cell(int row, int column) const
{
    return details().model()->index(row, column).data().toByteArray();
}

QByteArray WindowFixture::shownNames() const
{
    QByteArrayList names;
    for (int row = 0; row < details().model()->rowCount(); ++row)
        names += cell(row, ResultColumn::FileName);
    return names.join(',');
}

QMainWindow* WindowFixture::downloadManager()
{
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->objectName() == QLatin1String("DLManager"))
            return qobject_cast<QMainWindow*>(window);
    }
    return nullptr;
}

QByteArray WindowFixture::panel(int number) const
{
    return the<QLabel>(QByteArray("panel_" + QByteArray::number(number)).constData()).text().toUtf8();
}
