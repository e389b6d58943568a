// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/WindowLayout.h"

#include "base/allgemein.h"

#include <QSettings>

namespace {

const QString geometryKey = QStringLiteral("main/geometry");
const QString splitterKey = QStringLiteral("main/splitter");
const QString columnsKey = QStringLiteral("main/columns");
const QString downloadsGeometryKey = QStringLiteral("DLManager/geometry");
const QString downloadsColumnsKey = QStringLiteral("DLManager/columns");

QString fileName()
{
    return allgemein::dataFolder() + QLatin1String("layout.ini");
}

} // namespace

WindowLayout WindowLayout::load()
{
    const QSettings file(fileName(), QSettings::IniFormat);
    return { file.value(geometryKey).toByteArray(), file.value(splitterKey).toByteArray(),
        file.value(columnsKey).toByteArray(), file.value(downloadsGeometryKey).toByteArray(),
        file.value(downloadsColumnsKey).toByteArray() };
}

void WindowLayout::save() const
{
    QSettings file(fileName(), QSettings::IniFormat);
    file.setValue(geometryKey, geometry);
    file.setValue(splitterKey, splitter);
    file.setValue(columnsKey, columns);
    file.setValue(downloadsGeometryKey, downloadsGeometry);
    file.setValue(downloadsColumnsKey, downloadsColumns);
}
