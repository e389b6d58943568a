// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Platform.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <memory>

#include <shlobj.h>
#include <windows.h>

namespace platform {

QString applicationDataFolder()
{
    PWSTR path = nullptr;
    const HRESULT result = SHGetKnownFolderPath(FOLDERID_RoamingAppData, 0, nullptr, &path);
    const std::unique_ptr<wchar_t, decltype(&CoTaskMemFree)> owner(path, &CoTaskMemFree);
    return SUCCEEDED(result) ? QDir::toNativeSeparators(QString::fromWCharArray(path)) : QString();
}

QString defaultDownloadFolder()
{
    return QStringLiteral("c:\\download");
}

bool isReservedFileName(QByteArrayView name)
{
    // Blanks and dots at the end of a name are passed over, so that nothing else may lead to the folder above.
    const auto isPassedOver = [](char c) {
        return c == '.' || c == ' ';
    };
    if (std::all_of(name.begin(), name.end(), isPassedOver))
        return true;
    // A device name keeps its meaning with any extension and with blanks behind it; a colon names a stream or a drive.
    static constexpr std::array devices { "CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$" };
    const QByteArray stem =
        name.first(name.indexOf('.') < 0 ? name.size() : name.indexOf('.')).toByteArray().toUpper().trimmed();
    // The small raised digits of the western code page count as well.
    constexpr QByteArrayView digits = "123456789\xb9\xb2\xb3";
    const bool port =
        stem.size() == 4 && (stem.startsWith("COM") || stem.startsWith("LPT")) && digits.contains(stem[3]);
    return name.contains(':') || port || std::find(devices.begin(), devices.end(), stem) != devices.end();
}

QString programPattern()
{
    return QStringLiteral("*.exe *.com *.cmd *.bat");
}

bool isRunByShell(const QString& program)
{
    // The system passes over dots and blanks at the end of a name.
    QString name = program.toLower();
    while (name.endsWith(u'.') || name.endsWith(u' '))
        name.chop(1);
    return name.endsWith(QLatin1String(".bat")) || name.endsWith(QLatin1String(".cmd"));
}

bool startProgram(const QString& program, const QString& arguments)
{
    if (program.contains(u'"'))
        return false;
    std::wstring line = QString(u'"' + program + QLatin1String("\" ") + arguments).toStdWString();
    STARTUPINFOW start {};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESHOWWINDOW;
    start.wShowWindow = SW_SHOWMINIMIZED;
    PROCESS_INFORMATION process {};
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process))
        return false;
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return true;
}

std::optional<QString> registryText(const QString& key, const QString& name)
{
    const auto read = [&](wchar_t* text, DWORD* bytes) {
        const auto keyName = key.toStdWString();
        const auto valueName = name.toStdWString();
        // Types of text, with variables in them replaced.
        return RegGetValueW(HKEY_CURRENT_USER, keyName.c_str(), valueName.c_str(), RRF_RT_REG_SZ, nullptr, text, bytes)
            == ERROR_SUCCESS;
    };
    DWORD bytes = 0;
    if (!read(nullptr, &bytes))
        return {};
    std::wstring text(bytes / sizeof(wchar_t) + 1, L'\0');
    return read(text.data(), &bytes) ? std::optional(QString::fromWCharArray(text.c_str())) : std::nullopt;
}

QString firefoxProfilesFolder()
{
    const QString path = applicationDataFolder() + QLatin1String("\\Mozilla\\Firefox\\Profiles\\");
    return QFileInfo::exists(path) ? path : QString();
}

bool isSuperuser()
{
    return false;
}

void startSync(const QFileDevice&)
{
    // The system writes back as it likes, and has no function that asks for it without waiting.
}

void addRecentDocument(const QString& path)
{
    SHAddToRecentDocs(SHARD_PATHW, QDir::toNativeSeparators(path).utf16());
}

} // namespace platform
