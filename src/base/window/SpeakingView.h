// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractItemModel>
#include <QAbstractItemView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPalette>

/// A view that shows a text while it has no rows. The space bar toggles the check box of the current row, and a double
/// click on a check box does nothing but toggle it twice.
template <typename View> class SpeakingView : public View {
public:
    using View::View;

    /// The text that is shown while there are no rows.
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

    void mouseDoubleClickEvent(QMouseEvent* event) override
    {
        // Delegates handle the presses on check boxes and leave all others to the view.
        const QModelIndex index = this->indexAt(event->position().toPoint());
        if (!index.isValid() || !this->edit(index, QAbstractItemView::NoEditTriggers, event))
            View::mouseDoubleClickEvent(event);
    }

private:
    QString m_emptyText;
};
