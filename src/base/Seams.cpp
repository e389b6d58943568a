// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Seams.h"

#include "base/lang.h"

QString Seams::text(const char* key) const
{
    return language.text(key);
}
