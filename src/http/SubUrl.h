// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <vector>

/// An entry of a sub-URL list: a URL prefix and the level at which URLs are cut to compare with it.
struct SubUrl {
    QByteArray text;
    qint32 level = 0;

    /// The entry for what somebody typed, or for a stored entry's text. "http://" is put in front when there is no
    /// protocol. A bare host stands for all its labels, on any port; a port or a path for the directory. The text
    /// of an entry gives the same entry again.
    [[nodiscard]] static SubUrl fromText(const QByteArray& typed);

    /// The entries that match `url`, from its top-level domain to its directory, but no more than the first 100.
    [[nodiscard]] static std::vector<SubUrl> levelsOf(const QByteArray& url);

    /// Whether `url`, cut to the entry's level, is exactly the entry's text.
    [[nodiscard]] bool matches(const QByteArray& url) const;
};
