// SPDX-License-Identifier: GPL-3.0-or-later
// user-path has|add|remove FOLDER: looks for a folder in the user's PATH, adds it at the end, or takes it out. The exit
// status is 0 when that is so or was done, else 1. The installer calls this program, because its own strings are
// shorter than a PATH can be.
#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

constexpr const wchar_t* environment = L"Environment";
constexpr const wchar_t* variable = L"Path";

struct Path {
    std::wstring text;
    DWORD type = REG_EXPAND_SZ;
};

/// The user's PATH; empty when there is none. Returns false when it cannot be read: then it must not be written.
bool read(Path& path)
{
    DWORD size = 0;
    LSTATUS status = RegGetValueW(HKEY_CURRENT_USER, environment, variable,
        RRF_RT_REG_SZ | RRF_RT_REG_EXPAND_SZ | RRF_NOEXPAND, nullptr, nullptr, &size);
    if (status == ERROR_FILE_NOT_FOUND)
        return true;
    if (status != ERROR_SUCCESS)
        return false;
    std::vector<wchar_t> buffer(size / sizeof(wchar_t) + 1);
    status = RegGetValueW(HKEY_CURRENT_USER, environment, variable, RRF_RT_REG_SZ | RRF_RT_REG_EXPAND_SZ | RRF_NOEXPAND,
        &path.type, buffer.data(), &size);
    path.text = buffer.data();
    return status == ERROR_SUCCESS;
}

/// Writes the PATH and tells the programs that run; an empty PATH is removed.
bool write(const Path& path)
{
    const auto size = static_cast<DWORD>((path.text.size() + 1) * sizeof(wchar_t));
    const LSTATUS status = path.text.empty()
        ? RegDeleteKeyValueW(HKEY_CURRENT_USER, environment, variable)
        : RegSetKeyValueW(HKEY_CURRENT_USER, environment, variable, path.type, path.text.c_str(), size);
    SendMessageTimeoutW(
        HWND_BROADCAST, WM_SETTINGCHANGE, 0, reinterpret_cast<LPARAM>(environment), SMTO_ABORTIFHUNG, 1000, nullptr);
    return status == ERROR_SUCCESS;
}

std::vector<std::wstring> entriesOf(const std::wstring& path)
{
    std::vector<std::wstring> entries;
    for (std::size_t begin = 0; begin <= path.size();) {
        const std::size_t end = std::min(path.find(L';', begin), path.size());
        entries.push_back(path.substr(begin, end - begin));
        begin = end + 1;
    }
    return entries;
}

std::wstring joined(const std::vector<std::wstring>& entries)
{
    std::wstring path;
    for (const std::wstring& entry : entries)
        path += (path.empty() ? L"" : L";") + entry;
    return path;
}

} // namespace

int wmain(int argc, wchar_t* argv[])
{
    Path path;
    if (argc != 3 || !read(path))
        return 1;
    const std::wstring command = argv[1];
    const auto isFolder = [&](const std::wstring& entry) {
        return lstrcmpiW(entry.c_str(), argv[2]) == 0;
    };
    std::vector<std::wstring> entries = entriesOf(path.text);
    const auto found = std::find_if(entries.begin(), entries.end(), isFolder);
    const bool has = found != entries.end();
    if (command == L"has")
        return has ? 0 : 1;
    if (command == L"add" && !has) {
        path.text += (path.text.empty() || path.text.back() == L';' ? L"" : L";") + std::wstring(argv[2]);
        return write(path) ? 0 : 1;
    }
    if (command == L"remove" && has) {
        entries.erase(std::remove_if(entries.begin(), entries.end(), isFolder), entries.end());
        path.text = joined(entries);
        return write(path) ? 0 : 1;
    }
    return 0;
}
