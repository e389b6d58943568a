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

#include <utility>

namespace {

/// Before more pages than these are opened, the user is asked.
constexpr qsizetype manyPages = 20;

/// Calls `visit` with each row, from the first to the last.
template <typename Visit> void forEachRow(const RowRuns& rows, Visit visit)
{
    for (const RowRun& run : rows) {
        for (int row = run.first; row <= run.last; ++row)
            visit(row);
    }
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

QList<QByteArray> RowCommands::urls(bool marked) const
{
    QList<QByteArray> urls;
    forEachRow(chosen(marked), [&](int row) { urls += m_model.itemAt(row).adresse; });
    return urls;
}

std::vector<const FundStück*> RowCommands::items(bool selectedOnly) const
{
    std::vector<const FundStück*> items;
    const RowRuns rows = selectedOnly ? m_view.selectedRows() : invertedRuns({}, m_model.rowCount());
    forEachRow(rows, [&](int row) { items.push_back(&m_model.itemAt(row)); });
    return items;
}

qint64 RowCommands::selectedCount() const
{
    qint64 count = 0;
    for (const RowRun& run : m_view.selectedRows())
        count += run.last - run.first + 1;
    return count;
}

void RowCommands::open(bool marked)
{
    const QList<QByteArray> all = urls(marked);
    QList<QByteArray> opened = all;
    opened.removeIf([](const QByteArray& url) { return !openBy::isForTheSystem(url); });
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
    m_work.add([this, urls, next = qsizetype { 0 }]() mutable {
        if (next == urls.size())
            return false;
        const QByteArray& url = urls[next++];
        if (m_shell.openUrl(QUrl::fromEncoded(url)))
            return true;
        m_messages.tell(errorReport(m_language, "lang.errWhileOpening", allgemein::shownText(url)));
        return false;
    });
}

void RowCommands::download(bool marked)
{
    QList<QPair<QByteArray, qint64>> rows;
    forEachRow(chosen(marked),
        [&](int row) { rows.emplace_back(m_model.itemAt(row).adresse, m_model.shownSize(row).value_or(0)); });
    m_work.add([this, rows = std::move(rows), next = qsizetype { 0 }]() mutable {
        if (next == rows.size())
            return false;
        const auto& [url, size] = std::as_const(rows)[next++];
        m_downloads.addDL(url, size, {});
        return true;
    });
}

void RowCommands::copy(bool marked)
{
    m_work.add([urls = urls(marked), text = QString(), next = qsizetype { 0 }]() mutable {
        if (next < urls.size()) {
            text += allgemein::fromSystem(std::as_const(urls)[next++]) + QLatin1String("\r\n");
            return true;
        }
        text.chop(2);
        if (!urls.isEmpty())
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
