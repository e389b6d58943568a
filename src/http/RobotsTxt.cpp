// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/RobotsTxt.h"

#include "base/allgemein.h"

#include <algorithm>
#include <cmath>

namespace {

/// A rule with "*" walks along the whole path. No real site needs more than a hundredth of this product of rules and
/// bytes, which takes some milliseconds.
constexpr qsizetype mostSteps = 16 * 1024 * 1024;

constexpr QByteArrayView utf8Mark = "\xEF\xBB\xBF";
constexpr QByteArrayView anyProgram = "*";

bool equalsNoCase(QByteArrayView a, QByteArrayView b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

/// The value of a hexadecimal digit, or -1.
int digitValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    const char small = allgemein::lower(c);
    return small >= 'a' && small <= 'f' ? small - 'a' + 10 : -1;
}

/// The byte for which "%XX" at the beginning of `text` stands, or -1.
int encodedByte(QByteArrayView text)
{
    if (text.size() < 3 || text[0] != '%')
        return -1;
    const int high = digitValue(text[1]);
    const int low = digitValue(text[2]);
    return high < 0 || low < 0 ? -1 : high * 16 + low;
}

bool isUnreserved(char c)
{
    const char small = allgemein::lower(c);
    return (small >= 'a' && small <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '.' || c == '_' || c == '~';
}

void appendEncoded(QByteArray& text, char byte)
{
    static constexpr char digits[] = "0123456789ABCDEF";
    const auto value = static_cast<quint8>(byte);
    text += '%';
    text += digits[value >> 4];
    text += digits[value & 15];
}

/// The one way to write a path: unreserved bytes as they are, bytes beyond ASCII and those of `special` encoded. Other
/// ASCII bytes differ from their encoded form, except "/" and ":" in a query, where they separate nothing.
QByteArray normalised(QByteArrayView text, QByteArrayView special)
{
    QByteArray result;
    result.reserve(text.size());
    bool isInQuery = false;
    while (!text.isEmpty()) {
        const int encoded = encodedByte(text);
        const char byte = encoded < 0 ? text.front() : static_cast<char>(encoded);
        const bool staysEncoded = encoded >= 0 && !isUnreserved(byte) && !(isInQuery && (byte == '/' || byte == ':'));
        if (staysEncoded || static_cast<quint8>(byte) >= 0x80 || special.contains(byte))
            appendEncoded(result, byte);
        else
            result += byte;
        isInQuery = isInQuery || text.front() == '?';
        text = text.sliced(encoded < 0 ? 1 : 3);
    }
    return result;
}

/// As `normalised`; "*" and a "$" at the end stay special, and several "*" become one.
QByteArray normalisedPattern(QByteArrayView pattern)
{
    const bool isAnchored = pattern.endsWith('$');
    QByteArray result = normalised(isAnchored ? pattern.chopped(1) : pattern, "$");
    const auto end = std::unique(result.begin(), result.end(), [](char a, char b) { return a == '*' && b == '*'; });
    result.resize(end - result.begin());
    return isAnchored ? result + '$' : result;
}

/// Takes for each part between two "*" the first place where it stands. A later place could only leave less for the
/// other parts, so nothing is ever tried twice.
bool matches(QByteArrayView pattern, QByteArrayView path)
{
    const bool isAnchored = pattern.endsWith('$');
    if (isAnchored)
        pattern.chop(1);
    qsizetype star = pattern.indexOf('*');
    if (star < 0)
        return isAnchored ? path == pattern : path.startsWith(pattern);
    if (!path.startsWith(pattern.first(star)))
        return false;
    path = path.sliced(star);
    pattern = pattern.sliced(star + 1);
    while ((star = pattern.indexOf('*')) >= 0) {
        const qsizetype place = path.indexOf(pattern.first(star));
        if (place < 0)
            return false;
        path = path.sliced(place + star);
        pattern = pattern.sliced(star + 1);
    }
    return isAnchored ? path.endsWith(pattern) : path.contains(pattern);
}

/// Cuts the first line off `text`, and returns it without its end (CR, LF or both) and without a comment.
QByteArrayView takeLine(QByteArrayView& text)
{
    const auto end = std::find_if(text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n'; });
    const QByteArrayView line = text.first(end - text.begin());
    text = text.sliced(qMin(line.size() + 1, text.size()));
    const qsizetype comment = line.indexOf('#');
    return comment < 0 ? line : line.first(comment);
}

/// The name with which the value of a User-agent line begins: "Name" in "Name/1.0". "*" stands for itself.
QByteArrayView nameIn(QByteArrayView value)
{
    if (value == anyProgram)
        return value;
    const auto isPart = [](char c) {
        return isUnreserved(c) && c != '.' && c != '~';
    };
    return value.first(std::find_if_not(value.begin(), value.end(), isPart) - value.begin());
}

} // namespace

/// Reads a file line by line. Gathers the groups of the program and those of all programs side by side, since either
/// can come first.
class RobotsTxt::Reader {
public:
    explicit Reader(QByteArrayView productToken)
        : m_productToken(productToken)
    {
    }

    void read(QByteArrayView line)
    {
        const qsizetype colon = line.indexOf(':');
        if (colon < 0)
            return;
        const QByteArrayView key = line.first(colon).trimmed();
        const QByteArrayView value = line.sliced(colon + 1).trimmed();
        if (equalsNoCase(key, "user-agent"))
            readName(nameIn(value));
        else if (equalsNoCase(key, "allow") || equalsNoCase(key, "disallow"))
            readRule(value, equalsNoCase(key, "allow"));
        else if (equalsNoCase(key, "crawl-delay"))
            readDelay(value);
    }

    /// The rules for the program; those for all programs when no group names it.
    [[nodiscard]] RobotsTxt result()
    {
        RobotsTxt& robots = m_isNamed ? m_own : m_any;
        std::stable_sort(robots.m_rules.begin(), robots.m_rules.end(), [](const Rule& a, const Rule& b) {
            return a.pattern.size() != b.pattern.size() ? a.pattern.size() > b.pattern.size() : a.allows && !b.allows;
        });
        robots.m_wildcardRules = std::count_if(robots.m_rules.cbegin(), robots.m_rules.cend(),
            [](const Rule& rule) { return rule.pattern.contains('*'); });
        return robots;
    }

private:
    /// Only a rule ends the names at the head of a group: lines that RFC 9309 does not know must not.
    void readName(QByteArrayView name)
    {
        if (m_hasRule)
            m_isForOwn = m_isForAny = m_hasRule = false;
        m_isForAny = m_isForAny || name == anyProgram;
        m_isForOwn = m_isForOwn || equalsNoCase(name, m_productToken);
        m_isNamed = m_isNamed || m_isForOwn;
    }

    void readRule(QByteArrayView path, bool allows)
    {
        m_hasRule = true;
        if (path.isEmpty() || !(m_isForOwn || m_isForAny))
            return;
        const Rule rule { normalisedPattern(path), allows };
        if (m_isForOwn)
            m_own.m_rules += rule;
        if (m_isForAny)
            m_any.m_rules += rule;
    }

    /// Of several delays the longest holds.
    void readDelay(QByteArrayView text)
    {
        bool isNumber = false;
        const double seconds = text.toByteArray().toDouble(&isNumber);
        if (!isNumber || !std::isfinite(seconds) || seconds < 0)
            return;
        const std::chrono::milliseconds most = longestDelay;
        const std::chrono::milliseconds delay { seconds < longestDelay.count() ? std::llround(seconds * 1000)
                                                                               : most.count() };
        if (m_isForOwn)
            m_own.m_crawlDelay = qMax(delay, m_own.m_crawlDelay.value_or(delay));
        if (m_isForAny)
            m_any.m_crawlDelay = qMax(delay, m_any.m_crawlDelay.value_or(delay));
    }

    QByteArrayView m_productToken;
    RobotsTxt m_own;
    RobotsTxt m_any;
    bool m_isNamed = false; ///< some group names the program
    bool m_isForOwn = false; ///< the present group does
    bool m_isForAny = false; ///< the present group is for all programs
    bool m_hasRule = false; ///< the present group has a rule
};

RobotsTxt RobotsTxt::parse(QByteArrayView body, QByteArrayView productToken)
{
    // A rule that the limit cuts off would hold for too many paths.
    if (body.size() > longest) {
        body = body.first(longest);
        body = body.first(qMax(body.lastIndexOf('\n'), body.lastIndexOf('\r')) + 1);
    }
    if (body.startsWith(utf8Mark))
        body = body.sliced(utf8Mark.size());
    Reader reader(productToken);
    while (!body.isEmpty())
        reader.read(takeLine(body));
    return reader.result();
}

RobotsTxt RobotsTxt::fromAnswer(std::optional<qint32> status, QByteArrayView body, QByteArrayView productToken)
{
    if (status && *status >= 200 && *status < 300)
        return parse(body, productToken);
    RobotsTxt robots;
    // A redirection is left only after too many of them. Then the file counts as missing.
    if (!status || *status < 300 || *status >= 500)
        robots.m_rules = { { "/", false } };
    return robots;
}

bool RobotsTxt::allows(QByteArrayView pathAndQuery) const
{
    QByteArray path = normalised(pathAndQuery, "*$");
    if (!path.startsWith('/'))
        path.prepend('/');
    if (path == "/robots.txt")
        return true;
    if (m_wildcardRules > mostSteps / path.size())
        return false;
    const auto rule = std::find_if(
        m_rules.cbegin(), m_rules.cend(), [&](const Rule& candidate) { return matches(candidate.pattern, path); });
    return rule == m_rules.cend() || rule->allows;
}
