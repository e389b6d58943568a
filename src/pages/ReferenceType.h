// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

/// The kind of HTML construct that led to an item. Search files hold the numbers; a file may hold others.
enum class ReferenceType : qint32 { Unknown = 0, Anchor = 1, Link = 2, AnySrc = 3, Frame = 4, Img = 5 };
