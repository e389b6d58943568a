// SPDX-License-Identifier: GPL-3.0-or-later
#include "crawl/SearchOptions.h"

#include "base/SwitchKeys.h"
#include "base/allgemein.h"
#include "crawl/url.h"

#include <QStringBuilder>

#include <algorithm>

namespace {

/// In the order in which files hold them.
constexpr std::array switchKeys {
    SwitchKey<AnalysisSwitches> { "AnalyseAnchors", &AnalysisSwitches::anchors },
    SwitchKey<AnalysisSwitches> { "AnalyseLink", &AnalysisSwitches::links },
    SwitchKey<AnalysisSwitches> { "AnalyseAllSrc", &AnalysisSwitches::allSrc },
    SwitchKey<AnalysisSwitches> { "AnalyseFrames", &AnalysisSwitches::frames },
    SwitchKey<AnalysisSwitches> { "AnalyseEPic", &AnalysisSwitches::images },
    SwitchKey<AnalysisSwitches> { "AnalyseForms", &AnalysisSwitches::forms },
};

FollowMode followModeFrom(const QByteArray& value)
{
    switch (allgemein::leadingNumber(value)) {
    case 1:
        return FollowMode::Inside;
    case 2:
        return FollowMode::Outside;
    default:
        return FollowMode::All;
    }
}

void takeSub(std::vector<SubUrl>& list, const QByteArray& value)
{
    if (list.size() < SearchOptions::mostSubUrls)
        list.push_back(SubUrl::fromText(value));
}

} // namespace

bool SearchOptions::initOpt(const QByteArray& key, const QByteArray& value)
{
    if (key == "StartUrl")
        startUrl = value;
    else if (key == "MaxDepth")
        maxDepth = allgemein::readSwitch(value);
    else if (key == "Depth")
        tiefe = allgemein::leadingNumber32(value);
    else if (key == "FollowSub")
        followSub = followModeFrom(value);
    else if (key == "Sub")
        takeSub(unterpfade, value);
    else
        return readSwitchKey(analysis, switchKeys, key, value);
    return true;
}

void SearchOptions::speicherOpts(QIODevice& file) const
{
    using allgemein::writeKeyValue;
    using allgemein::writeSwitch;
    writeKeyValue(file, "StartUrl", startUrl);
    writeKeyValue(file, "MaxDepth", writeSwitch(maxDepth));
    writeKeyValue(file, "Depth", QByteArray::number(tiefe));
    if (followSub != FollowMode::All)
        writeKeyValue(file, "FollowSub", QByteArray::number(static_cast<int>(followSub)));
    for (const SubUrl& entry : unterpfade)
        writeKeyValue(file, "Sub", entry.text);
    for (const auto& entry : switchKeys)
        writeKeyValue(file, entry.key, writeSwitch(analysis.*(entry.member)));
}

bool SearchOptions::follows(const QByteArray& url) const
{
    if (followSub == FollowMode::All)
        return true;
    const QByteArray recorded = allgemein::onOneLine(url);
    const bool inside =
        std::any_of(unterpfade.begin(), unterpfade.end(), [&](const SubUrl& entry) { return entry.matches(recorded); });
    return inside == (followSub == FollowMode::Inside);
}

Confirmation SearchOptions::confirm()
{
    const QByteArray url = startUrl.startsWith("http://") ? startUrl : "http://" + startUrl;
    if (!url::isValidUrl(url) || url.size() > url::longest)
        return Confirmation::InvalidStartUrl;
    startUrl = url;
    // Staying outside of sub-URLs leaves the rest of the web.
    return maxDepth || followSub == FollowMode::Inside ? Confirmation::Limited : Confirmation::Unlimited;
}
