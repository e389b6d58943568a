// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "http/SubUrl.h"
#include "pages/HtmlAnalysis.h"

#include <QByteArray>

#include <vector>

class QIODevice;

/// Which of a page's references are recorded.
enum class FollowMode {
    All = 0,
    Inside = 1, ///< those that match at least one sub-URL
    Outside = 2, ///< those that match none
};

/// The result of checking a search's options before it starts.
enum class Confirmation {
    InvalidStartUrl, ///< the search cannot start
    Unlimited, ///< it can, but neither a depth limit nor sub-URLs to stay inside of bound it
    Limited,
};

/// The parameters of a search. The defaults are those of the first start of the program.
struct SearchOptions {
    /// Further sub-URLs of a file are ignored: every reference is compared with each entry.
    static constexpr size_t mostSubUrls = 5000;

    QByteArray startUrl;
    QByteArray quellUrl; ///< the Referer of the start page's request; not kept in files
    bool maxDepth = true; ///< whether there is a depth limit
    qint32 tiefe = 3; ///< the depth limit: HTML pages of this depth and beyond are not read
    FollowMode followSub = FollowMode::All;
    std::vector<SubUrl> unterpfade;
    AnalysisSwitches analysis;

    /// Applies a line of a settings or search file; false for a key that no search has.
    bool initOpt(const QByteArray& key, const QByteArray& value);
    /// Writes the lines that `initOpt` reads.
    void speicherOpts(QIODevice& file) const;

    /// Whether a reference is recorded under the follow mode. The test sees the reference as it would be recorded, with
    /// line ends encoded.
    [[nodiscard]] bool follows(const QByteArray& url) const;
    /// Whether the references of a page at this depth are wanted.
    [[nodiscard]] bool readsPagesAt(qint32 depth) const { return !maxDepth || depth < tiefe; }
    /// Completes a typed start URL, with "http://" in front unless it begins with exactly that, and checks whether the
    /// search can start. An invalid start URL stays as it was typed.
    [[nodiscard]] Confirmation confirm();
    /// Whether a confirmed start URL was typed with "https://", which makes "https" the name of the host.
    [[nodiscard]] bool takesHttpsForHost() const { return startUrl.startsWith("http://https:"); }
};
