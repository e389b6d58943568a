// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/FundListe.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QFile>

#include <algorithm>

/// The URLs of a list in its order.
inline QByteArrayList urlsOf(const FundListe& list)
{
    QByteArrayList urls;
    for (const FundKnoten* node = list.getStart(); node; node = node->naechster())
        urls += node->inhalt.adresse;
    return urls;
}

/// A sorted copy, for comparing what happens in no certain order.
inline QByteArrayList sorted(QByteArrayList list)
{
    std::sort(list.begin(), list.end());
    return list;
}

/// The whole file; null when it cannot be read.
inline QByteArray contentOf(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Writes a file anew; false when that fails.
inline bool writeFile(const QString& fileName, const QByteArray& content)
{
    QFile file(fileName);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}
