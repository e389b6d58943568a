// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayView>

/// The fixed table of MIME types and their file extensions. Types compare exactly: case-sensitive, and without
/// parameters.
namespace MIMETypes {

/// The extensions of a type, without dots, joined by ":", the preferred one first; empty for an unknown type.
[[nodiscard]] QByteArrayView extensionsFor(QByteArrayView mimeType);

/// `fileName` with the type's preferred extension behind it, unless it already ends in one of the type's extensions
/// or the type is unknown.
[[nodiscard]] QByteArray extensionByMIME(const QByteArray& fileName, QByteArrayView mimeType);

/// `fileName` ending in "." and `extension`: unchanged when it already does (case-sensitive).
[[nodiscard]] QByteArray addExtension(const QByteArray& fileName, QByteArrayView extension);

/// Whether a Content-Type value, with or without parameters, is HTML: it begins with exactly "text/html".
[[nodiscard]] bool isHTML(QByteArrayView mimeType);

} // namespace MIMETypes
