// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/WindowLayout.h"

#include "base/allgemein.h"

#include <QSettings>

namespace {

const QString geometryKey = QStringLiteral("main/geometry");
const QString splitterKey = QStringLiteral("main/splitter");
const QString columnsKey = QStringLiteral("main/columns");

QString fileName()
{
    return allgemein::dataFolder() + QLatin1String("layout.ini");
}

} // namespace

WindowLayout WindowLayout::load()
{
    const QSettings file(fileName(), QSettings::IniFormat);
    return { file.value(geometryKey).toByteArray(), file.value(splitterKey).toByteArray(),
        file.value(columnsKey).toByteArray() };
}

void WindowLayout::save() const
{
    QSettings file(fileName(), QSettings::IniFormat);
    file.setValue(geometryKey, geometry);
    file.setValue(splitterKey, splitter);
    file.setValue(columnsKey, columns);
}
