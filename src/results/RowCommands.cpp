// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/RowCommands.h"

#include "base/ErrorReport.h"
#include "base/Messages.h"
#include "base/Shell.h"
#include "base/allgemein.h"
#include "base/lang.h"
#include "downloads/DownloadQueue.h"
#include "results/FoundModel.h"
#include "results/FoundsView.h"
#include "results/OpenBy.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QUrl>

#include <numeric>
#include <utility>

namespace {

/// Before more pages than these are opened, the user is asked.
constexpr qsizetype manyPages = 20;

qint64 countOf(const RowRuns& rows)
{
    return std::accumulate(rows.begin(), rows.end(), qint64 { 0 },
        [](qint64 sum, const RowRun& run) { return sum + run.last - run.first + 1; });
}

bool canBeOpened(const QByteArray& url)
{
    return openBy::isForTheSystem(url) && QUrl::fromEncoded(url).isValid();
}

} // namespace

RowCommands::RowCommands(FoundModel& model, FoundsView& view, DownloadQueue& downloads, const LanguageTable& language,
    Messages& messages, Shell& shell)
    : m_model(model)
    , m_view(view)
    , m_downloads(downloads)
    , m_language(language)
    , m_messages(messages)
    , m_shell(shell)
{
}

RowRuns RowCommands::chosen(bool marked) const
{
    return marked ? m_model.markedRows() : m_view.selectedRows();
}

RowCommands::Items RowCommands::items(const RowRuns& rows) const
{
    Items items;
    items.reserve(static_cast<size_t>(countOf(rows)));
    for (const RowRun& run : rows) {
        for (int row = run.first; row <= run.last; ++row)
            items.push_back(&m_model.itemAt(row));
    }
    return items;
}

RowCommands::Items RowCommands::allItems() const
{
    return items(invertedRuns({}, m_model.rowCount()));
}

QList<QByteArray> RowCommands::urls(bool marked) const
{
    QList<QByteArray> urls;
    for (const FundStück* const item : items(chosen(marked)))
        urls += item->adresse;
    return urls;
}

qint64 RowCommands::selectedCount() const
{
    return countOf(m_view.selectedRows());
}

void RowCommands::open(bool marked)
{
    const QList<QByteArray> all = urls(marked);
    QList<QByteArray> opened = all;
    opened.removeIf([](const QByteArray& url) { return !canBeOpened(url); });
    const auto openThem = [this, opened] {
        if (opened.size() <= manyPages) {
            openAll(opened);
            return;
        }
        m_messages.ask({ Messages::Sign::Question, m_language.text("lang.question"),
                           m_language.text("more.manyPages").arg(opened.size()) },
            [this, opened](bool yes) {
                if (yes)
                    openAll(opened);
            });
    };
    if (opened.size() == all.size())
        openThem();
    else
        m_messages.tell({ Messages::Sign::Information, m_language.text("lang.note"),
                            m_language.text("more.notOpened").arg(all.size() - opened.size()) },
            openThem);
}

void RowCommands::openAll(const QList<QByteArray>& urls)
{
    m_opening.add([this, urls, failed = QList<QByteArray>(), next = qsizetype { 0 }]() mutable {
        if (next < urls.size()) {
            const QByteArray& url = std::as_const(urls)[next++];
            if (!m_shell.openUrl(QUrl::fromEncoded(url)))
                failed += url;
            return true;
        }
        if (!failed.isEmpty())
            tellNotOpened(failed);
        return false;
    });
}

void RowCommands::tellNotOpened(const QList<QByteArray>& urls)
{
    QString text = allgemein::shownText(urls.first());
    if (urls.size() > 1)
        text += u'\n' + m_language.text("more.andMore").arg(urls.size() - 1);
    m_messages.tell(errorReport(m_language, "lang.errWhileOpening", text));
}

void RowCommands::download(bool marked)
{
    m_work.add([this, items = items(chosen(marked)), next = size_t { 0 }]() mutable {
        if (next == items.size())
            return false;
        const FundStück& item = *items[next++];
        m_downloads.addDL(item.adresse, m_model.shownSize(item).value_or(0), {});
        return true;
    });
}

void RowCommands::copy(bool marked)
{
    constexpr size_t usualLength = 96;
    Items chosenItems = items(chosen(marked));
    QString lines;
    lines.reserve(static_cast<qsizetype>(chosenItems.size() * usualLength));
    m_work.add([items = std::move(chosenItems), text = std::move(lines), next = size_t { 0 }]() mutable {
        if (next < items.size()) {
            text += allgemein::fromSystem(items[next++]->adresse) + QLatin1String("\r\n");
            return true;
        }
        text.chop(2);
        if (!items.empty())
            QGuiApplication::clipboard()->setText(text);
        return false;
    });
}

void RowCommands::setMarked(bool marked) const
{
    m_model.setMarked(m_view.selectedRows(), marked);
}

void RowCommands::selectAll() const
{
    m_view.selectRows(invertedRuns({}, m_model.rowCount()), QItemSelectionModel::Select);
}

void RowCommands::invertSelection() const
{
    m_view.selectRows(invertedRuns(m_view.selectedRows(), m_model.rowCount()), QItemSelectionModel::ClearAndSelect);
}

void RowCommands::selectMarked() const
{
    m_view.selectRows(m_model.markedRows(), QItemSelectionModel::Select);
}
