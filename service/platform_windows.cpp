// Windows platform services.
//
// Output goes through the C runtime that the host process uses, found by
// name at run time, so that the library's lines and the host's own share one
// stream and one buffer discipline whichever runtime the host was built with.

#include "service/platform.h"

#include <windows.h>

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include "service/spinlock.h"

namespace orv::platform {
namespace {

// Universal runtime: printing takes an options word, a stream and a locale.
using UcrtVfprintf = int(__cdecl*)(unsigned long long options, void* stream, const char* format, void* locale,
                                   va_list args);
using UcrtIob = void*(__cdecl*)(unsigned index);
// Older runtimes: classic signatures, streams in an array of FILE records.
using LegacyVfprintf = int(__cdecl*)(void* stream, const char* format, va_list args);
using LegacyIob = void*(__cdecl*)();
using Flush = int(__cdecl*)(void* stream);

// The FILE record of the older runtimes; only its size matters, to step from
// the first stream of "__iob_func" to the second (standard output).
struct LegacyFile {
    char* ptr;
    int cnt;
    char* base;
    int flag;
    int file;
    int charbuf;
    int bufsiz;
    char* tmpfname;
};

enum ResolveState : int { kUnresolved = -1, kNone = 0, kUniversal = 1, kLegacy = 2 };

struct Runtime {
    int state = kUnresolved;
    UcrtVfprintf ucrt_vfprintf = nullptr;
    LegacyVfprintf legacy_vfprintf = nullptr;
    Flush flush = nullptr;
    void* out = nullptr;
};

Runtime g_runtime;
SpinLock g_runtime_lock;

constexpr const char* kUniversalModules[] = {"APPCRT140.DLL", "APPCRT140D.DLL", "UCRTBASE.DLL", "UCRTBASED.DLL"};
constexpr const char* kUniversalFunctions[] = {"__stdio_common_vsscanf", "__stdio_common_vfscanf",
                                               "__stdio_common_vsnprintf_s", "__stdio_common_vfprintf_s",
                                               "__acrt_iob_func", "fflush"};
constexpr const char* kLegacyModules[] = {"MSVCR120.DLL", "MSVCR120D.DLL", "MSVCR110.DLL", "MSVCR110D.DLL",
                                          "MSVCR100.DLL", "MSVCR100D.DLL", "MSVCR90.DLL",   "MSVCR90D.DLL",
                                          "MSVCR80.DLL",  "MSVCR80D.DLL",  "MSVCRT.DLL",    "MSVCRTD.DLL"};
constexpr const char* kLegacyFunctions[] = {"sscanf", "fscanf", "vfprintf_s", "_vsnprintf_s", "__iob_func", "fflush"};

// A runtime the host already loaded is preferred; only when none is loaded
// is the first loadable one of the list brought in.
template <std::size_t N>
HMODULE find_module(const char* const (&names)[N])
{
    for (const char* name : names)
        if (HMODULE module = GetModuleHandleA(name)) return module;
    for (const char* name : names)
        if (HMODULE module = LoadLibraryA(name)) return module;
    return nullptr;
}

// All six functions of the family must be there; the index of each is that
// of the lists above.
template <std::size_t N>
bool resolve_all(HMODULE module, const char* const (&names)[N], FARPROC (&out)[N])
{
    if (module == nullptr) return false;
    for (std::size_t i = 0; i < N; ++i)
        if ((out[i] = GetProcAddress(module, names[i])) == nullptr) return false;
    return true;
}

// The fields are complete before the state is published, so a reader that
// sees a resolved state without the lock also sees the functions.
Runtime resolve_runtime()
{
    Runtime rt;
    FARPROC f[6];
    if (resolve_all(find_module(kUniversalModules), kUniversalFunctions, f)) {
        rt.ucrt_vfprintf = reinterpret_cast<UcrtVfprintf>(reinterpret_cast<void*>(f[3]));
        rt.out = reinterpret_cast<UcrtIob>(reinterpret_cast<void*>(f[4]))(1);
        rt.flush = reinterpret_cast<Flush>(reinterpret_cast<void*>(f[5]));
        rt.state = kUniversal;
    } else if (resolve_all(find_module(kLegacyModules), kLegacyFunctions, f)) {
        rt.legacy_vfprintf = reinterpret_cast<LegacyVfprintf>(reinterpret_cast<void*>(f[2]));
        void* streams = reinterpret_cast<LegacyIob>(reinterpret_cast<void*>(f[4]))();
        rt.out = static_cast<LegacyFile*>(streams) + 1;
        rt.flush = reinterpret_cast<Flush>(reinterpret_cast<void*>(f[5]));
        rt.state = kLegacy;
    } else {
        rt.state = kNone;
    }
    return rt;
}

const Runtime& runtime()
{
    if (__atomic_load_n(&g_runtime.state, __ATOMIC_ACQUIRE) == kUnresolved) {
        SpinGuard guard(g_runtime_lock);
        if (g_runtime.state == kUnresolved) {
            const Runtime resolved = resolve_runtime();
            g_runtime.ucrt_vfprintf = resolved.ucrt_vfprintf;
            g_runtime.legacy_vfprintf = resolved.legacy_vfprintf;
            g_runtime.flush = resolved.flush;
            g_runtime.out = resolved.out;
            __atomic_store_n(&g_runtime.state, resolved.state, __ATOMIC_RELEASE);
        }
    }
    return g_runtime;
}

int runtime_printf(const char* format, ...)
{
    const Runtime& rt = runtime();
    va_list args;
    va_start(args, format);
    int result;
    if (rt.state == kUniversal)
        result = rt.ucrt_vfprintf(0, rt.out, format, nullptr, args);
    else if (rt.state == kLegacy)
        result = rt.legacy_vfprintf(rt.out, format, args);
    else
        result = std::vfprintf(stdout, format, args);
    va_end(args);
    return result;
}

// Localised message library: one attempt per process, on the first message.
constexpr const char* kMessageLibrary = "orv_msg.dll";
constexpr DWORD kEnglishLanguage = 1033;
constexpr DWORD kAllocateFromModule = FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_HMODULE;
int g_first_attempt_pending = 1;
int g_library_unavailable = 1;
HMODULE g_message_module = nullptr;

}  // namespace

int read_env(const char* name, char* buf, int size)
{
    if (size > 0) buf[0] = '\0';
    const DWORD length = GetEnvironmentVariableA(name, buf, size > 0 ? static_cast<DWORD>(size) : 0);
    if (length == 0) return 0;
    if (length < static_cast<DWORD>(size)) return static_cast<int>(length);
    // Too long for the buffer: the call reported the size it needs (with
    // the terminator) and copied nothing, so fetch it whole and cut it.
    char* whole = static_cast<char*>(std::malloc(length));
    if (whole == nullptr) return 0;
    const DWORD got = GetEnvironmentVariableA(name, whole, length);
    int result = 0;
    if (got > 0 && got < length) {
        if (size > 0) {
            std::memcpy(buf, whole, static_cast<std::size_t>(size - 1));
            buf[size - 1] = '\0';
        }
        result = static_cast<int>(got);
    }
    std::free(whole);
    return result;
}

void write_stdout(const char* text) { runtime_printf("%s", text); }

int flush_all()
{
    const Runtime& rt = runtime();
    if (rt.flush != nullptr) return rt.flush(nullptr);
    return std::fflush(nullptr);
}

bool localized_message(int number, char* buf, int size)
{
    if (g_first_attempt_pending) {
        g_first_attempt_pending = 0;
        char path[128];
        std::snprintf(path, sizeof path, "%lu/%s", static_cast<unsigned long>(GetThreadLocale()), kMessageLibrary);
        if (HMODULE module = LoadLibraryA(path)) {
            g_message_module = module;
            g_library_unavailable = 0;
        }
    }
    if (g_library_unavailable) return false;

    char* text = nullptr;
    const DWORD length =
        FormatMessageA(kAllocateFromModule, g_message_module, static_cast<DWORD>(number) + 0x80000000u,
                       kEnglishLanguage, reinterpret_cast<LPSTR>(&text), 512, nullptr);
    bool used = false;
    // Only a complete text, ending in its line break, replaces the built-in one.
    if (text != nullptr && length > 1 && length - 2 < static_cast<DWORD>(size) && text[length - 2] == '\r' &&
        text[length - 1] == '\n') {
        std::memcpy(buf, text, length - 2);
        buf[length - 2] = '\0';
        used = true;
    }
    if (text != nullptr) LocalFree(text);
    return used;
}

const char* system_name() { return "Win"; }

void terminate_process(int code)
{
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(code));
    for (;;) Sleep(INFINITE);  // not reached: the process is gone
}

void yield_processor() { SwitchToThread(); }

std::int64_t reference_ticks()
{
    LARGE_INTEGER now;
    if (!QueryPerformanceCounter(&now)) return 0;
    return static_cast<std::int64_t>(now.QuadPart);
}

std::int64_t reference_ticks_per_second()
{
    LARGE_INTEGER frequency;
    if (!QueryPerformanceFrequency(&frequency)) return 0;
    return static_cast<std::int64_t>(frequency.QuadPart);
}

long coarse_ticks() { return static_cast<long>(std::clock()); }

long coarse_ticks_per_second() { return static_cast<long>(CLOCKS_PER_SEC); }

HostErrorHandler host_error_handler()
{
    // A program exports its handler from its own module; the DLL has none.
    const FARPROC found = GetProcAddress(GetModuleHandleA(nullptr), "xerbla_");
    return reinterpret_cast<HostErrorHandler>(reinterpret_cast<void*>(found));
}

bool create_thread_key(ThreadKey* key)
{
    const DWORD index = TlsAlloc();
    if (index == TLS_OUT_OF_INDEXES) return false;
    *key = index;
    return true;
}

void delete_thread_key(ThreadKey key) { TlsFree(static_cast<DWORD>(key)); }

std::uintptr_t read_thread_key(ThreadKey key)
{
    return reinterpret_cast<std::uintptr_t>(TlsGetValue(static_cast<DWORD>(key)));
}

void write_thread_key(ThreadKey key, std::uintptr_t value)
{
    TlsSetValue(static_cast<DWORD>(key), reinterpret_cast<void*>(value));
}

}  // namespace orv::platform
