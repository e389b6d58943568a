// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/FundListe.h"

#include <QString>

#include <functional>
#include <optional>

class LanguageTable;
class QIODevice;
struct ResultFilter;

/// How found items are printed.
enum class ItemFormat {
    Tsv, ///< the fields of a search file's item line
    Urls,
    Json, ///< one object a line
    Table, ///< for people
};

/// The format of a name; nothing for an unknown name.
[[nodiscard]] std::optional<ItemFormat> itemFormatFrom(const QString& name);

/// Prints the items of a list that a filter shows, a line each, in list order.
class ItemPrinter {
public:
    /// What a table's status column says of an item.
    using StatusText = std::function<QString(const FundStück&)>;

    ItemPrinter(const LanguageTable& language, StatusText statusText);

    void print(QIODevice& out, ItemFormat format, const FundListe& list, const ResultFilter& filter) const;

private:
    void printTable(QIODevice& out, const FundListe& list, const ResultFilter& filter) const;
    [[nodiscard]] QStringList header() const;
    [[nodiscard]] QStringList row(const FundStück& item) const;

    const LanguageTable& m_language;
    StatusText m_statusText;
};
