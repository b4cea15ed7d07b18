/* Calls BLAS through the system's libblas.so.3 as any program built against
 * the reference BLAS does, checks the result and prints which library
 * answered: the version text of ORV's service function when the loaded BLAS
 * has it, "another BLAS" otherwise. */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <stdio.h>

double ddot_(const int* n, const double* x, const int* incx, const double* y, const int* incy);

int main(void)
{
    const double x[3] = {1, 2, 3}, y[3] = {4, 5, 6};
    const int n = 3, one = 1;
    if (ddot_(&n, x, &one, y, &one) != 32.0) {
        puts("wrong result");
        return 1;
    }
    void (*version)(char*, int) = (void (*)(char*, int))dlsym(RTLD_DEFAULT, "orv_get_version_string");
    char text[200] = "another BLAS";
    if (version) {
        version(text, (int)sizeof text - 1);
        text[40] = '\0';
    }
    puts(text);
    return 0;
}
