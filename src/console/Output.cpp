// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/Output.h"

#include "base/allgemein.h"
#include "base/lang.h"
#include "console/Terminal.h"
#include "requests/CookieStore.h"
#include "results/twk.h"

#include <QDir>
#include <QFile>
#include <QTextStream>

#include <cstdio>

void complain(const QString& text)
{
    QTextStream(stderr) << QLatin1String("tarnwick-cli: ") << terminal::printable(text) << Qt::endl;
}

void reportFailure(const QByteArray& url, const QString& reason)
{
    QTextStream(stderr) << terminal::printable(allgemein::fromSystem(url) + QLatin1String(": ") + reason) << Qt::endl;
}

void complainOfCookies(const CookieStore& cookies, const LanguageTable& language)
{
    complain(language.text("more.cookiesNotStored") + u' ' + QDir::toNativeSeparators(cookies.folder()));
}

void complainOfSkippedLines(
    const QString& fileName, const searchFile::LoadResult& result, const LanguageTable& language)
{
    for (const searchFile::SkippedLine& line : result.skipped) {
        complain(
            QStringLiteral("%1:%2: %3").arg(fileName, QString::number(line.number), twk::warningText(line, language)));
    }
    if (const qint64 more = result.skippedCount - result.skipped.size(); more > 0)
        complain(fileName + QLatin1String(": ") + language.text("more.andMore").arg(more));
}

bool printToStandardOutput(const std::function<void(QIODevice&)>& write)
{
    QFile out;
    bool complete = out.open(stdout, QIODevice::WriteOnly);
    if (complete) {
        write(out);
        complete = out.flush() && out.error() == QFile::NoError;
    }
    if (!complete)
        complain(QStringLiteral("standard output: ") + out.errorString());
    return complete;
}
