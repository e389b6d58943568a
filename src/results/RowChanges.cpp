// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/RowChanges.h"

std::optional<std::vector<RowChange>> rowChanges(size_t rowCount, const std::vector<RowChoice>& choice, size_t most)
{
    std::vector<RowChange> changes;
    size_t old = 0; // all rows before this one are handled
    const auto changeHere = [&](size_t place) -> RowChange& {
        if (changes.empty() || changes.back().at + changes.back().removed != old
            || changes.back().from + changes.back().inserted != place)
            changes.push_back({ old, 0, place, 0 });
        return changes.back();
    };
    for (size_t place = 0; place <= choice.size(); ++place) {
        const bool atEnd = place == choice.size();
        if (!atEnd && !choice[place].row) {
            ++changeHere(place).inserted;
        } else {
            const size_t row = atEnd ? rowCount : static_cast<size_t>(*choice[place].row);
            if (row < old)
                return std::nullopt;
            if (row > old)
                changeHere(place).removed += row - old;
            old = row + 1;
        }
        if (changes.size() > most)
            return std::nullopt;
    }
    return changes;
}
