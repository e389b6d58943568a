// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/zahlenEingabe.h"

zahlenEingabe::zahlenEingabe(QWidget* parent)
    : QSpinBox(parent)
{
    setAlignment(Qt::AlignRight);
    setAccelerated(true);
}

void zahlenEingabe::init(int min, int max, int value)
{
    setRange(min, max);
    setValue(value);
}
