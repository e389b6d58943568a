// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/FundListe.h"

#include <QString>

#include <optional>

class LanguageTable;
class QIODevice;
struct ResultColumn;
struct ResultFilter;

/// The formats in which found items are printed.
enum class ItemFormat {
    Tsv, ///< the fields of a search file's item line, separated by TAB
    Urls,
    Json, ///< one object a line
    Table, ///< for people
};

/// The format of a name; nothing for an unknown name.
[[nodiscard]] std::optional<ItemFormat> itemFormatFrom(const QString& name);

/// Prints the items of a list that pass a filter: one line each, in list order.
class ItemPrinter {
public:
    explicit ItemPrinter(const LanguageTable& language);

    void print(QIODevice& out, ItemFormat format, const FundListe& list, const ResultFilter& filter) const;

private:
    void printTable(QIODevice& out, const FundListe& list, const ResultFilter& filter) const;
    [[nodiscard]] QStringList header() const;
    [[nodiscard]] QStringList row(const FundStück& item) const;
    [[nodiscard]] QString textOf(const ResultColumn& column, const FundStück& item) const;

    const LanguageTable& m_language;
};
