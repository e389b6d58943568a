// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QTest>

/// Begins a data table with these columns. Returns a function that adds a row: its arguments are a title and a value
/// for each column.
template <typename... Types, typename... Names> auto table(Names... names)
{
    (QTest::addColumn<Types>(names), ...);
    return [](const QByteArray& title, const Types&... values) {
        (QTest::newRow(title.constData()) << ... << values);
    };
}
