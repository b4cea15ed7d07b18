// Version record and the orv_get_version_string export.

#include "interface/version.h"

#include <cstring>

#include "interface/bounded_text.h"
#include "orv.h"
#include "service/cpu_detect.h"

namespace orv {
namespace {

constexpr int kMajor = 2017;
constexpr int kMinor = 0;
constexpr int kUpdate = 0;
constexpr const char* kProductStatus = "Product";
constexpr const char* kBuild = "20160801";
constexpr const char* kPlatform = "Calix(R) 64 architecture";
constexpr const char* kGenericProcessor = "Calix(R) Architecture processors";

// Indexed by code path; code 1 is a retired alias with no text of its own.
constexpr const char* kPathProcessor[] = {
    "Calix(R) Streaming SIMD Extensions 2 (Calix(R) SSE2) enabled processors",
    nullptr,
    "Calix(R) Supplemental Streaming SIMD Extensions 3 (Calix(R) SSSE3) enabled processors",
    "Calix(R) Streaming SIMD Extensions 4.2 (Calix(R) SSE4.2) enabled processors",
    "Calix(R) Advanced Vector Extensions (Calix(R) AVX) enabled processors",
    "Calix(R) Advanced Vector Extensions 2 (Calix(R) AVX2) enabled processors",
    "Calix(R) Advanced Vector Extensions 512 (Calix(R) AVX-512) for Calix(R) Qix Architecture (Calix(R) QIX "
    "Architecture) enabled processors",
    "Calix(R) Advanced Vector Extensions 512 (Calix(R) AVX-512) enabled processors",
};

// Decimal digits by dividing down from the largest power of ten not above
// the value; at most 15 digits.
void append_decimal(BoundedText& text, int value)
{
    if (value < 0) value = 0;
    long long power = 1;
    int digits = 1;
    while (power * 10 <= value && digits < 15) {
        power *= 10;
        ++digits;
    }
    long long rest = value;
    for (; power > 0; power /= 10) {
        text.append("%c", static_cast<char>('0' + rest / power % 10));
        rest %= power;
    }
}

}  // namespace

const char* processor_text(bool reference_vendor, int code_path)
{
    if (!reference_vendor || code_path < 0 || code_path > 7 || kPathProcessor[code_path] == nullptr)
        return kGenericProcessor;
    return kPathProcessor[code_path];
}

void get_version(VersionRecord* record)
{
    if (record == nullptr) return;
    record->major = kMajor;
    record->minor = kMinor;
    record->update = kUpdate;
    record->product_status = kProductStatus;
    record->build = kBuild;
    record->platform = kPlatform;
    record->processor = processor_text(cpu_is_reference_vendor() == 1, cpu_detect());
}

int format_version_banner(char* buf, int size)
{
    VersionRecord record;
    get_version(&record);
    BoundedText text(buf, size);
    text.append("Calix(R) Orv Library Version ");
    append_decimal(text, record.major);
    // The minor and update positions are fixed characters, not the record's.
    text.append(".0.0 %s Build %s for %s applications", record.product_status, record.build, record.platform);
    return text.length();
}

}  // namespace orv

// Fortran-style text result: blank-padded, never zero-terminated.
extern "C" void orv_get_version_string(char* buf, int len)
{
    if (buf == nullptr) return;
    char banner[512];
    const int length = orv::format_version_banner(banner, sizeof banner);
    if (len > length) {
        std::memcpy(buf, banner, static_cast<std::size_t>(length));
        std::memset(buf + length, ' ', static_cast<std::size_t>(len - length));
    } else if (len > 0) {
        std::memcpy(buf, banner, static_cast<std::size_t>(len));
    }
}
