// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/window/RowCommands.h"

#include "base/ErrorReport.h"
#include "base/Messages.h"
#include "base/Shell.h"
#include "base/allgemein.h"
#include "base/lang.h"
#include "downloads/DownloadQueue.h"
#include "results/OpenBy.h"
#include "results/window/FoundModel.h"
#include "results/window/FoundsView.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QUrl>

#include <numeric>
#include <utility>

namespace {

/// The largest number of pages that are opened without a question.
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

RowCommands::RowCommands(FoundModel& model, FoundsView& view, DownloadQueue& downloads, const Seams& seams)
    : m_model(model)
    , m_view(view)
    , m_downloads(downloads)
    , m_seams(seams)
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
    openUrls(urls(marked));
}

void RowCommands::openRow(int row)
{
    openUrls({ m_model.itemAt(row).adresse });
}

void RowCommands::openUrls(const QList<QByteArray>& all)
{
    QList<QByteArray> opened = all;
    opened.removeIf([](const QByteArray& url) { return !canBeOpened(url); });
    const auto openThem = [this, opened] {
        if (opened.size() <= manyPages) {
            openAll(opened);
            return;
        }
        m_seams.messages.confirm({ Messages::Sign::Question, m_seams.text("lang.question"),
                                     m_seams.text("more.manyPages").arg(opened.size()) },
            [this, opened] { openAll(opened); });
    };
    if (opened.size() == all.size())
        openThem();
    else
        m_seams.messages.tell({ Messages::Sign::Information, m_seams.text("lang.note"),
                                  m_seams.text("more.notOpened").arg(all.size() - opened.size()) },
            openThem);
}

void RowCommands::openAll(const QList<QByteArray>& urls)
{
    m_opening.add([this, urls, failed = QList<QByteArray>(), next = qsizetype { 0 }]() mutable {
        if (next < urls.size()) {
            const QByteArray& url = std::as_const(urls)[next++];
            if (!m_seams.shell.openUrl(QUrl::fromEncoded(url)))
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
        text += u'\n' + m_seams.text("more.andMore").arg(urls.size() - 1);
    m_seams.messages.tell(errorReport(m_seams.language, "lang.errWhileOpening", text));
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
    constexpr qsizetype usualLength = 96;
    Items chosenItems = items(chosen(marked));
    QString lines;
    lines.reserve(static_cast<qsizetype>(chosenItems.size()) * usualLength);
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
