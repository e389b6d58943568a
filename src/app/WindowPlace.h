// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

#include <optional>

class QWidget;

/// Keeps size and place of windows from one start of the program to the next.
namespace windowPlace {

[[nodiscard]] int twips(int pixels);
[[nodiscard]] int pixels(int twips);

/// The window's size in twips. For a maximised window: the size to which it would go back.
[[nodiscard]] QSize twipsOf(const QWidget& window);
/// The upper left corner of the window, without its frame; nothing if it was never shown.
[[nodiscard]] std::optional<QPoint> placeOf(const QWidget& window);

/// Sets a window's size (a length of 0 keeps the present one) and place, both limited to the screen.
void restore(QWidget& window, QSize twips, const std::optional<QPoint>& place);

/// `wanted`, moved and shrunk until it lies within `screen`.
[[nodiscard]] QRect fitted(QRect wanted, QRect screen);

} // namespace windowPlace
