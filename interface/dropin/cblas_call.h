// What every C-interface call shares: the enumeration values of the C
// interface, their letters for the column-major routines, the call state the
// host's error handlers read, and the conjugation that row-major Hermitian
// and conjugate-transpose operations need.
#pragma once

#include <type_traits>

#include "orv.h"
#include "service/memory.h"
#include "service/types.h"

enum CBLAS_LAYOUT : int { CblasRowMajor = 101, CblasColMajor = 102 };
enum CBLAS_TRANSPOSE : int { CblasNoTrans = 111, CblasTrans = 112, CblasConjTrans = 113 };
enum CBLAS_UPLO : int { CblasUpper = 121, CblasLower = 122 };
enum CBLAS_DIAG : int { CblasNonUnit = 131, CblasUnit = 132 };
enum CBLAS_SIDE : int { CblasLeft = 141, CblasRight = 142 };

extern "C" {
// 1 while a C-interface call runs; RowMajorStrg is 1 while a row-major one
// runs. A host's own Fortran error handler reads them to turn the positions
// that the column-major routine reports back into the C call's positions.
ORV_API extern int CBLAS_CallFromC;
ORV_API extern int RowMajorStrg;
// Reports an invalid argument at 1-based `position` of the C call `routine`
// (the layout is position 1); `form` and what follows are printf-style text.
ORV_API void cblas_xerbla(int position, const char* routine, const char* form, ...);
}

namespace orv::cblas {

template <typename E>
inline constexpr bool is_complex = !std::is_floating_point_v<E>;

// One C-interface call of a level-2 or level-3 routine: sets the call state
// for its duration and checks the enumeration arguments. The first invalid
// one (the layout first) is reported with its position; the caller then
// computes nothing.
class Call {
public:
    Call(const char* name, int layout) : name_(name), row_(layout == CblasRowMajor)
    {
        CBLAS_CallFromC = 1;
        RowMajorStrg = row_ ? 1 : 0;
        if (!row_ && layout != CblasColMajor) fail(1, layout);
    }
    ~Call()
    {
        CBLAS_CallFromC = 0;
        RowMajorStrg = 0;
    }
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

    bool row() const { return row_; }
    bool failed() const { return failed_; }

    // The letter of an option for the column-major routine; 0 when the
    // value is outside its set, which is then reported.
    char trans(int position, int value, const char* allowed = "NTC")
    {
        const char t = value == CblasNoTrans ? 'N' : value == CblasTrans ? 'T' : value == CblasConjTrans ? 'C' : 0;
        for (const char* c = allowed; *c != '\0'; ++c)
            if (*c == t) return t;
        return fail(position, value);
    }
    char uplo(int position, int value) { return pick(position, value, CblasUpper, 'U', CblasLower, 'L'); }
    char diag(int position, int value) { return pick(position, value, CblasNonUnit, 'N', CblasUnit, 'U'); }
    char side(int position, int value) { return pick(position, value, CblasLeft, 'L', CblasRight, 'R'); }

private:
    char pick(int position, int value, int first, char first_letter, int second, char second_letter)
    {
        if (value == first) return first_letter;
        if (value == second) return second_letter;
        return fail(position, value);
    }
    char fail(int position, int value)
    {
        if (!failed_) cblas_xerbla(position, name_, "Illegal enumeration value %d", value);
        failed_ = true;
        return 0;
    }

    const char* name_;
    bool row_;
    bool failed_ = false;
};

// A row-major matrix is the column-major storage of its transpose: the
// stored triangle and the side of a product change.
constexpr char flip_uplo(char uplo) { return uplo == 'U' ? 'L' : 'U'; }
constexpr char flip_side(char side) { return side == 'L' ? 'R' : 'L'; }

template <typename E>
E conjugated(const E* value)
{
    return {value->re, -value->im};
}

// Conjugates a strided vector in place. Nothing happens for n < 1 or a zero
// increment: the routine then returns at once or rejects the call.
template <typename E>
void conjugate(int n, void* x, int inc)
{
    if (n < 1 || inc == 0) return;
    E* v = static_cast<E*>(x);
    const long step = inc < 0 ? -static_cast<long>(inc) : inc;
    for (long i = 0; i < n; ++i) v[i * step].im = -v[i * step].im;
}

// The conjugate of a strided input vector as a contiguous copy in logical
// order, on the stack when short. For n < 1 or a zero increment it is the
// caller's vector unchanged, so that the routine sees the caller's values.
template <typename E>
class ConjugatedCopy {
public:
    ConjugatedCopy(int n, const void* x, int inc) : data_(static_cast<const E*>(x)), inc_(inc)
    {
        if (n < 1 || inc == 0) return;
        E* copy = local_;
        if (n > kLocal) {
            copy = static_cast<E*>(orv_malloc(static_cast<std::size_t>(n) * sizeof(E), 64));
            if (copy == nullptr) {
                failed_ = true;
                return;
            }
            heap_ = copy;
        }
        const E* first = first_element(data_, n, inc);
        for (long i = 0; i < n; ++i) copy[i] = conjugated(first + i * inc);
        data_ = copy;
        inc_ = 1;
    }
    ~ConjugatedCopy() { orv_free(heap_); }
    ConjugatedCopy(const ConjugatedCopy&) = delete;
    ConjugatedCopy& operator=(const ConjugatedCopy&) = delete;

    // False when no memory could be had for a long copy; the call is then
    // reported as short of work memory and computes nothing.
    bool ok() const { return !failed_; }
    const E* data() const { return data_; }
    const int* inc() const { return &inc_; }

private:
    static constexpr int kLocal = 4096 / sizeof(E);
    E local_[kLocal];
    E* heap_ = nullptr;
    const E* data_;
    int inc_;
    bool failed_ = false;
};

}  // namespace orv::cblas
