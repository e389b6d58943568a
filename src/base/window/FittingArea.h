// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QScrollArea>

/// Controls of a window: whole where there is room for them, with scroll bars on a small screen or with a large font. A
/// dialog with such an area gets the size of its content when it is shown, or of the screen if that is smaller.
class FittingArea final : public QScrollArea {
    Q_OBJECT

public:
    explicit FittingArea(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

    /// The room that a window has on its screen, without its frame.
    [[nodiscard]] static QSize roomFor(const QWidget& window);

protected:
    void showEvent(QShowEvent* event) override;
};
