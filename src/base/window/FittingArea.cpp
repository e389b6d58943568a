// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/window/FittingArea.h"

#include <QScreen>
#include <QScrollBar>
#include <QStyle>

FittingArea::FittingArea(QWidget* parent)
    : QScrollArea(parent)
{
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
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

void FittingArea::fitToScreen(QWidget& window)
{
    // The frame is not known before the window is shown.
    const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
    const QSize room = window.screen()->availableSize() - QSize(title / 2, 2 * title);
    // The hints may be those of other captions or another font.
    for (FittingArea* const area : window.findChildren<FittingArea*>())
        area->updateGeometry();
    window.ensurePolished();
    window.resize(window.sizeHint().boundedTo(room));
}
