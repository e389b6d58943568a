// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/Terminal.h"

#include "base/allgemein.h"

QString terminal::printable(QString text)
{
    for (QChar& character : text) {
        if (allgemein::isHiddenControl(character.unicode()))
            character = u'?';
    }
    return text;
}
