// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "console/CommandLine.h"

/// The commands of the program. Each stands in a source file of its own, with its options; `main.cpp` lists them all.
namespace commands {

extern const Command search;
extern const Command list;
extern const Command download;
extern const Command number;
extern const Command importCookies;
extern const Command clearCookies;
extern const Command showCookies;

} // namespace commands
