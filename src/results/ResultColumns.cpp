// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/ResultColumns.h"

#include "crawl/FundListe.h"
#include "http/url.h"
#include "results/twk.h"

#include <algorithm>

namespace {

using Item = const FundStück&;

constexpr std::array columns {
    ResultColumn { ResultColumn::FileName, "main.l_founds.ColumnHeaders(1)", Qt::AlignLeft, 110,
        [](Item item) {
            return url::fileNameOf(item.adresse).toByteArray();
        } },
    ResultColumn { ResultColumn::MimeContent, "main.l_founds.ColumnHeaders(2)", Qt::AlignLeft, 70,
        [](Item item) {
            return item.mimeTyp;
        } },
    ResultColumn { ResultColumn::Size, "main.l_founds.ColumnHeaders(3)", Qt::AlignRight, 40,
        [](Item item) {
            return item.groesse < 0 ? QByteArray("?") : QByteArray::number(item.groesse);
        } },
    ResultColumn { ResultColumn::Depth, "main.l_founds.ColumnHeaders(4)", Qt::AlignRight, 50,
        [](Item item) {
            return QByteArray::number(item.tiefe);
        } },
    ResultColumn { ResultColumn::Status, "main.l_founds.ColumnHeaders(5)", Qt::AlignRight, 75,
        [](Item item) {
            return QByteArray::number(item.statusCode);
        } },
    ResultColumn { ResultColumn::RefType, "main.l_founds.ColumnHeaders(6)", Qt::AlignLeft, 55,
        [](Item item) {
            return twk::referenceTypeName(item.referenzTyp).toLatin1();
        } },
    ResultColumn { ResultColumn::Language, "main.l_founds.ColumnHeaders(7)", Qt::AlignLeft, 45,
        [](Item item) {
            return item.sprache;
        } },
    ResultColumn { ResultColumn::Url, "main.l_founds.ColumnHeaders(8)", Qt::AlignLeft, 240,
        [](Item item) {
            return item.adresse;
        } },
};

static_assert(columns.size() == ResultColumn::Count, "a column lacks its definition");
static_assert(std::is_sorted(columns.begin(), columns.end(),
                  [](const ResultColumn& a, const ResultColumn& b) { return a.id < b.id; }),
    "columns stand in the order of their ids");

} // namespace

const std::array<ResultColumn, ResultColumn::Count>& resultColumns()
{
    return columns;
}
