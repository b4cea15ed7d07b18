/* A program built against an installed ORV: a product and a dot product whose
 * exact results it checks. Exits 0 and prints "ok" when both are right. */
#include <stdio.h>

#include "orv.h"

int main(void)
{
    const double a[6] = {1, 4, 2, 5, 3, 6}; /* 2 x 3, column-major */
    const double b[6] = {7, 9, 11, 8, 10, 12}; /* 3 x 2 */
    const double want[4] = {58, 139, 64, 154};
    double c[4] = {0, 0, 0, 0};
    const int m = 2, n = 2, k = 3, six = 6, one_step = 1;
    const double one = 1.0, zero = 0.0;
    dgemm_("N", "N", &m, &n, &k, &one, a, &m, b, &k, &zero, c, &m);
    int bad = 0;
    for (int i = 0; i < 4; ++i) bad |= c[i] != want[i];
    bad |= ddot_(&six, a, &one_step, b, &one_step) != 207.0;
    puts(bad ? "wrong result" : "ok");
    return bad;
}
