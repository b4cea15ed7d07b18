/* Solves a small linear least-squares-like chain with the library and prints
 * every intermediate result:
 *   C = A * B                     (dgemm_)
 *   x = L^{-1} b                  (dtrsv_)   and its residual |L x - b|
 *   w = conj(u) . v               (zdotc_)
 */
#include <complex.h>
#include <stdio.h>
#include <string.h>

#include "orv.h"

int main(void)
{
    char version[200];
    orv_get_version_string(version, (int)sizeof version - 1);
    version[sizeof version - 1] = '\0';
    for (int i = (int)sizeof version - 2; i >= 0 && version[i] == ' '; --i) version[i] = '\0';
    printf("%s\n", version);

    /* Column-major 2x3 times 3x2. */
    const double a[6] = {1, 4, 2, 5, 3, 6};
    const double b[6] = {7, 9, 11, 8, 10, 12};
    double c[4] = {0, 0, 0, 0};
    const int m = 2, n = 2, k = 3;
    const double one = 1.0, zero = 0.0;
    dgemm_("N", "N", &m, &n, &k, &one, a, &m, b, &k, &zero, c, &m);
    printf("dgemm: C = [%g %g; %g %g]\n", c[0], c[2], c[1], c[3]);

    /* Lower triangular solve, then the residual through dtrmv_ and daxpy_. */
    const int three = 3, inc = 1;
    const double l[9] = {2, 1, 4, 0, 3, 5, 0, 0, 6};
    const double rhs[3] = {2, 7, 31};
    double x[3], r[3];
    memcpy(x, rhs, sizeof x);
    dtrsv_("L", "N", "N", &three, l, &three, x, &inc);
    memcpy(r, x, sizeof r);
    dtrmv_("L", "N", "N", &three, l, &three, r, &inc);
    const double minus_one = -1.0;
    daxpy_(&three, &minus_one, rhs, &inc, r, &inc);
    printf("dtrsv: x = (%g, %g, %g), residual norm %g\n", x[0], x[1], x[2], dnrm2_(&three, r, &inc));

    /* Complex dot product with conjugation: (1+2i)^* (3+4i) = 11 - 2i. The
     * value comes back as the platform's Fortran compilers return a complex
     * function result: in registers on Linux, through a first argument that
     * addresses it on Windows. */
    const double u[2] = {1, 2}, v[2] = {3, 4};
    const int one_elem = 1;
#if defined(_WIN32)
    double w[2];
    zdotc_(w, &one_elem, u, &inc, v, &inc);
    printf("zdotc: %g %+gi\n", w[0], w[1]);
#else
    const double complex w = zdotc_(&one_elem, u, &inc, v, &inc);
    printf("zdotc: %g %+gi\n", creal(w), cimag(w));
#endif
    printf("idamax of x: %d\n", idamax_(&three, x, &inc));
    return 0;
}
