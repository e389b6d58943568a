// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Messages.h"
#include "requests/CookieStore.h"

#include <QHash>

#include <memory>
#include <optional>

class LanguageTable;

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
        File, ///< `text` names the file, and says what the system says of it
        Database, ///< `text` is what the database library says, and the file
        CookieFile, ///< of the host `text`: the program's own, which cannot be written
    };
    Where where;
    QString text;
};

/// The cookies of a browser, one after the other.
class CookieSource {
public:
    virtual ~CookieSource() = default;

    /// The next cookie; nothing at the end.
    [[nodiscard]] virtual std::optional<ForeignCookie> next() = 0;
    /// The first failure, which may have left cookies out.
    [[nodiscard]] const std::optional<ImportError>& error() const { return m_error; }

protected:
    /// In bytes. No file of a browser with cookies in it comes near.
    static constexpr qint64 largestFile = 256 * 1024 * 1024;

    void fail(ImportError::Where where, const QString& text)
    {
        if (!m_error)
            m_error = { where, text };
    }

private:
    std::optional<ImportError> m_error;
};

/// Copies a browser's cookies into the store, in steps with room for other events between them. Cookies that the store
/// cannot hold are passed over. After a failure, whatever else could be had is stored.
class CookieImport {
public:
    /// `store` must outlive the import.
    CookieImport(std::unique_ptr<CookieSource> source, const CookieStore& store);

    /// Works for about so many milliseconds; true when all is done.
    [[nodiscard]] bool runFor(int milliseconds);

    /// How many cookies were taken over.
    [[nodiscard]] qint64 count() const { return m_count; }
    [[nodiscard]] const std::optional<ImportError>& error() const { return m_error; }

private:
    [[nodiscard]] bool readNext();
    [[nodiscard]] bool storeNext();

    std::unique_ptr<CookieSource> m_source; ///< none when all is read
    const CookieStore& m_store;
    QHash<QByteArray, QList<Cookie>> m_cookies; ///< by host, those that are not stored yet
    qint64 m_count = 0;
    std::optional<ImportError> m_error;
};

namespace cookieImport {

/// What is said at the end of an import: the count, or what failed and the count of what was taken over nevertheless.
[[nodiscard]] Messages::Box report(
    qint64 count, const std::optional<ImportError>& error, const LanguageTable& language);

/// The reader for a file that is a Firefox database or a "cookies.txt", told apart by its beginning.
[[nodiscard]] std::unique_ptr<CookieSource> sourceFor(const QString& fileName);

} // namespace cookieImport
