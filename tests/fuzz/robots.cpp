// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/fuzz.h"
#include "http/RobotsTxt.h"

/// Input: a path in the first line, then a robots.txt.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const QByteArray path = input.line();
    const QByteArray& file = input.rest();
    const auto robots = RobotsTxt::parse(file, "Tarnwick");
    require(robots.allows("/robots.txt"), "the file itself is allowed");
    const auto delay = robots.crawlDelay().value_or(std::chrono::milliseconds(0));
    require(delay.count() >= 0 && delay <= RobotsTxt::longestDelay, "a delay is in bounds");

    const bool allows = robots.allows(path);
    if (file.size() < RobotsTxt::longest / 2) {
        const QByteArray otherEnds = QByteArray(file).replace('\n', "\r\n");
        require(RobotsTxt::parse(otherEnds, "TARNWICK").allows(path) == allows, "line ends and case do not matter");
        const QByteArray longer = file + "\nDisallow:\nUser-agent: o\nDisallow: /\n";
        require(
            RobotsTxt::parse(longer, "Tarnwick").allows(path) == allows, "a group of another program changes nothing");
    }
    return 0;
}
