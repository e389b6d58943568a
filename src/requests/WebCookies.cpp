// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/WebCookies.h"

#include "base/FolderLock.h"
#include "base/folders.h"
#include "requests/CookieFile.h"
#include "requests/WebCookieFile.h"

#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <utility>

namespace {

using namespace std::chrono_literals;

/// How long changes are collected.
constexpr auto writeInterval = 1s;
/// When another program has the lock: how soon to try again, and how long before the changes are written without it.
constexpr auto retryInterval = 10ms;
constexpr std::chrono::milliseconds longestWait = 1s;
/// How long the end of the program and a deletion wait for the lock.
constexpr auto lastPatience = 2s;

} // namespace

WebCookies::WebCookies()
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &WebCookies::writeWaitingSoon);
}

WebCookies::~WebCookies()
{
    finish();
}

void WebCookies::setFolder(const QString& folder)
{
    finish();
    m_folder = allgemein::withTrailingSeparator(folder);
    m_fileTime = {};
    m_jar.setCookies({});
}

QString WebCookies::fileName() const
{
    return m_folder.isEmpty() ? QString() : m_folder + QLatin1String("cookies.txt");
}

QByteArray WebCookies::cookieLine(const QByteArray& url)
{
    refresh();
    return m_jar.line(QUrl::fromEncoded(url));
}

void WebCookies::take(const QByteArrayList& setCookieValues, const QByteArray& url)
{
    const QUrl source = QUrl::fromEncoded(url);
    for (const QByteArray& field : setCookieValues) {
        if (const auto cookie = WebCookieJar::fromField(field, source); cookie && !m_folder.isEmpty())
            change(*cookie);
    }
}

bool WebCookies::add(const QNetworkCookie& cookie)
{
    const bool hasExpired = !cookie.isSessionCookie() && cookie.expirationDate() <= QDateTime::currentDateTimeUtc();
    if (m_folder.isEmpty() || hasExpired || !WebCookieJar::isStorable(cookie))
        return false;
    change(cookie);
    return true;
}

void WebCookies::change(const QNetworkCookie& cookie)
{
    refresh();
    // Many servers set the same cookies with each answer.
    if (m_jar.allCookies().contains(cookie))
        return;
    m_jar.insertCookie(cookie);
    m_changes += cookie;
    if (m_changes.size() > WebCookieJar::most)
        finish();
    else if (!m_timer.isActive())
        m_timer.start(writeInterval);
}

void WebCookies::writeWaitingSoon()
{
    if (!m_sinceDue.isValid())
        m_sinceDue.start();
    const FolderLock lock(m_folder, 0ms);
    if (!lock.isBusy() || m_sinceDue.hasExpired(longestWait.count()))
        (void)write();
    else
        m_timer.start(retryInterval);
}

bool WebCookies::finish()
{
    if (m_changes.isEmpty())
        return true;
    const FolderLock lock(m_folder, lastPatience);
    return write();
}

bool WebCookies::write()
{
    m_timer.stop();
    m_sinceDue.invalidate();
    const auto changes = std::exchange(m_changes, {});
    const auto old = cookieFile::read(fileName());
    bool isWritten = false;
    if (old) {
        WebCookieFile file = WebCookieFile::parse(*old);
        m_jar.setCookies(file.cookies);
        for (const QNetworkCookie& cookie : changes)
            m_jar.insertCookie(cookie);
        file.cookies = m_jar.allCookies();
        isWritten = cookieFile::replace(fileName(), file.text());
    }
    const QFileInfo now(fileName());
    m_fileTime = now.lastModified();
    m_fileSize = now.size();
    if (!isWritten && !std::exchange(m_hasFailed, true))
        emit notStored();
    return isWritten;
}

bool WebCookies::clear()
{
    m_changes.clear();
    m_timer.stop();
    const FolderLock lock(m_folder, lastPatience);
    m_jar.setCookies({});
    m_fileTime = {};
    return !QFileInfo::exists(fileName()) || QFile::remove(fileName());
}

UnusableLines WebCookies::brokenLines() const
{
    return WebCookieFile::parse(cookieFile::read(fileName()).value_or(QByteArray())).broken;
}

void WebCookies::refresh()
{
    const QFileInfo now(fileName());
    const QDateTime time = now.lastModified();
    if (time == m_fileTime && (!time.isValid() || now.size() == m_fileSize))
        return;
    m_fileTime = time;
    m_fileSize = now.size();
    const auto content = cookieFile::read(fileName());
    if (!content)
        return;
    m_jar.setCookies(WebCookieFile::parse(*content).cookies);
    for (const QNetworkCookie& cookie : std::as_const(m_changes))
        m_jar.insertCookie(cookie);
}
