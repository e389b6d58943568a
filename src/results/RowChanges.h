// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <optional>
#include <vector>

class FundKnoten;

/// An item that the filter shows, and the row that it has now, from 0; nullopt if it has none.
struct RowChoice {
    FundKnoten* node = nullptr;
    std::optional<qint32> row;
};

/// One difference between the present rows and a choice: the `removed` rows from `at` on are replaced by the `inserted`
/// choices from `from` on.
struct RowChange {
    size_t at = 0;
    size_t removed = 0;
    size_t from = 0;
    size_t inserted = 0;
};

/// The changes that turn `rowCount` rows into `choice`, in ascending order. Apply them from last to first: then none
/// moves the place of another. Returns nullopt if more than `most` changes are needed, or if rows change their order.
[[nodiscard]] std::optional<std::vector<RowChange>> rowChanges(
    size_t rowCount, const std::vector<RowChoice>& choice, size_t most);
