// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <Qt>

#include <array>

struct FundStück;

/// A column of the results list. The window, exported lists and the tables of the console program all read this table.
struct ResultColumn {
    /// In the order of the columns. Saved layouts name a column by its number, so add new ones at the end.
    enum Id { FileName, MimeContent, Size, Depth, Status, RefType, Language, Url, Count };

    Id id;
    const char* headerKey; ///< the key of the title in the language table
    Qt::AlignmentFlag alignment; ///< `AlignRight` for numbers, else `AlignLeft`
    int width; ///< first width in the window, in ninths of the height of a line of text
    /// The item's value in the system code page. Sizes are in bytes, "?" for an unknown one.
    QByteArray (*text)(const FundStück& item);

    [[nodiscard]] bool isNumber() const { return alignment == Qt::AlignRight; }
};

/// All columns; `resultColumns()[id]` has that id.
[[nodiscard]] const std::array<ResultColumn, ResultColumn::Count>& resultColumns();
