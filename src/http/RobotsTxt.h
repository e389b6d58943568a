// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>

#include <chrono>
#include <optional>

/// The rules that a server's robots.txt has for one program, read by RFC 9309. A value: two hosts have two of them.
class RobotsTxt {
public:
    /// In bytes. What follows in a file is not read.
    static constexpr qsizetype longest = 500 * 1024;
    /// The longest pause between two requests that a file can ask for.
    static constexpr std::chrono::seconds longestDelay { 60 };

    /// Without rules: everything is allowed.
    RobotsTxt() = default;

    /// `productToken` is the program's name, without a version. Any bytes can be read.
    [[nodiscard]] static RobotsTxt parse(QByteArrayView body, QByteArrayView productToken);
    /// The rules that follow from an answer to the request for the file, after its redirections. Nothing as the status
    /// means that no answer came. A file that is missing allows everything; a server that fails allows nothing.
    [[nodiscard]] static RobotsTxt fromAnswer(
        std::optional<qint32> status, QByteArrayView body, QByteArrayView productToken);

    /// Whether the program may fetch a URL of the server; `pathAndQuery` is the URL from its first slash on, without a
    /// fragment.
    [[nodiscard]] bool allows(QByteArrayView pathAndQuery) const;
    /// The pause between two requests that the file asks for.
    [[nodiscard]] std::optional<std::chrono::milliseconds> crawlDelay() const { return m_crawlDelay; }

private:
    struct Rule {
        QByteArray pattern; ///< normalised, "*" and a "$" at the end have their special meaning
        bool allows;
    };
    class Reader;

    QList<Rule> m_rules; ///< the longest first, of equal ones those that allow
    qsizetype m_wildcardRules = 0; ///< how many of them contain "*"
    std::optional<std::chrono::milliseconds> m_crawlDelay;
};
