// Windows services of the memory manager: LoadLibraryA for the
// high-bandwidth library.

#include "service/memory_os.h"

#include <windows.h>

#include <cstdio>
#include <cstring>

namespace orv::memory_os {
namespace {

// Directory of the DLL (or program) holding this code, with its trailing
// separator, or "" when it cannot be told.
void own_directory(char* dir, DWORD size)
{
    dir[0] = '\0';
    HMODULE module = nullptr;
    const DWORD flags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    if (!GetModuleHandleExA(flags, reinterpret_cast<LPCSTR>(&open_library), &module)) return;
    const DWORD length = GetModuleFileNameA(module, dir, size);
    if (length == 0 || length >= size) {
        dir[0] = '\0';
        return;
    }
    char* cut = nullptr;
    for (char* c = dir; *c != '\0'; ++c)
        if (*c == '\\' || *c == '/') cut = c;
    if (cut == nullptr)
        dir[0] = '\0';
    else
        cut[1] = '\0';
}

HMODULE load_from(const char* dir, const char* name)
{
    char path[MAX_PATH + 256];
    if (std::snprintf(path, sizeof path, "%s%s", dir, name) >= static_cast<int>(sizeof path)) return nullptr;
    return LoadLibraryA(path);
}

}  // namespace

const char* high_bandwidth_library_name() { return "memkind.dll"; }

void* open_library(const char* name)
{
    char own[MAX_PATH];
    own_directory(own, MAX_PATH);
    if (own[0] != '\0')
        if (HMODULE library = load_from(own, name)) return library;

    char system[MAX_PATH];
    const UINT length = GetSystemDirectoryA(system, MAX_PATH - 1);
    if (length == 0 || length >= MAX_PATH - 1) return nullptr;
    if (system[length - 1] != '\\') {
        system[length] = '\\';
        system[length + 1] = '\0';
    }
    // Nothing new to try when this library lives in the system directory.
    if (own[0] != '\0' && _stricmp(own, system) == 0) return nullptr;
    return load_from(system, name);
}

void* find_symbol(void* library, const char* symbol)
{
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(library), symbol));
}

void close_library(void* library) { FreeLibrary(static_cast<HMODULE>(library)); }

}  // namespace orv::memory_os
