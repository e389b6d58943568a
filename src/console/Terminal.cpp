// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/Terminal.h"

QString terminal::printable(QString text)
{
    for (QChar& character : text) {
        const bool acts = character.category() == QChar::Other_Control || character.category() == QChar::Other_Format;
        if (acts)
            character = u'?';
    }
    return text;
}
