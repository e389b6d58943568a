// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/lang.h"
#include "fuzz/fuzz.h"
#include "requests/CookieImport.h"
#include "requests/ImportReport.h"

#include <QDir>
#include <QDirIterator>

/// Takes the cookies of a source over, which can be no more than `most`. Every line that is stored is one of a cookie.
inline void importAll(std::unique_ptr<CookieSource> source, qint64 most)
{
    static const LanguageTable language;
    const QString folder = fileNamed("cookies");
    CookieStore store;
    store.setCookieFolder(folder);
    CookieImport cookies(std::move(source), store, CookieImport::Taking::All);
    // A step reads a line or a file, or stores the cookies of a host.
    qint64 stepsLeft = 10 + 2 * most;
    while (cookies.step())
        require(--stepsLeft > 0, "an import ends");
    require(cookies.count().stored <= most, "no cookie comes from nowhere");
    (void)importReport::box(cookies, language);

    qint64 stored = 0;
    for (QDirIterator files(folder, QDir::Files | QDir::Hidden); files.hasNext();) {
        const QByteArray content = contentOf(files.next());
        stored += content.count('\n');
        require(content.count('\t') == 2 * content.count('\n') && content.count("\r\n") == content.count('\r')
                && !content.contains('\0'),
            "each line that is stored is a cookie");
    }
    require(stored <= cookies.count().stored, "what is stored was counted");
    require(store.deleteAll().isEmpty(), "all cookies can be deleted");
}
