// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/window/FittingArea.h"

#include <QDialog>
#include <QScreen>
#include <QScrollBar>
#include <QShowEvent>
#include <QStyle>

FittingArea::FittingArea(QWidget* parent)
    : QScrollArea(parent)
{
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus); // Its controls have the focus, and scroll into view when they get it.
}

QSize FittingArea::sizeHint() const
{
    // With room for one scroll bar, so that a second one never appears because of the first.
    return widget() ? widget()->sizeHint() + QSize(verticalScrollBar()->sizeHint().width(), 0)
                    : QScrollArea::sizeHint();
}

QSize FittingArea::minimumSizeHint() const
{
    const int line = fontMetrics().lineSpacing();
    return sizeHint().boundedTo({ 12 * line, 6 * line });
}

QSize FittingArea::roomFor(const QWidget& window)
{
    // The frame is not known before the window is shown.
    const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
    return window.screen()->availableSize() - QSize(title / 2, 2 * title);
}

void FittingArea::showEvent(QShowEvent* event)
{
    QScrollArea::showEvent(event);
    if (event->spontaneous() || !qobject_cast<QDialog*>(window()))
        return;
    // The hint may be that of other captions or another font.
    updateGeometry();
    window()->resize(window()->sizeHint().boundedTo(roomFor(*window())));
}
