// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractItemModel>
#include <QKeyEvent>
#include <QPainter>
#include <QPalette>

/// A view that says something while it has no rows, and in which the space bar checks and unchecks the current row.
template <typename View> class SpeakingView : public View {
public:
    using View::View;

    /// Shown in the place of rows while there are none.
    void setEmptyText(const QString& text)
    {
        m_emptyText = text;
        this->viewport()->update();
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        View::paintEvent(event);
        if (this->model()->rowCount() > 0)
            return;
        QPainter painter(this->viewport());
        painter.setPen(this->palette().color(QPalette::PlaceholderText));
        const QRect margins = this->viewport()->rect().adjusted(20, 20, -20, -20);
        painter.drawText(margins, Qt::AlignCenter | Qt::TextWordWrap, m_emptyText);
    }

    void keyPressEvent(QKeyEvent* event) override
    {
        const QModelIndex row = this->currentIndex().siblingAtColumn(0);
        if (event->key() != Qt::Key_Space || event->modifiers() != Qt::NoModifier
            || !row.flags().testFlag(Qt::ItemIsUserCheckable)) {
            View::keyPressEvent(event);
            return;
        }
        const bool checked = row.data(Qt::CheckStateRole).toInt() == Qt::Checked;
        this->model()->setData(row, checked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
    }

private:
    QString m_emptyText;
};
