// The exported option-letter comparison.

#include "interface/lsame.h"

#include "orv.h"

extern "C" int lsame_(const char* a, const char* b) { return orv::lsame(a, b); }
