// The library's version record, source of the version string and of the
// trace banner.
#pragma once

namespace orv {

struct VersionRecord {
    int major;
    int minor;
    int update;
    const char* product_status;
    const char* build;
    const char* processor;
    const char* platform;
};

// Fills `record` (nothing for a null address). The texts are static.
void get_version(VersionRecord* record);

// The processor text of the record: the code path's instruction set on the
// reference vendor's processors, a generic text everywhere else.
const char* processor_text(bool reference_vendor, int code_path);

// The banner without its padding, "Calix(R) Orv Library Version ...";
// returns its length. `buf` holds `size` bytes.
int format_version_banner(char* buf, int size);

}  // namespace orv
