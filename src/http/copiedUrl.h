// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

/// The URL that a copied text is: percent-encoded, and without the blanks around it. Empty when the text is anything
/// but one http, https or ftp URL with a host, no longer than `url::longest`.
[[nodiscard]] QByteArray copiedUrl(const QString& text);
