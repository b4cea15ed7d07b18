// Error reporting: xerbla, the error-hook slot and the workspace reporter.

#include "interface/xerbla.h"

#include <cstring>

#include "interface/entry.h"
#include "interface/messages.h"
#include "service/platform.h"

namespace orv {
namespace {

ErrorHook g_error_hook = nullptr;

constexpr std::size_t kShownNameLength = 20;
constexpr int kInfoNoWorkspace = 1000;
constexpr int kInfoIncompatibleOptions = 1001;
constexpr int kInfoNoWorkMemory = 1089;
constexpr int kInfoCoprocessor = 1212;

}  // namespace

void xerbla(const char* name, const int* info, std::size_t len)
{
    if (name == nullptr || info == nullptr) return;
    if (len > kShownNameLength) len = kShownNameLength;
    char shown[kShownNameLength + 2];
    std::memcpy(shown, name, len);
    shown[len] = '\0';

    print_message(0, kMsgLineEnd, 0);
    const int code = *info;
    switch (code) {
    case kInfoNoWorkspace: print_message(0, kMsgNoWorkspace, 1, shown); break;
    case kInfoIncompatibleOptions: print_message(0, kMsgIncompatibleOptions, 1, shown); break;
    case kInfoCoprocessor: print_message(0, kMsgCoprocessor, 1, shown); break;
    case kInfoNoWorkMemory: print_message(0, kMsgNoWorkMemory, 1, shown); break;
    default:
        if (code < 1)
            print_message(0, kMsgInternalCondition, 2, -code, shown);
        else
            print_message(0, kMsgBadParameter, 2, code, shown);
        break;
    }
}

bool offer_error_hook(ErrorHook hook)
{
    ErrorHook expected = nullptr;
    return __atomic_compare_exchange_n(&g_error_hook, &expected, hook, false, __ATOMIC_ACQ_REL, __ATOMIC_ACQUIRE);
}

ErrorHook error_hook() { return __atomic_load_n(&g_error_hook, __ATOMIC_ACQUIRE); }

namespace {

// The host program's own handler, when the process has one, receives the
// reports (its test programs check them, its users see its messages);
// otherwise xerbla prints them.
[[gnu::noinline, gnu::cold]] void install_error_handler()
{
    const ErrorHook host = platform::host_error_handler();
    offer_error_hook(host != nullptr ? host : xerbla);
}

}  // namespace

void register_default_error_handler()
{
    // Plain load first: after the first call the slot is full and a checked
    // export pays no lookup and no atomic read-modify-write.
    if (error_hook() == nullptr) install_error_handler();
}

void report_error(const char* name, const int* info, std::size_t len)
{
    const ErrorHook hook = error_hook();
    (hook != nullptr ? hook : xerbla)(name, info, len);
}

int report_workspace_failure(int status, const char* name)
{
    if (status != 0) return 0;
    const int info = kInfoNoWorkMemory;
    report_error(name, &info, strnlen(name, 4096));
    return 1;
}

}  // namespace orv
