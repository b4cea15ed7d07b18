// The C interface's error handler and the call state a host's handlers read.

#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "interface/dropin/cblas_call.h"
#include "interface/messages.h"

extern "C" {

ORV_API int CBLAS_CallFromC = 0;
ORV_API int RowMajorStrg = 0;

// A host that defines its own cblas_xerbla replaces this one. The report is
// one line: the catalogue's text for an invalid parameter, then `form`'s.
ORV_API void cblas_xerbla(int position, const char* routine, const char* form, ...)
{
    char detail[orv::kMessageBufferSize] = "";
    if (form != nullptr) {
        std::va_list args;
        va_start(args, form);
        std::vsnprintf(detail, sizeof detail, form, args);
        va_end(args);
        // The line end is the printer's.
        for (std::size_t n = std::strlen(detail); n > 0 && detail[n - 1] == '\n'; --n) detail[n - 1] = '\0';
    }
    char text[orv::kMessageBufferSize];
    std::snprintf(text, sizeof text, orv::catalogue_text(orv::kMsgBadParameter), position,
                  routine != nullptr ? routine : "");
    orv::print_formatted("%s%s%s\n", text, detail[0] != '\0' ? " " : "", detail);
}

}  // extern "C"
