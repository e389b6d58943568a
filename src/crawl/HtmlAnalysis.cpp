// SPDX-License-Identifier: GPL-3.0-or-later
#include "crawl/HtmlAnalysis.h"

#include "crawl/url.h"

#include <utility>

namespace {

constexpr PassRule anchors { "<a ", " href", ReferenzTyp::Anchor };
constexpr PassRule links { "<link ", " href", ReferenzTyp::Link };
constexpr PassRule anySrc { "<", " src", ReferenzTyp::AnySrc };
constexpr PassRule frames { "<frame ", " src", ReferenzTyp::Frame };
constexpr PassRule images { "<img ", " src", ReferenzTyp::Img };
/// Form actions have no type of their own.
constexpr PassRule forms { "<form ", " action", ReferenzTyp::Anchor };

std::vector<HtmlPass> passesFor(const AnalysisSwitches& switches)
{
    std::vector<HtmlPass> passes;
    const auto add = [&](bool on, const PassRule& rule) {
        if (on)
            passes.emplace_back(rule);
    };
    add(switches.anchors, anchors);
    add(switches.links, links);
    add(switches.allSrc, anySrc);
    add(switches.frames && !switches.allSrc, frames);
    add(switches.images && !switches.allSrc, images);
    add(switches.forms, forms);
    return passes;
}

} // namespace

HtmlAnalysis::HtmlAnalysis(BodyBuffer body, QByteArray pageUrl, const AnalysisSwitches& switches)
    : m_body(std::move(body))
    , m_pageUrl(std::move(pageUrl))
    , m_passes(passesFor(switches))
{
}

HtmlAnalysis::Step HtmlAnalysis::next()
{
    if (!m_body.join())
        return Step::Pause;
    ScanBudget budget(bytesPerStep);
    for (; m_pass < m_passes.size(); ++m_pass) {
        HtmlPass& pass = m_passes[m_pass];
        switch (pass.next(m_body.text(), budget)) {
        case HtmlPass::Step::Value:
            m_reference = { url::resolveReference(m_pageUrl, pass.value().toByteArray()), pass.typ() };
            return Step::Reference;
        case HtmlPass::Step::Pause:
            return Step::Pause;
        case HtmlPass::Step::End:
            break;
        }
    }
    return Step::End;
}
