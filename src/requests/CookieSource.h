// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/UnusableLines.h"
#include "requests/CookieStore.h"

#include <functional>
#include <optional>

class QFile;

/// A cookie as a browser holds it, with the host or the domain that it recorded.
struct ForeignCookie {
    QByteArray host;
    Cookie cookie;
    bool isSecure = false; ///< the browser sends it over https only
    qint64 expiry = 0; ///< in seconds since 1970; 0 or less when the cookie has no such time
};

/// Why cookies of a browser could not be imported.
struct ImportError {
    enum Where {
        NoStore, ///< there is no such browser here
        TooLarge, ///< the file named by `text` is larger than a browser's would be
        NotAFile, ///< `text` is the path of a folder, a pipe or a device
        NotCookies, ///< the file named by `text` holds nothing that looks like a cookie
        Json, ///< the file named by `text` is JSON, as some exporters write it
        Chromium, ///< the file named by `text` is the database of Chromium or a browser made from it
        File, ///< the file cannot be read: `text` is its name and the system's error text
        Database, ///< `text` is the error text of the database library and the file's name
        CookieFile, ///< the program's own file for the host `text` cannot be written
    };
    Where where;
    QString text;
};

/// Lines of a browser's file that do not hold a usable cookie.
struct PassedOver {
    QString fileName;
    UnusableLines lines;
};

/// The cookies of a browser, read in small steps.
class CookieSource {
public:
    virtual ~CookieSource() = default;

    using Take = std::function<void(const ForeignCookie& cookie)>;

    /// Does one small piece of reading, and calls `take` if it completed a cookie. False at the end.
    [[nodiscard]] virtual bool read(const Take& take) = 0;
    /// The first failure. Cookies may be missing after one.
    [[nodiscard]] const std::optional<ImportError>& error() const { return m_error; }
    /// The lines without a usable cookie, of the first file that has any.
    [[nodiscard]] const PassedOver& passedOver() const { return m_passedOver; }

protected:
    /// In bytes. The cookie files of browsers are far smaller.
    static constexpr qint64 largestFile = 64 * 1024 * 1024;

    /// Opens an ordinary file that is not too large. False after a failure.
    [[nodiscard]] bool open(QFile& file);
    /// Whether a file goes on with JSON. Neither a "cookies.txt" nor a database begins with a bracket.
    [[nodiscard]] static bool isJson(QFile& file);
    void fail(ImportError::Where where, const QString& text);
    void passOver(const QString& fileName, qint64 line);

private:
    std::optional<ImportError> m_error;
    PassedOver m_passedOver;
};
