// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>
#include <QButtonGroup>
#include <QList>

/// A group of option buttons whose ids count from `firstId` in the order of the list. It belongs to `parent`.
inline QButtonGroup* optionButtons(const QList<QAbstractButton*>& buttons, QObject* parent, int firstId = 0)
{
    auto* const group = new QButtonGroup(parent);
    for (QAbstractButton* const button : buttons)
        group->addButton(button, firstId++);
    return group;
}
