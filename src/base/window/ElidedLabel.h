// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>

/// One line of plain text that never widens its window: it leaves out the middle of a text that is too long.
class ElidedLabel final : public QLabel {
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};
