// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <optional>
#include <vector>

struct FundKnoten;

/// An item that is chosen to be shown, and the row that it has so far, from 0.
struct RowChoice {
    FundKnoten* knoten = nullptr;
    std::optional<qint32> row;
};

/// A place where a new choice of rows differs from the old one: from row `at` on, `removed` rows give way to the
/// `inserted` choices that begin at `from`.
struct RowChange {
    size_t at = 0;
    size_t removed = 0;
    size_t from = 0;
    size_t inserted = 0;
};

/// How to get from `rowCount` rows to a choice, in ascending order; applied from the last to the first, none moves
/// another's place. Nothing when more than `most` changes were needed. What has rows in `choice` has them in ascending
/// order.
[[nodiscard]] std::optional<std::vector<RowChange>> rowChanges(
    size_t rowCount, const std::vector<RowChoice>& choice, size_t most);
