// SPDX-License-Identifier: GPL-3.0-or-later
#include "downloads/window/ProgressDelegate.h"

#include "downloads/window/DownloadModel.h"

#include <QApplication>
#include <QStyleOptionProgressBar>

void ProgressDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const QVariant percent = index.data(DownloadModel::percentRole);
    if (!percent.isValid()) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    const QStyle* const style = option.widget ? option.widget->style() : QApplication::style();
    // Draw the background of the cell first: it shows whether the row is selected.
    QStyleOptionViewItem ground = option;
    initStyleOption(&ground, index);
    ground.text.clear();
    style->drawControl(QStyle::CE_ItemViewItem, &ground, painter, option.widget);
    QStyleOptionProgressBar bar;
    bar.initFrom(option.widget);
    bar.state = option.state | QStyle::State_Horizontal;
    bar.rect = option.rect.adjusted(1, 1, -1, -1);
    bar.maximum = 100;
    bar.progress = percent.toInt();
    bar.text = index.data().toString();
    bar.textAlignment = Qt::AlignCenter;
    bar.textVisible = true;
    style->drawControl(QStyle::CE_ProgressBar, &bar, painter, option.widget);
}
