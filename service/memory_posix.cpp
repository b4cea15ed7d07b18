// POSIX services of the memory manager: dlopen for the high-bandwidth
// library.

#include "service/memory_os.h"

#include <dlfcn.h>

#include <cstdio>
#include <cstring>

namespace orv::memory_os {
namespace {

// Directory of the module holding this code, with its trailing '/', or ""
// when it cannot be told.
void own_directory(char* dir, std::size_t size)
{
    dir[0] = '\0';
    Dl_info info{};
    if (dladdr(reinterpret_cast<void*>(&open_library), &info) == 0 || info.dli_fname == nullptr) return;
    const char* slash = std::strrchr(info.dli_fname, '/');
    if (slash == nullptr) return;
    const std::size_t length = static_cast<std::size_t>(slash - info.dli_fname) + 1;
    if (length >= size) return;
    std::memcpy(dir, info.dli_fname, length);
    dir[length] = '\0';
}

}  // namespace

const char* high_bandwidth_library_name() { return "libmemkind.so.0"; }

void* open_library(const char* name)
{
    char dir[4096];
    own_directory(dir, sizeof dir);
    if (dir[0] != '\0') {
        char path[4096 + 256];
        if (std::snprintf(path, sizeof path, "%s%s", dir, name) < static_cast<int>(sizeof path))
            if (void* library = dlopen(path, RTLD_NOW | RTLD_LOCAL)) return library;
    }
    // The loader's own search: the system's library directories.
    return dlopen(name, RTLD_NOW | RTLD_LOCAL);
}

void* find_symbol(void* library, const char* symbol) { return dlsym(library, symbol); }

void close_library(void* library) { dlclose(library); }

}  // namespace orv::memory_os
