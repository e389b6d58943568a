// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSpinBox>

/// The one control in which whole numbers are entered: a text field with spin arrows.
class zahlenEingabe : public QSpinBox {
    Q_OBJECT

public:
    explicit zahlenEingabe(QWidget* parent = nullptr);

    /// Sets bounds, both included, and the value, which is moved inside them.
    void init(int min, int max, int value);
    /// The value as shown.
    [[nodiscard]] QString getTextWert() const { return cleanText(); }
};
