// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/lang.h"
#include "base/window/ColumnsTable.h"
#include "support/Table.h"

#include <QHeaderView>
#include <QStandardItemModel>

class tst_ColumnsTable : public QObject {
    Q_OBJECT

private slots:
    void takesStatesOfOtherVersions_data();
    void takesStatesOfOtherVersions();
};

void tst_ColumnsTable::takesStatesOfOtherVersions_data()
{
    const auto row = table<QByteArray, bool, QByteArray>("state", "isUsable", "restored");
    const QByteArray first = "0:40 1:60 2:80";
    row("of as many columns", "1:55 2:0 0:50", true, "1:55 2:0 0:50");
    row("of fewer: the new ones appear behind, with their first width", "1:55 0:50", true, "1:55 0:50 2:80");
    row("of more: the unknown ones are passed over", "7:30 1:0 4:9 0:50 2:65", true, "1:0 0:50 2:65");
    row("of none that is known", "3:30", false, first);
    row("one column twice", "1:55 1:55 0:50", false, first);
    row("an unknown column twice", "1:55 3:1 3:1", false, first);
    row("a part that is no column", "1:55 0;50", false, first);
}

void tst_ColumnsTable::takesStatesOfOtherVersions()
{
    QFETCH(QByteArray, state);
    QStandardItemModel model(0, 3);
    const LanguageTable language;
    ColumnsTable list(model, { 20, 30, 40 }, language, nullptr);
    for (const int column : { 0, 1, 2 })
        list.horizontalHeader()->resizeSection(column, 40 + 20 * column);
    QTEST(list.restoreColumns(state), "isUsable");
    QTEST(list.columnState(), "restored");
}

QTEST_MAIN(tst_ColumnsTable)

#include "tst_ColumnsTable.moc"
