// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ViewState.h"

#include "base/allgemein.h"

#include <QFile>
#include <QFileInfo>
#include <QSettings>

namespace {

const QString mainPlaceKey = QStringLiteral("main/place");
const QString columnsKey = QStringLiteral("main/columns");
const QString downloadsPlaceKey = QStringLiteral("DLManager/place");
const QString downloadsColumnsKey = QStringLiteral("DLManager/columns");
const QString unlistedTypesKey = QStringLiteral("filter/unlistedTypes");
const QString builtInLanguageKey = QStringLiteral("language/builtIn");

QString fileName()
{
    return allgemein::dataFolder() + QLatin1String("views.ini");
}

std::optional<QPoint> pointFrom(const QVariant& value)
{
    return value.canConvert<QPoint>() ? std::optional(value.toPoint()) : std::nullopt;
}

QVariant variantOf(const std::optional<QPoint>& point)
{
    return point ? QVariant(*point) : QVariant();
}

/// Whether the library can read and replace the file: a pipe would wait for a writer, and a device may never end.
bool isUsable()
{
    constexpr qint64 largest = 16 * 1024 * 1024;
    const QFileInfo file(fileName());
    return !file.exists() || (file.isFile() && file.size() <= largest);
}

} // namespace

ViewState ViewState::load()
{
    if (!isUsable())
        return {};
    const QSettings file(fileName(), QSettings::IniFormat);
    ViewState state;
    state.mainPlace = pointFrom(file.value(mainPlaceKey));
    state.columns = file.value(columnsKey).toByteArray();
    state.downloadsPlace = pointFrom(file.value(downloadsPlaceKey));
    state.downloadsColumns = file.value(downloadsColumnsKey).toByteArray();
    for (const QString& type : file.value(unlistedTypesKey).toStringList())
        state.unlistedTypes += type.toLatin1();
    if (const QVariant language = file.value(builtInLanguageKey); language.isValid())
        state.builtInLanguage = language.toInt();
    return state;
}

void ViewState::save() const
{
    if (!isUsable())
        return;
    QStringList types;
    for (const QByteArray& type : unlistedTypes)
        types += QString::fromLatin1(type);
    // A program that is killed leaves its lock behind, and this one would wait half a minute for it to be given back.
    QFile::remove(fileName() + QLatin1String(".lock"));
    QSettings file(fileName(), QSettings::IniFormat);
    file.setValue(mainPlaceKey, variantOf(mainPlace));
    file.setValue(columnsKey, columns);
    file.setValue(downloadsPlaceKey, variantOf(downloadsPlace));
    file.setValue(downloadsColumnsKey, downloadsColumns);
    file.setValue(unlistedTypesKey, types);
    file.setValue(builtInLanguageKey, builtInLanguage ? QVariant(*builtInLanguage) : QVariant());
}
