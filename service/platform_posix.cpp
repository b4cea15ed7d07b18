// POSIX platform services: plain stdio, _exit, sched_yield, CLOCK_MONOTONIC,
// pthread keys, the dynamic linker's symbol lookup.

#include "service/platform.h"

#include <dlfcn.h>
#include <pthread.h>
#include <sched.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

namespace orv::platform {

int read_env(const char* name, char* buf, int size)
{
    if (size > 0) buf[0] = '\0';
    const char* value = std::getenv(name);
    if (value == nullptr) return 0;
    const std::size_t length = std::strlen(value);
    if (size > 0) {
        const std::size_t copied = length < static_cast<std::size_t>(size) ? length : static_cast<std::size_t>(size - 1);
        std::memcpy(buf, value, copied);
        buf[copied] = '\0';
    }
    return length > 0x7fffffff ? 0x7fffffff : static_cast<int>(length);
}

void write_stdout(const char* text) { std::fputs(text, stdout); }

int flush_all() { return std::fflush(nullptr); }

// No message modules on this platform: the built-in texts are the output.
bool localized_message(int, char*, int) { return false; }

const char* system_name() { return "Lnx"; }

void terminate_process(int code) { _exit(code); }

void yield_processor() { sched_yield(); }

std::int64_t reference_ticks()
{
    timespec ts{};
    if (clock_gettime(CLOCK_MONOTONIC, &ts) != 0) return 0;
    return static_cast<std::int64_t>(ts.tv_sec) * 1000000000 + ts.tv_nsec;
}

std::int64_t reference_ticks_per_second() { return 1000000000; }

long coarse_ticks() { return static_cast<long>(std::clock()); }

long coarse_ticks_per_second() { return static_cast<long>(CLOCKS_PER_SEC); }

HostErrorHandler host_error_handler()
{
    void* found = dlsym(RTLD_DEFAULT, "xerbla_");
    if (found == nullptr) return nullptr;
    Dl_info ours{}, theirs{};
    if (dladdr(found, &theirs) == 0) return reinterpret_cast<HostErrorHandler>(found);
    // The drop-in library exports a xerbla_ of its own, which the lookup
    // finds when nothing before it in the search order defines one.
    if (dladdr(reinterpret_cast<void*>(&host_error_handler), &ours) != 0 && ours.dli_fbase == theirs.dli_fbase)
        return nullptr;
    // A LAPACK or BLAS library loaded beside ours brings the stock handler,
    // which ends the program: that is no handler of the host's.
    const char* file = theirs.dli_fname != nullptr ? theirs.dli_fname : "";
    const char* slash = std::strrchr(file, '/');
    const char* base = slash != nullptr ? slash + 1 : file;
    if (std::strncmp(base, "liblapack", 9) == 0 || std::strncmp(base, "libblas", 7) == 0) return nullptr;
    return reinterpret_cast<HostErrorHandler>(found);
}

bool create_thread_key(ThreadKey* key)
{
    pthread_key_t k;
    if (pthread_key_create(&k, nullptr) != 0) return false;
    *key = static_cast<ThreadKey>(k);
    return true;
}

void delete_thread_key(ThreadKey key) { pthread_key_delete(static_cast<pthread_key_t>(key)); }

std::uintptr_t read_thread_key(ThreadKey key)
{
    return reinterpret_cast<std::uintptr_t>(pthread_getspecific(static_cast<pthread_key_t>(key)));
}

void write_thread_key(ThreadKey key, std::uintptr_t value)
{
    pthread_setspecific(static_cast<pthread_key_t>(key), reinterpret_cast<void*>(value));
}

}  // namespace orv::platform
