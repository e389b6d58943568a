// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/RowCommands.h"

#include "base/allgemein.h"
#include "downloads/DownloadQueue.h"
#include "results/FoundModel.h"
#include "results/FoundsView.h"

#include <QClipboard>
#include <QGuiApplication>

RowCommands::RowCommands(FoundModel& model, FoundsView& view, DownloadQueue& downloads)
    : m_model(model)
    , m_view(view)
    , m_downloads(downloads)
{
}

RowRuns RowCommands::chosen(bool marked) const
{
    return marked ? m_model.markedRows() : m_view.selectedRows();
}

void RowCommands::download(bool marked) const
{
    for (const RowRun& run : chosen(marked)) {
        for (int row = run.first; row <= run.last; ++row)
            m_downloads.addDL(m_model.itemAt(row).adresse, m_model.shownSize(row).value_or(0), {});
    }
}

void RowCommands::copy(bool marked) const
{
    QByteArray urls;
    for (const RowRun& run : chosen(marked)) {
        for (int row = run.first; row <= run.last; ++row)
            urls += m_model.itemAt(row).adresse + allgemein::lineEnd;
    }
    if (urls.isEmpty())
        return;
    urls.chop(allgemein::lineEnd.size());
    QGuiApplication::clipboard()->setText(allgemein::fromSystem(urls));
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
