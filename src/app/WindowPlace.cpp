// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/WindowPlace.h"

#include "session/WindowSettings.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStyle>
#include <QWidget>

int windowPlace::twips(int pixels)
{
    return pixels * WindowSettings::twipsPerPixel;
}

int windowPlace::pixels(int twips)
{
    return twips / WindowSettings::twipsPerPixel;
}

QSize windowPlace::twipsOf(const QWidget& window)
{
    const QSize size = window.isMaximized() ? window.normalGeometry().size() : window.size();
    return { twips(size.width()), twips(size.height()) };
}

std::optional<QPoint> windowPlace::placeOf(const QWidget& window)
{
    if (!window.testAttribute(Qt::WA_WState_ExplicitShowHide))
        return {};
    return window.isMaximized() ? window.normalGeometry().topLeft() : window.geometry().topLeft();
}

void windowPlace::restore(QWidget& window, QSize twips, const std::optional<QPoint>& place)
{
    const QSize wanted(twips.width() > 0 ? pixels(twips.width()) : window.width(),
        twips.height() > 0 ? pixels(twips.height()) : window.height());
    const QScreen* const there = place ? QGuiApplication::screenAt(*place) : nullptr;
    const QScreen& screen = there ? *there : *window.screen();
    const int titleBar = window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const QRect room = screen.availableGeometry().adjusted(0, titleBar, 0, 0);
    const QRect inside = fitted({ place.value_or(room.topLeft()), wanted }, room);
    if (place)
        window.setGeometry(inside);
    else
        window.resize(inside.size());
}

QRect windowPlace::fitted(QRect wanted, QRect screen)
{
    const QSize size = wanted.size().boundedTo(screen.size());
    const auto within = [](int place, int length, int first, int room) {
        return qBound(first, place, first + room - length);
    };
    return { { within(wanted.x(), size.width(), screen.x(), screen.width()),
                 within(wanted.y(), size.height(), screen.y(), screen.height()) },
        size };
}
