// Common includes of the vector kernels built with a wider instruction set
// (the folders mc, mc3, avx, avx2, avx512_qix and avx512).
//
// Such a file defines everything in its own path's namespace: the family
// templates of wide/*.inc are included inside `namespace orv::<path>`, after
// the path's traits (vec.h). Helpers are forced inline, so that vector values
// stay in registers: the Windows x64 ABI keeps the stack only 16-byte
// aligned, too little for spilling 32- and 64-byte registers.
#pragma once

#include <immintrin.h>

#include <cstdint>

#include "level1/kernels.h"
#include "service/types.h"

#define ORV_INLINE [[gnu::always_inline]] inline
