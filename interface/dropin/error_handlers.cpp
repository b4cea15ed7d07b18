// The error handlers that programs and libraries written for the reference
// BLAS call by name.

#include "blas.h"
#include "interface/entry.h"
#include "interface/xerbla.h"

// Called by name (LAPACK calls it for its own argument errors); prints the
// report like every other argument error of this library.
extern "C" void xerbla_(const char* name, const int* info, size_t name_length)
{
    orv::xerbla(name, info, name_length);
}

// Reports through the error-hook slot, so that a host program's own xerbla_
// receives these reports as it receives those of the BLAS routines.
extern "C" void xerbla_array_(const char* name, const int* name_length, const int* info)
{
    orv::register_default_error_handler();
    const int length = name_length != nullptr ? *name_length : 0;
    orv::report_error(name, info, length > 0 ? static_cast<std::size_t>(length) : 0);
}
