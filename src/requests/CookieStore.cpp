// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/CookieStore.h"

#include "base/FolderLock.h"
#include "base/Platform.h"
#include "base/allgemein.h"
#include "base/folders.h"
#include "http/url.h"
#include "requests/SetCookieValue.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <limits>
#include <utility>

namespace {

using namespace std::chrono_literals;

/// In bytes. No system allows a longer one.
constexpr qsizetype longestFileName = 255;
/// Other programs hold the lock for less than a millisecond, unless the machine is overloaded.
constexpr auto retryInterval = 10ms;
/// How long cookies of servers wait for the lock before they are written without it: another program may hang.
constexpr std::chrono::milliseconds longestWait = 1s;
/// How long an import waits for the lock at each host, and the end of the program once.
constexpr auto patience = 100ms;
constexpr auto lastPatience = 2s;

/// The cookies in the values of Set-Cookie fields. Values that cannot be parsed or are too long are left out.
QList<Cookie> cookiesFrom(const QByteArrayList& setCookieValues)
{
    QList<Cookie> cookies;
    for (const QByteArray& field : setCookieValues) {
        const auto path = setCookieValue::cookiePath(field);
        const auto name = setCookieValue::cookieName(field);
        const auto value = setCookieValue::cookieValue(field);
        if (path && name && value && path->size() + name->size() + value->size() <= CookieStore::longest)
            cookies += { *path, *name, *value };
    }
    return cookies;
}

} // namespace

CookieStore::CookieStore()
{
    m_retry.setSingleShot(true);
    m_retry.setInterval(retryInterval);
    connect(&m_retry, &QTimer::timeout, this, &CookieStore::writeWaitingSoon);
    connect(&m_web, &WebCookies::notStored, this, &CookieStore::notStored);
}

CookieStore::~CookieStore()
{
    finish();
}

void CookieStore::setCookieFolder(const QString& folder)
{
    m_folder = allgemein::withTrailingSeparator(folder);
    const bool isNew = !QFileInfo::exists(m_folder);
    allgemein::createFolder(m_folder);
    // The names of the files tell which hosts were visited. A folder of the user's own choice is left as it is.
    const QString programFolder = allgemein::dataFolder();
    if (isNew || (m_folder.startsWith(programFolder) && m_folder != programFolder))
        platform::keepFromOthers(m_folder);
    m_web.setFolder(m_folder);
}

void CookieStore::takeSetCookies(const QByteArrayList& setCookieValues, const QByteArray& host)
{
    QList<Cookie> cookies = cookiesFrom(setCookieValues);
    cookies.removeIf([&](const Cookie& cookie) { return !isStorable(host, cookie); });
    if (cookies.isEmpty())
        return;
    if (m_waiting.isEmpty())
        m_sinceWaiting.start();
    m_waiting[host] += cookies;
    writeWaitingSoon();
}

void CookieStore::writeWaitingSoon()
{
    const FolderLock lock(m_folder, 0ms);
    if (!lock.isBusy() || m_sinceWaiting.hasExpired(longestWait.count()))
        writeWaiting();
    else
        m_retry.start();
}

void CookieStore::finish()
{
    m_web.finish();
    if (m_waiting.isEmpty())
        return;
    const FolderLock lock(m_folder, lastPatience);
    writeWaiting();
}

void CookieStore::writeWaiting()
{
    const auto waiting = std::exchange(m_waiting, {});
    bool areWritten = true;
    for (auto host = waiting.cbegin(); host != waiting.cend(); ++host)
        areWritten = write(host.key(), host.value(), mostOfAHost) && areWritten;
    if (!areWritten && !std::exchange(m_hasFailed, true))
        emit notStored();
}

bool CookieStore::saveCookie(
    const QByteArray& host, const QByteArray& path, const QByteArray& name, const QByteArray& value)
{
    const Cookie cookie { path, name, value };
    return isStorable(host, cookie) && saveCookies(host, { cookie });
}

bool CookieStore::saveCookies(const QByteArray& host, const QList<Cookie>& cookies)
{
    const FolderLock lock(m_folder, patience);
    writeWaiting();
    return write(host, cookies, std::numeric_limits<qsizetype>::max());
}

bool CookieStore::isStorable(const QByteArray& host, const Cookie& cookie) const
{
    using allgemein::isOnOneLine;
    const qsizetype tabs = 2;
    return !fileFor(host).isEmpty() && isOnOneLine(cookie.path) && isOnOneLine(cookie.name) && isOnOneLine(cookie.value)
        && cookie.path.size() + cookie.name.size() + cookie.value.size() + tabs <= cookieFile::longestLine;
}

bool CookieStore::write(const QByteArray& host, const QList<Cookie>& cookies, qsizetype most)
{
    const QString fileName = fileFor(host);
    const auto old = cookieFile::read(fileName);
    if (!old)
        return false;
    const QByteArray content = cookieFile::merged(*old, cookies, most);
    return (content == *old && QFile::exists(fileName)) || cookieFile::replace(fileName, content);
}

QStringList CookieStore::deleteAll()
{
    m_waiting.clear();
    if (m_folder.isEmpty())
        return {};
    QStringList kept;
    if (!m_web.clear())
        kept += m_web.fileName();
    const FolderLock lock(m_folder, patience);
    // A program that was killed may have left unfinished files, which hold cookies too.
    const QStringList names { QStringLiteral("*.tkc"), QStringLiteral("*.tkc.tmp") };
    for (const QFileInfo& file : QDir(m_folder).entryInfoList(names, QDir::Files | QDir::Hidden)) {
        if (!QFile::remove(file.filePath()))
            kept += file.filePath();
    }
    return kept;
}

QByteArray CookieStore::getCookieHeader(const QByteArray& url) const
{
    const QByteArrayView host = url::hostOf(url);
    const QByteArrayView directory = url::directoryOf(url);
    const qint32 labelCount = url::labelCount(host);
    QByteArray pairs;
    for (qint32 labels = 1; labels <= labelCount; ++labels) {
        const QByteArrayView domain = url::lastLabels(host, labels);
        // A hostile host may consist of thousands of dots. Looking for a file at each would take minutes.
        if (domain.size() > longestFileName)
            break;
        const QString fileName = fileFor(domain);
        if (fileName.isEmpty())
            continue;
        QByteArray content = cookieFile::read(fileName).value_or(QByteArray());
        if (const auto waiting = m_waiting.constFind(domain.toByteArray()); waiting != m_waiting.constEnd())
            content = cookieFile::merged(content, *waiting, mostOfAHost);
        cookieFile::appendPairs(pairs, content, directory);
    }
    return pairs.isEmpty() ? QByteArray() : "Cookie:" + pairs.chopped(1) + "\r\n";
}

QString CookieStore::fileFor(QByteArrayView host) const
{
    const QByteArray name = host.toByteArray() + ".tkc";
    const bool usable =
        !m_folder.isEmpty() && !host.isEmpty() && name.size() <= longestFileName && allgemein::isPlainFileName(name);
    return usable ? m_folder + allgemein::fromSystem(name) : QString();
}
