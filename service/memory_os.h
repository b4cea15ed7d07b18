// Operating-system services of the memory manager: loading the
// high-bandwidth library by name. Definitions in memory_posix.cpp and
// memory_windows.cpp.
#pragma once

namespace orv::memory_os {

// File name of the high-bandwidth memory library on this system.
const char* high_bandwidth_library_name();

// Opens library `name` from the directory of the module holding this code,
// then from the system's own location; null when neither works.
void* open_library(const char* name);
void* find_symbol(void* library, const char* symbol);
void close_library(void* library);

}  // namespace orv::memory_os
