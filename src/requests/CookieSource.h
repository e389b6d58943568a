// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/UnusableLines.h"
#include "requests/CookieStore.h"

#include <functional>
#include <optional>

/// A cookie as a browser holds it, with the host or the domain that it recorded.
struct ForeignCookie {
    QByteArray host;
    Cookie cookie;
};

/// Why not all cookies of a browser could be had.
struct ImportError {
    enum Where {
        NoStore, ///< there is no such browser here
        TooLarge, ///< `text` names a file that is larger than a browser's would be
        NotCookies, ///< `text` names a file in which nothing looks like a cookie
        File, ///< `text` names the file, and says what the system says of it
        Database, ///< `text` is what the database library says, and the file
        CookieFile, ///< of the host `text`: the program's own, which cannot be written
    };
    Where where;
    QString text;
};

/// Lines of a browser's file that hold something else than a cookie.
struct PassedOver {
    QString fileName;
    UnusableLines lines;
};

/// The cookies of a browser, read in small steps.
class CookieSource {
public:
    virtual ~CookieSource() = default;

    using Take = std::function<void(const ForeignCookie& cookie)>;

    /// Reads on, and hands the next cookie to `take` if it has come to one. False at the end.
    [[nodiscard]] virtual bool read(const Take& take) = 0;
    /// The first failure, which may have left cookies out.
    [[nodiscard]] const std::optional<ImportError>& error() const { return m_error; }
    /// What was passed over in the first file in which anything was.
    [[nodiscard]] const PassedOver& passedOver() const { return m_passedOver; }

protected:
    /// In bytes. No file of a browser with cookies in it comes near.
    static constexpr qint64 largestFile = 64 * 1024 * 1024;

    void fail(ImportError::Where where, const QString& text)
    {
        if (!m_error)
            m_error = { where, text };
    }

    void passOver(const QString& fileName, qint64 line)
    {
        if (m_passedOver.lines.isEmpty())
            m_passedOver.fileName = fileName;
        if (m_passedOver.fileName == fileName)
            m_passedOver.lines.add(line);
    }

private:
    std::optional<ImportError> m_error;
    PassedOver m_passedOver;
};
