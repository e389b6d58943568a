// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/folders.h"

#include "base/Platform.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace allgemein {

QString withTrailingSeparator(const QString& folder)
{
    const QChar separator = QDir::separator();
    return folder.endsWith(separator) || folder.endsWith(u'/') ? folder : folder + separator;
}

void createFolder(const QString& folder)
{
    QDir().mkpath(folder);
}

bool isPlainFileName(QByteArrayView name)
{
    constexpr QByteArrayView separators("/\\\0", 3);
    const auto separates = [&](char c) {
        return separators.contains(c);
    };
    return !name.isEmpty() && name != "." && name != ".." && std::none_of(name.begin(), name.end(), separates)
        && !platform::isReservedFileName(name);
}

bool isOrdinaryFile(const QString& path)
{
    const QFileInfo there(path);
    return there.isFile() && !platform::isReservedFileName(there.fileName().toUtf8());
}

bool canBeReplaced(const QString& path)
{
    const QFileInfo there(path);
    return isOrdinaryFile(path) || !(there.exists() || platform::isReservedFileName(there.fileName().toUtf8()));
}

QString dataFolder()
{
    if (const QString chosen = qEnvironmentVariable("TARNWICK_DATA"); !chosen.isEmpty())
        return withTrailingSeparator(chosen);
    const QString program = withTrailingSeparator(QDir::toNativeSeparators(QCoreApplication::applicationDirPath()));
    const bool isPortable = QFileInfo::exists(program + QLatin1String("portable.txt"));
    const QString above = isPortable ? program : withTrailingSeparator(platform::applicationDataFolder());
    return withTrailingSeparator(above + QLatin1String("Tarnwick"));
}

} // namespace allgemein
