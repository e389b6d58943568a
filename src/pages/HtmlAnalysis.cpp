// SPDX-License-Identifier: GPL-3.0-or-later
#include "pages/HtmlAnalysis.h"

#include <utility>

namespace {

constexpr PassRule anchors { "<a ", " href", ReferenceType::Anchor };
constexpr PassRule links { "<link ", " href", ReferenceType::Link };
constexpr PassRule anySrc { "<", " src", ReferenceType::AnySrc };
constexpr PassRule frames { "<frame ", " src", ReferenceType::Frame };
constexpr PassRule images { "<img ", " src", ReferenceType::Img };
/// Form actions have no type of their own.
constexpr PassRule forms { "<form ", " action", ReferenceType::Anchor };

} // namespace

HtmlAnalysis::HtmlAnalysis(BodyBuffer body, const QByteArray& pageUrl, const AnalysisSwitches& switches)
    : m_body(std::move(body))
    , m_base(pageUrl)
{
    const auto add = [this](bool on, const PassRule& rule, TagIndex& tags) {
        if (on)
            m_passes.emplace_back(rule, tags);
    };
    add(switches.anchors, anchors, m_namedTags);
    add(switches.links, links, m_namedTags);
    add(switches.allSrc, anySrc, m_anyTags);
    add(switches.frames && !switches.allSrc, frames, m_namedTags);
    add(switches.images && !switches.allSrc, images, m_namedTags);
    add(switches.forms, forms, m_namedTags);
}

HtmlAnalysis::Step HtmlAnalysis::next(qsizetype bytes)
{
    if (!m_body.join())
        return Step::Pause;
    ScanBudget budget(bytes);
    for (; m_pass < m_passes.size(); ++m_pass) {
        HtmlPass& pass = m_passes[m_pass];
        switch (pass.next(m_body.text(), budget)) {
        case HtmlPass::Step::Value:
            m_reference = { m_base.resolved(pass.value()), pass.type() };
            return Step::Reference;
        case HtmlPass::Step::Pause:
            return Step::Pause;
        case HtmlPass::Step::End:
            break;
        }
    }
    return Step::End;
}
