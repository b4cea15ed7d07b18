// Construction of plane rotations: the scalar templates in double precision.
#include "level1/kernels.h"
#include "level1/kernels/rotg_scalar.h"

namespace orv::def {

void drotg(double* a, double* b, double* c, double* s) { scalar::rotg(a, b, c, s); }

void zrotg(dcomplex* ca, const dcomplex* cb, double* c, dcomplex* s) { scalar::complex_rotg(ca, cb, c, s); }

void drotmg(double* d1, double* d2, double* x1, const double* y1, double* param)
{
    scalar::rotmg(d1, d2, x1, y1, param);
}

}  // namespace orv::def
