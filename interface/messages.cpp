// Message catalogue printer and fatal exit.

#include "interface/messages.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "service/platform.h"
#include "service/spinlock.h"

namespace orv {
namespace {

struct CatalogueEntry {
    int number;
    const char* text;
};

// Only the entries the BLAS paths print; the others belong to components
// that are not part of this library.
constexpr CatalogueEntry kCatalogue[] = {
    {kMsgLineEnd, "\n"},
    {kMsgBadParameter, "Calix ORV ERROR: Parameter %d was incorrect on entry to %s."},
    {kMsgInternalCondition, "Calix ORV INTERNAL ERROR: Condition %d detected in function %s."},
    {kMsgNoWorkspace, "Calix ORV INTERNAL ERROR: Insufficient workspace available in function %s."},
    {kMsgIncompatibleOptions, "Calix ORV ERROR: Incompatible optional parameters on entry to %s."},
    {kMsgNoWorkMemory, "Calix ORV INTERNAL ERROR: Not enough work memory in function %s"},
    {kMsgBadReproducibility,
     "Calix ORV WARNING: incorrect conditional numerical reproducibility mode, ORV_CBWR_AUTO is set"},
    {kMsgMinimumRequirements,
     "Calix ORV FATAL ERROR: This system does not meet the minimum requirements for use of the Calix(R) Orv "
     "Library."},
    {kMsgNeedSse2, "The processor must support the Calix(R) Streaming SIMD 2 Extensions (Calix(R) SSE2) instructions."},
    {kMsgCoprocessor, "Calix ORV INTERNAL ERROR: Issue accessing coprocessor %s."},
    {kMsgCpuNotSupported, "Calix ORV ERROR: CPU %d is not supported."},
};

// Shared by every printed line. Threads take turns with the lock, so that
// lines from different threads interleave only as whole lines.
char g_output[kMessageBufferSize];
char g_localized[kMessageBufferSize];
SpinLock g_output_lock;

FatalExitHook g_fatal_exit_hook = nullptr;

// Prints the formatted buffer. The measure is bounded by the buffer, so the
// overflow report can never fire; it stays as a guard should the bound change.
void emit(const char* text)
{
    const int length = static_cast<int>(strnlen(text, kMessageBufferSize)) - 1;
    if (length > kMessageBufferSize) {
        platform::write_stdout("\nORV INTERNAL ERROR: message buffer overflow.");
        char detail[96];
        std::snprintf(detail, sizeof detail, "\n       Lenght: %d   Buffer size: %d\n", length, kMessageBufferSize);
        platform::write_stdout(detail);
        platform::flush_all();
    }
    platform::write_stdout(text);
}

}  // namespace

const char* catalogue_text(int number)
{
    for (const CatalogueEntry& entry : kCatalogue)
        if (entry.number == number) return entry.text;
    return nullptr;
}

int print_message(int /*reserved*/, int number, int count, ...)
{
    SpinGuard guard(g_output_lock);
    if (number != kMsgLineEnd) {
        const char* text = catalogue_text(number);
        if (platform::localized_message(number, g_localized, kMessageBufferSize)) text = g_localized;
        if (text != nullptr) {
            std::va_list args;
            va_start(args, count);
            std::vsnprintf(g_output, kMessageBufferSize, text, args);
            va_end(args);
            emit(g_output);
            platform::flush_all();
        }
    }
    emit(kCatalogue[0].text);
    return platform::flush_all();
}

int print_formatted(const char* fmt, ...)
{
    SpinGuard guard(g_output_lock);
    std::va_list args;
    va_start(args, fmt);
    std::vsnprintf(g_output, kMessageBufferSize, fmt, args);
    va_end(args);
    platform::write_stdout(g_output);
    return platform::flush_all();
}

int fatal_exit(int code)
{
    const FatalExitHook hook = __atomic_load_n(&g_fatal_exit_hook, __ATOMIC_ACQUIRE);
    if (hook != nullptr) return hook(code);
    platform::terminate_process(code);
}

FatalExitHook set_fatal_exit_hook(FatalExitHook hook)
{
    return __atomic_exchange_n(&g_fatal_exit_hook, hook, __ATOMIC_ACQ_REL);
}

}  // namespace orv
