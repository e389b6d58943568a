// SPDX-License-Identifier: GPL-3.0-or-later
#include "crawl/SearchOptions.h"

#include "base/StoredSetting.h"
#include "base/allgemein.h"
#include "http/url.h"

#include <QStringBuilder>

#include <algorithm>
#include <array>
#include <limits>

namespace {

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

void readFollowMode(SearchOptions& options, const QByteArray& value)
{
    options.followSub = followModeFrom(value);
}

QByteArrayList followModeValues(const SearchOptions& options)
{
    const bool isDefault = options.followSub == FollowMode::All;
    return isDefault ? QByteArrayList() : QByteArrayList { QByteArray::number(static_cast<int>(options.followSub)) };
}

void readSubUrl(SearchOptions& options, const QByteArray& value)
{
    if (options.unterpfade.size() < SearchOptions::mostSubUrls)
        options.unterpfade.push_back(SubUrl::fromText(value));
}

QByteArrayList subUrlValues(const SearchOptions& options)
{
    QByteArrayList values;
    for (const SubUrl& entry : options.unterpfade)
        values += entry.text;
    return values;
}

/// Leads to a switch of the analysis.
constexpr auto analysed = [](bool AnalysisSwitches::*on) {
    return [on](auto& options) -> auto&
    {
        return options.analysis.*on;
    };
};

using Row = StoredSetting<SearchOptions>;

const std::array rows {
    Row::text("StartUrl", &SearchOptions::startUrl),
    Row::onOff("MaxDepth", &SearchOptions::maxDepth),
    Row::number("Depth", &SearchOptions::tiefe, std::numeric_limits<qint32>::min()),
    Row { "FollowSub", &readFollowMode, &followModeValues },
    Row { "Sub", &readSubUrl, &subUrlValues },
    Row::onOff("AnalyseAnchors", analysed(&AnalysisSwitches::anchors)),
    Row::onOff("AnalyseLink", analysed(&AnalysisSwitches::links)),
    Row::onOff("AnalyseAllSrc", analysed(&AnalysisSwitches::allSrc)),
    Row::onOff("AnalyseFrames", analysed(&AnalysisSwitches::frames)),
    Row::onOff("AnalyseEPic", analysed(&AnalysisSwitches::images)),
    Row::onOff("AnalyseForms", analysed(&AnalysisSwitches::forms)),
};

} // namespace

bool SearchOptions::initOpt(const QByteArray& key, const QByteArray& value)
{
    return readSetting(*this, rows, key, value);
}

void SearchOptions::speicherOpts(QIODevice& file) const
{
    writeSettings(file, *this, rows);
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
    // Sub-URLs to stay outside of do not bound a search: the rest of the web is left.
    return maxDepth || followSub == FollowMode::Inside ? Confirmation::Limited : Confirmation::Unlimited;
}
