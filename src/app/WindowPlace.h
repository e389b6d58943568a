// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

#include <optional>

class QWidget;

/// The size and the place of windows from one start of the program to the next.
namespace windowPlace {

[[nodiscard]] int twips(int pixels);
[[nodiscard]] int pixels(int twips);

/// The window's size in twips; of a maximised one, what it will be when it no longer is.
[[nodiscard]] QSize twipsOf(const QWidget& window);
/// The upper left corner of the window's inside; nothing while it was never shown.
[[nodiscard]] std::optional<QPoint> placeOf(const QWidget& window);

/// Gives a window its size, where that is not 0, and its place, as far as they are on a screen.
void restore(QWidget& window, QSize twips, const std::optional<QPoint>& place);

/// `wanted`, moved and made smaller so that it lies within `screen`.
[[nodiscard]] QRect fitted(QRect wanted, QRect screen);

} // namespace windowPlace
