// The level-3 routines the level-3 benchmark times, dgemm among them as the
// yardstick of the others: their option letters, operands, flop counts and
// one call of either library.
#pragma once

#include "bench/compare.h"

#include <string>
#include <vector>

namespace l3 {

enum class Kind { gemm, trsm, trmm, syrk, herk, syr2k, her2k, symm, hemm };

// Letters the routine accepts per option; "" when it takes no such option.
// dgemm and zgemm use `trans` for both of their transposes.
struct Routine {
    const char* name;
    Kind kind;
    bool complex;
    const char* sides;
    const char* uplos;
    const char* trans;
    const char* diags;
};
const std::vector<Routine>& routines();
const Routine* find_routine(const std::string& name);

// The transpose letters that name different operations: a real routine's 'C'
// is its 'T'.
std::string distinct_trans(const Routine& r);

struct Case {
    const Routine* routine;
    char side, uplo, trans, transb, diag;  // those the routine takes, else '-'
    long m, n, k;

    double flops() const;
    std::string options() const;  // the letters it takes, "L,L,N,N"
};

// Column-major, leading dimensions equal to the row counts. trsm and trmm
// also keep the inverse of their triangular matrix: calls alternate between
// the two, so B returns to its start every second call and neither grows nor
// shrinks however often the timing loop repeats.
struct Operands {
    int m, n, k, lda, ldb, ldc;
    bench::Buffer a, a_inv, b, c;
    double* out;      // the matrix the call overwrites: b for trsm and trmm, else c
    long out_doubles;
    long calls = 0;   // made so far, by either library
};
Operands make_operands(const Case& c);

// One call by ORV (orv) or by the comparison library. Odd calls use the
// inverse of A (trsm, trmm) or alpha -1 (the others, which add to C).
void call(const Case& c, bool orv, const bench::RefBlas& ref, Operands& op);

}  // namespace l3
