// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/HtmlAnalysis.h"
#include "crawl/SubUrl.h"

#include <QByteArray>

#include <vector>

class QIODevice;

/// Which of a page's references are recorded.
enum class FollowMode {
    All = 0,
    Inside = 1, ///< those that match at least one sub-URL
    Outside = 2, ///< those that match none
};

/// What can be said of a search's options before it starts.
enum class Confirmation {
    InvalidStartUrl, ///< the search cannot start
    Unlimited, ///< it can, but neither a depth limit nor sub-URLs to stay inside of bound it
    Limited,
};

/// Everything that a search is given. The defaults are those of a program that was never used.
struct SearchOptions {
    /// Of a file's sub-URLs those beyond are passed over: every reference is compared with each of them.
    static constexpr size_t mostSubUrls = 5000;

    QByteArray startUrl;
    QByteArray quellUrl; ///< the Referer of the start page's request; not kept in files
    bool maxDepth = true; ///< whether there is a depth limit
    qint32 tiefe = 3; ///< the depth limit: HTML pages of this depth and beyond are not read
    FollowMode followSub = FollowMode::All;
    std::vector<SubUrl> unterpfade;
    AnalysisSwitches analysis;

    /// Applies a line of a settings or search file; false for a key that is none of the search's.
    bool initOpt(const QByteArray& key, const QByteArray& value);
    /// Writes the lines that `initOpt` reads.
    void speicherOpts(QIODevice& file) const;

    /// Whether a reference is recorded under the follow mode. It is tested as it would be recorded, on one line.
    [[nodiscard]] bool follows(const QByteArray& url) const;
    /// Whether the references of a page at this depth are wanted.
    [[nodiscard]] bool readsPagesAt(qint32 depth) const { return !maxDepth || depth < tiefe; }
    /// Makes a typed start URL the one that is searched, with "http://" in front unless it begins with exactly that,
    /// and tells whether the search can start. An invalid start URL stays as it was typed.
    [[nodiscard]] Confirmation confirm();
    /// Whether a confirmed start URL was typed with "https://", which makes "https" the name of the host.
    [[nodiscard]] bool takesHttpsForHost() const { return startUrl.startsWith("http://https:"); }
};
