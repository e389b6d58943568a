// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/BodyBuffer.h"
#include "crawl/HtmlPass.h"
#include "crawl/url.h"

#include <QByteArray>

#include <vector>

/// Which kinds of reference are looked for in a page.
struct AnalysisSwitches {
    bool anchors = true;
    bool links = true;
    bool allSrc = false; ///< takes the place of `frames` and `images`
    bool frames = true;
    bool images = true;
    bool forms = false;
};

/// A reference that a page holds.
struct Verweis {
    QByteArray adresse; ///< resolved against the page
    ReferenzTyp typ = ReferenzTyp::Unbekannt;
};

/// Pulls the references out of an HTML page, one kind after the other: anchors, links, then any src or frames and
/// images, then form actions, each kind in the order of the page. A call scans a bounded number of bytes, and the whole
/// analysis scans each byte a fixed number of times, whatever the page.
class HtmlAnalysis {
public:
    enum class Step {
        Reference, ///< `reference` is the next one
        Pause, ///< nothing found in this step's share of the page; call again
        End,
    };

    /// What one step may scan: a tenth of a millisecond's work on most pages, some two milliseconds' on the worst.
    static constexpr qsizetype bytesPerStep = 64 * 1024;

    /// `pageUrl` is the normalised URL of the page that `body` was loaded from.
    HtmlAnalysis(BodyBuffer body, const QByteArray& pageUrl, const AnalysisSwitches& switches);
    Q_DISABLE_COPY_MOVE(HtmlAnalysis)

    /// Scans no more than so many bytes.
    [[nodiscard]] Step next(qsizetype bytes = bytesPerStep);
    [[nodiscard]] const Verweis& reference() const { return m_reference; }

private:
    BodyBuffer m_body;
    url::Base m_base;
    TagIndex m_namedTags;
    TagIndex m_anyTags; ///< apart, since it would keep the place of each "<" for its turn
    std::vector<HtmlPass> m_passes;
    size_t m_pass = 0;
    Verweis m_reference;
};
