// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class LanguageTable;

/// How the controls of a window get their texts: by name. A control's key is its window's object name, "." and its own.
namespace captions {

/// Names the members of control arrays: "rad_followSub_0", as far as Designer can spell it, becomes "rad_followSub(0)".
void nameArrays(QObject& window);

/// Sets the window's title and the captions of all its controls that have a key in the table. The texts of keys with
/// "more." in front become tool tips, and what is read out for controls without a caption.
void apply(QWidget& window, const LanguageTable& language);
/// As above, for a part of the window called `windowName`.
void apply(QObject& part, const QString& windowName, const LanguageTable& language);

/// A text of a server's or a file's as a tool tip, which shows it as it is: not as marked up, and not without end.
[[nodiscard]] QString toolTip(const QString& foreign);

} // namespace captions
