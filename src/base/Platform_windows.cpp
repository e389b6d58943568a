// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Platform.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <limits>
#include <memory>
#include <string>
#include <string_view>

#include <fcntl.h>
#include <io.h>
#include <shlobj.h>
#include <windows.h>

namespace {

/// A path for the system's own functions, of any length.
std::wstring systemPath(const QString& path)
{
    const QString native = QDir::toNativeSeparators(QDir::cleanPath(QFileInfo(path).absoluteFilePath()));
    const bool isOnServer = native.startsWith(QLatin1String("\\\\"));
    const QString inFull = isOnServer ? QLatin1String("\\\\?\\UNC") + native.mid(1) : QLatin1String("\\\\?\\") + native;
    return inFull.toStdWString();
}

/// Whether the file system of `path` keeps named streams beside the content of a file. Others may take the name of a
/// stream for that of a file.
bool keepsStreams(const QString& path)
{
    const std::wstring file = systemPath(path);
    std::wstring root(file.size() + 1, L'\0');
    DWORD flags = 0;
    return GetVolumePathNameW(file.c_str(), root.data(), static_cast<DWORD>(root.size()))
        && GetVolumeInformationW(root.c_str(), nullptr, 0, nullptr, nullptr, &flags, nullptr, 0)
        && (flags & FILE_NAMED_STREAMS) != 0;
}

} // namespace

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
    // The system drops blanks and dots at the end of a name. A name of nothing else may lead to the folder above.
    const auto isDropped = [](char c) {
        return c == '.' || c == ' ';
    };
    if (std::all_of(name.begin(), name.end(), isDropped))
        return true;
    // A device name keeps its meaning with any extension and with blanks behind it; a colon names a stream or a drive.
    static constexpr std::array devices { "CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$" };
    const QByteArray stem =
        name.first(name.indexOf('.') < 0 ? name.size() : name.indexOf('.')).toByteArray().toUpper().trimmed();
    // The superscript digits of code page 1252 count as digits here.
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
    // The system drops dots and blanks at the end of a name.
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
        // Only values of the text types are wanted; the system replaces variables in them.
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

void keepFromOthers(const QString&)
{
    // The user's folders are closed to other users by their owner's rights.
}

qint64 memorySize()
{
    MEMORYSTATUSEX memory {};
    memory.dwLength = sizeof(memory);
    // A 32-bit program can use less than the machine has.
    return GlobalMemoryStatusEx(&memory) ? static_cast<qint64>(qMin(memory.ullTotalPhys, memory.ullTotalVirtual))
                                         : std::numeric_limits<qint64>::max();
}

bool isSuperuser()
{
    return false;
}

bool openToWrite(QFile& file, const QString& path, bool replaces)
{
    // Others may read the file meanwhile, but not open it for writing.
    const HANDLE handle = CreateFileW(systemPath(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
        replaces ? CREATE_ALWAYS : CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        return false;
    const int descriptor = _open_osfhandle(reinterpret_cast<intptr_t>(handle), _O_WRONLY | _O_BINARY);
    if (descriptor < 0) {
        CloseHandle(handle);
        return false;
    }
    if (file.open(descriptor, QIODevice::WriteOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle))
        return true;
    _close(descriptor);
    return false;
}

void markAsFromInternet(const QString& path)
{
    if (!keepsStreams(path))
        return;
    // The zone of the internet, in a stream of the file.
    const HANDLE stream = CreateFileW((systemPath(path) + L":Zone.Identifier").c_str(), GENERIC_WRITE, 0, nullptr,
        CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (stream == INVALID_HANDLE_VALUE)
        return;
    constexpr std::string_view mark = "[ZoneTransfer]\r\nZoneId=3\r\n";
    DWORD written = 0;
    WriteFile(stream, mark.data(), static_cast<DWORD>(mark.size()), &written, nullptr);
    CloseHandle(stream);
}

void startSync(const QFileDevice&)
{
    // The system has no such function that does not wait.
}

void addRecentDocument(const QString& path)
{
    SHAddToRecentDocs(SHARD_PATHW, QDir::toNativeSeparators(path).utf16());
}

} // namespace platform
