// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QScrollArea>

/// The controls of a dialog, above its buttons: whole where there is room for them, with scroll bars on a small screen
/// or with a large font.
class FittingArea final : public QScrollArea {
    Q_OBJECT

public:
    explicit FittingArea(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

    /// Gives a window the size of its content, or of the screen if that is smaller. To be called before it is shown.
    static void fitToScreen(QWidget& window);
};
