// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/UserBrowser.h"

#include "base/ErrorReport.h"
#include "base/Messages.h"
#include "base/Shell.h"
#include "base/allgemein.h"
#include "base/lang.h"
#include "http/copiedUrl.h"
#include "results/OpenBy.h"

#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QUrl>
#include <QVBoxLayout>

#include <utility>

namespace {

QByteArray urlOnClipboard()
{
    return copiedUrl(QGuiApplication::clipboard()->text());
}

/// Whether the system announces the clipboard when nothing was copied: Wayland does so each time that one of the
/// program's windows becomes active.
bool announcesOldClipboard()
{
    return QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

} // namespace

UserBrowser::UserBrowser(const LanguageTable& language, Messages& messages, Shell& shell)
    : m_language(language)
    , m_messages(messages)
    , m_shell(shell)
    , m_widget(new QWidget)
{
    auto* const instructions = new QLabel;
    instructions->setObjectName(QStringLiteral("instructions"));
    instructions->setWordWrap(true);
    auto* const rows = new QVBoxLayout(m_widget);
    rows->setContentsMargins({});
    rows->addWidget(instructions, 0, Qt::AlignTop);
    m_widget->installEventFilter(this);
}

UserBrowser::~UserBrowser() = default;

void UserBrowser::navigate(const QByteArray& url)
{
    const QUrl page = QUrl::fromEncoded(url);
    if (!openBy::isForTheSystem(url) || !page.isValid() || !m_shell.openUrl(page))
        m_messages.tell(errorReport(m_language, "more.pageNotOpened", allgemein::shownText(url)));
}

void UserBrowser::onNavigated(std::function<void(const QByteArray& url)> navigated)
{
    m_navigated = std::move(navigated);
}

bool UserBrowser::eventFilter(QObject* watched, QEvent* event)
{
    // Keep watching while the window is only minimised.
    if (event->type() == QEvent::Show && !event->spontaneous())
        startWatching();
    else if (event->type() == QEvent::Hide && !event->spontaneous())
        QGuiApplication::clipboard()->disconnect(this);
    else if (event->type() == QEvent::WindowActivate)
        look(); // Some systems announce a change only to a program with an active window.
    return QObject::eventFilter(watched, event);
}

void UserBrowser::startWatching()
{
    m_seen = urlOnClipboard();
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, &UserBrowser::clipboardChanged,
        Qt::UniqueConnection);
}

void UserBrowser::clipboardChanged()
{
    // An announcement means that the user has copied something: take it even if it is the same URL again.
    if (!announcesOldClipboard())
        m_seen.clear();
    look();
}

void UserBrowser::look()
{
    // The user has copied a part of the address field, which must not replace the whole.
    if (QGuiApplication::clipboard()->ownsClipboard())
        return;
    const QByteArray url = urlOnClipboard();
    // Remember the last URL beyond an empty clipboard: that is what a program without focus may see.
    if (url.isEmpty() || url == m_seen)
        return;
    m_seen = url;
    m_navigated(url);
}
