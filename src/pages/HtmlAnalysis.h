// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "http/BodyBuffer.h"
#include "http/url.h"
#include "pages/HtmlPass.h"

#include <QByteArray>

#include <vector>

/// Which kinds of reference are looked for in a page.
struct AnalysisSwitches {
    bool anchors = true;
    bool links = true;
    bool allSrc = false; ///< replaces `frames` and `images`
    bool frames = true;
    bool images = true;
    bool forms = false;
};

/// A reference that a page holds.
struct PageReference {
    QByteArray url; ///< resolved against the page
    ReferenceType type = ReferenceType::Unknown;
};

/// Pulls the references out of an HTML page, one kind after the other: anchors, links, then any src or frames and
/// images, then form actions, each kind in the order of the page. A call scans a bounded number of bytes, and the whole
/// analysis scans each byte a fixed number of times, whatever the page.
class HtmlAnalysis {
public:
    enum class Step {
        Reference, ///< `reference` is the next one
        Pause, ///< this step has scanned its share of the page; call again
        End,
    };

    /// What one step may scan: a tenth of a millisecond's work on most pages, some two milliseconds' on the worst.
    static constexpr qsizetype bytesPerStep = 64 * 1024;

    /// `pageUrl` is the normalised URL of the page that `body` was loaded from.
    HtmlAnalysis(BodyBuffer body, const QByteArray& pageUrl, const AnalysisSwitches& switches);
    Q_DISABLE_COPY_MOVE(HtmlAnalysis)

    /// Scans no more than so many bytes.
    [[nodiscard]] Step next(qsizetype bytes = bytesPerStep);
    [[nodiscard]] const PageReference& reference() const { return m_reference; }

private:
    BodyBuffer m_body;
    url::Base m_base;
    TagIndex m_namedTags;
    TagIndex m_anyTags; ///< a second one, since `m_namedTags` would have to keep the place of every "<"
    std::vector<HtmlPass> m_passes;
    size_t m_pass = 0;
    PageReference m_reference;
};
