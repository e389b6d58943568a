// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class LanguageTable;

/// Sets the texts of a window's controls by name. The key of a control in the language table is the object name of its
/// window, "." and its own object name.
namespace captions {

/// Renames the members of control arrays: Designer cannot spell "rad_followSub(0)", so it is "rad_followSub_0" there.
void nameArrays(QObject& window);

/// Sets the window's title and the captions of all its controls that have a key in the table. The text of a key with
/// "more." in front becomes the tool tip of a control that has a caption or needs none. For assistive technology a
/// control has the name of its key with "more.name." in front, else its caption or label, else its tool tip.
void apply(QWidget& window, const LanguageTable& language);
/// As above, for a part of the window called `windowName`.
void apply(QObject& part, const QString& windowName, const LanguageTable& language);

/// A text from a server or a file as a tool tip: never read as HTML, and cut after 500 characters.
[[nodiscard]] QString toolTip(const QString& foreign);

} // namespace captions
