// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/dialog_getUrl.h"

#include "app/Browser.h"
#include "base/allgemein.h"
#include "base/lang.h"
#include "base/window/Captions.h"
#include "base/window/FittingArea.h"
#include "http/url.h"
#include "ui_dialog_getUrl.h"

#include <QApplication>
#include <QHideEvent>

#include <utility>

dialog_getUrl::dialog_getUrl(std::unique_ptr<Browser> browser, const LanguageTable& language)
    : m_browser(std::move(browser))
    , m_ui(std::make_unique<Ui::dialog_getUrl>())
{
    m_ui->setupUi(this);
    m_ui->link->setMaxLength(url::longest);
    QWidget* const page = m_browser->widget();
    page->setObjectName(QStringLiteral("IE"));
    m_ui->rows->addWidget(page, 1);

    m_browser->onNavigated([this](const QByteArray& url) { showAddress(url); });
    m_browser->onLinkFollowed([this] { m_ui->link->setModified(false); });
    const auto applyCaptions = [this, &language] {
        captions::apply(*this, language);
    };
    connect(&language, &LanguageTable::changed, this, applyCaptions);
    connect(m_ui->b_go, &QPushButton::clicked, this, &dialog_getUrl::navigate);
    connect(m_ui->link, &QLineEdit::returnPressed, this, &dialog_getUrl::navigate);
    connect(m_ui->b_ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_ui->b_Abort, &QPushButton::clicked, this, &QDialog::reject);
    applyCaptions();
    fitToScreen();
}

dialog_getUrl::~dialog_getUrl()
{
    m_browser.reset(); // The browser must go before its widget, which the window owns.
}

/// An embedded page gets much room, instructions as much as they need.
void dialog_getUrl::fitToScreen()
{
    const int line = fontMetrics().height();
    const QSize room = FittingArea::roomFor(*this).boundedTo(QSize(64, 44) * line);
    m_ui->link->setMinimumWidth(10 * line);
    const int narrow = qMin(room.width(), 44 * line);
    if (m_browser->isEmbedded())
        resize(room);
    else
        resize(narrow, qMin(room.height(), m_ui->rows->totalHeightForWidth(narrow)));
}

void dialog_getUrl::goUrl(const QByteArray& url)
{
    setResult(Rejected);
    m_ui->link->setText(allgemein::editedText(url));
    m_ui->link->setFocus();
    navigate();
}

QByteArray dialog_getUrl::link() const
{
    return allgemein::toSystem(m_ui->link->text().trimmed());
}

void dialog_getUrl::showAddress(const QByteArray& url)
{
    // A page that arrives late must not overwrite an address that the user is typing.
    if (m_ui->link->isModified())
        return;
    if (m_browser->isEmbedded()) {
        m_ui->link->setText(allgemein::editedText(url));
        return;
    }
    // Unlike setText, insert keeps the history of Undo, so a text that was typed before can be brought back. The
    // selection keeps a user who pastes the URL as well from doubling it.
    m_ui->link->selectAll();
    m_ui->link->insert(allgemein::editedText(url));
    m_ui->link->setModified(false);
    m_ui->link->selectAll();
    QApplication::alert(this);
}

void dialog_getUrl::navigate()
{
    m_ui->link->setModified(false);
    if (const QByteArray url = link(); !url.isEmpty())
        m_browser->navigate(url::withProtocol(url));
}

void dialog_getUrl::changeEvent(QEvent* event)
{
    // A user who goes to the browser has stopped typing.
    if (event->type() == QEvent::ActivationChange && !isActiveWindow() && !m_browser->isEmbedded())
        m_ui->link->setModified(false);
    QDialog::changeEvent(event);
}

void dialog_getUrl::hideEvent(QHideEvent* event)
{
    // Keep the page of a window that is only minimised.
    if (!event->spontaneous())
        m_browser->clear();
    QDialog::hideEvent(event);
}
