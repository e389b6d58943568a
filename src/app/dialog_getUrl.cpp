// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/dialog_getUrl.h"

#include "app/Browser.h"
#include "base/Captions.h"
#include "base/allgemein.h"
#include "base/lang.h"
#include "crawl/url.h"
#include "ui_dialog_getUrl.h"

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
    resize(64 * fontMetrics().height(), 44 * fontMetrics().height());

    m_browser->onNavigated([this](const QByteArray& url) { m_ui->link->setText(allgemein::fromSystem(url)); });
    const auto applyCaptions = [this, &language] {
        captions::apply(*this, language);
    };
    connect(&language, &LanguageTable::changed, this, applyCaptions);
    connect(m_ui->b_go, &QPushButton::clicked, this, &dialog_getUrl::navigate);
    connect(m_ui->link, &QLineEdit::returnPressed, this, &dialog_getUrl::navigate);
    connect(m_ui->b_ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_ui->b_Abort, &QPushButton::clicked, this, &QDialog::reject);
    applyCaptions();
}

dialog_getUrl::~dialog_getUrl()
{
    m_browser.reset(); // before its widget, which the window owns
}

void dialog_getUrl::goUrl(const QByteArray& url)
{
    setResult(Rejected);
    m_ui->link->setText(allgemein::fromSystem(url));
    m_ui->link->setFocus();
    navigate();
}

QByteArray dialog_getUrl::link() const
{
    return allgemein::toSystem(m_ui->link->text().trimmed());
}

void dialog_getUrl::navigate()
{
    if (const QByteArray url = link(); !url.isEmpty())
        m_browser->navigate(url::withProtocol(url));
}

void dialog_getUrl::hideEvent(QHideEvent* event)
{
    // A window that is only minimised keeps its page.
    if (!event->spontaneous())
        m_browser->clear();
    QDialog::hideEvent(event);
}
