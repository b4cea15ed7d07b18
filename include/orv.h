/* ORV: dense linear-algebra kernels for 64-bit x86.
 *
 * The 77 exported functions. Every argument is passed by address (Fortran
 * convention) except the length of orv_get_version_string. Integers are
 * 32-bit, matrices column-major. Complex values are two adjacent doubles,
 * real part first; they are passed as void pointers so that C99 complex
 * arrays, C++ std::complex arrays and plain double pairs all fit.
 *
 * zdotc_ and zdotu_ return their result the way the platform's Fortran
 * compilers return a COMPLEX*16 function value: on Linux in registers, as a
 * C double _Complex (in C++ the __complex__ double that g++ and clang++
 * accept); on Windows through a hidden first argument that addresses the
 * result.
 */
#ifndef ORV_H
#define ORV_H

#if defined(ORV_STATIC)
#  define ORV_API
#elif defined(_WIN32)
#  if defined(ORV_BUILDING_LIBRARY)
#    define ORV_API __declspec(dllexport)
#  else
#    define ORV_API __declspec(dllimport)
#  endif
#else
#  define ORV_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

#if !defined(_WIN32)
#  ifdef __cplusplus
typedef __complex__ double orv_complex_double;
#  else
typedef double _Complex orv_complex_double;
#  endif
#endif

/* Level 1 */
ORV_API double dasum_(const int* n, const double* x, const int* incx);
ORV_API void daxpy_(const int* n, const double* alpha, const double* x, const int* incx, double* y, const int* incy);
ORV_API double dcabs1_(const void* z);
ORV_API void dcopy_(const int* n, const double* x, const int* incx, double* y, const int* incy);
ORV_API double ddot_(const int* n, const double* x, const int* incx, const double* y, const int* incy);
ORV_API double dnrm2_(const int* n, const double* x, const int* incx);
ORV_API void drot_(const int* n, double* x, const int* incx, double* y, const int* incy, const double* c, const double* s);
ORV_API void drotg_(double* a, double* b, double* c, double* s);
ORV_API void drotm_(const int* n, double* x, const int* incx, double* y, const int* incy, const double* param);
ORV_API void drotmg_(double* d1, double* d2, double* x1, const double* y1, double* param);
ORV_API void dscal_(const int* n, const double* alpha, double* x, const int* incx);
ORV_API void dswap_(const int* n, double* x, const int* incx, double* y, const int* incy);
ORV_API double dzasum_(const int* n, const void* x, const int* incx);
ORV_API double dznrm2_(const int* n, const void* x, const int* incx);
ORV_API int idamax_(const int* n, const double* x, const int* incx);
ORV_API int izamax_(const int* n, const void* x, const int* incx);
ORV_API void zaxpy_(const int* n, const void* alpha, const void* x, const int* incx, void* y, const int* incy);
ORV_API void zcopy_(const int* n, const void* x, const int* incx, void* y, const int* incy);
#if defined(_WIN32)
ORV_API void zdotc_(void* result, const int* n, const void* x, const int* incx, const void* y, const int* incy);
ORV_API void zdotu_(void* result, const int* n, const void* x, const int* incx, const void* y, const int* incy);
#else
ORV_API orv_complex_double zdotc_(const int* n, const void* x, const int* incx, const void* y, const int* incy);
ORV_API orv_complex_double zdotu_(const int* n, const void* x, const int* incx, const void* y, const int* incy);
#endif
ORV_API void zdrot_(const int* n, void* x, const int* incx, void* y, const int* incy, const double* c, const double* s);
ORV_API void zdscal_(const int* n, const double* alpha, void* x, const int* incx);
ORV_API void zrotg_(void* ca, const void* cb, double* c, void* s);
ORV_API void zscal_(const int* n, const void* alpha, void* x, const int* incx);
ORV_API void zswap_(const int* n, void* x, const int* incx, void* y, const int* incy);

/* Level 2 */
ORV_API void dgemv_(const char* trans, const int* m, const int* n, const double* alpha, const double* a, const int* lda,
                    const double* x, const int* incx, const double* beta, double* y, const int* incy);
ORV_API void zgemv_(const char* trans, const int* m, const int* n, const void* alpha, const void* a, const int* lda,
                    const void* x, const int* incx, const void* beta, void* y, const int* incy);
ORV_API void dgbmv_(const char* trans, const int* m, const int* n, const int* kl, const int* ku, const double* alpha,
                    const double* a, const int* lda, const double* x, const int* incx, const double* beta, double* y,
                    const int* incy);
ORV_API void zgbmv_(const char* trans, const int* m, const int* n, const int* kl, const int* ku, const void* alpha,
                    const void* a, const int* lda, const void* x, const int* incx, const void* beta, void* y,
                    const int* incy);
ORV_API void dger_(const int* m, const int* n, const double* alpha, const double* x, const int* incx, const double* y,
                   const int* incy, double* a, const int* lda);
ORV_API void zgeru_(const int* m, const int* n, const void* alpha, const void* x, const int* incx, const void* y,
                    const int* incy, void* a, const int* lda);
ORV_API void zgerc_(const int* m, const int* n, const void* alpha, const void* x, const int* incx, const void* y,
                    const int* incy, void* a, const int* lda);
ORV_API void dsymv_(const char* uplo, const int* n, const double* alpha, const double* a, const int* lda,
                    const double* x, const int* incx, const double* beta, double* y, const int* incy);
ORV_API void zhemv_(const char* uplo, const int* n, const void* alpha, const void* a, const int* lda, const void* x,
                    const int* incx, const void* beta, void* y, const int* incy);
ORV_API void dsbmv_(const char* uplo, const int* n, const int* k, const double* alpha, const double* a, const int* lda,
                    const double* x, const int* incx, const double* beta, double* y, const int* incy);
ORV_API void zhbmv_(const char* uplo, const int* n, const int* k, const void* alpha, const void* a, const int* lda,
                    const void* x, const int* incx, const void* beta, void* y, const int* incy);
ORV_API void dspmv_(const char* uplo, const int* n, const double* alpha, const double* ap, const double* x,
                    const int* incx, const double* beta, double* y, const int* incy);
ORV_API void zhpmv_(const char* uplo, const int* n, const void* alpha, const void* ap, const void* x, const int* incx,
                    const void* beta, void* y, const int* incy);
ORV_API void dsyr_(const char* uplo, const int* n, const double* alpha, const double* x, const int* incx, double* a,
                   const int* lda);
ORV_API void zher_(const char* uplo, const int* n, const double* alpha, const void* x, const int* incx, void* a,
                   const int* lda);
ORV_API void dsyr2_(const char* uplo, const int* n, const double* alpha, const double* x, const int* incx,
                    const double* y, const int* incy, double* a, const int* lda);
ORV_API void zher2_(const char* uplo, const int* n, const void* alpha, const void* x, const int* incx, const void* y,
                    const int* incy, void* a, const int* lda);
ORV_API void dspr_(const char* uplo, const int* n, const double* alpha, const double* x, const int* incx, double* ap);
ORV_API void zhpr_(const char* uplo, const int* n, const double* alpha, const void* x, const int* incx, void* ap);
ORV_API void dspr2_(const char* uplo, const int* n, const double* alpha, const double* x, const int* incx,
                    const double* y, const int* incy, double* ap);
ORV_API void zhpr2_(const char* uplo, const int* n, const void* alpha, const void* x, const int* incx, const void* y,
                    const int* incy, void* ap);
ORV_API void dtrmv_(const char* uplo, const char* trans, const char* diag, const int* n, const double* a,
                    const int* lda, double* x, const int* incx);
ORV_API void dtrsv_(const char* uplo, const char* trans, const char* diag, const int* n, const double* a,
                    const int* lda, double* x, const int* incx);
ORV_API void ztrmv_(const char* uplo, const char* trans, const char* diag, const int* n, const void* a, const int* lda,
                    void* x, const int* incx);
ORV_API void ztrsv_(const char* uplo, const char* trans, const char* diag, const int* n, const void* a, const int* lda,
                    void* x, const int* incx);
ORV_API void dtbmv_(const char* uplo, const char* trans, const char* diag, const int* n, const int* k, const double* a,
                    const int* lda, double* x, const int* incx);
ORV_API void dtbsv_(const char* uplo, const char* trans, const char* diag, const int* n, const int* k, const double* a,
                    const int* lda, double* x, const int* incx);
ORV_API void ztbmv_(const char* uplo, const char* trans, const char* diag, const int* n, const int* k, const void* a,
                    const int* lda, void* x, const int* incx);
ORV_API void ztbsv_(const char* uplo, const char* trans, const char* diag, const int* n, const int* k, const void* a,
                    const int* lda, void* x, const int* incx);
ORV_API void dtpmv_(const char* uplo, const char* trans, const char* diag, const int* n, const double* ap, double* x,
                    const int* incx);
ORV_API void dtpsv_(const char* uplo, const char* trans, const char* diag, const int* n, const double* ap, double* x,
                    const int* incx);
ORV_API void ztpmv_(const char* uplo, const char* trans, const char* diag, const int* n, const void* ap, void* x,
                    const int* incx);
ORV_API void ztpsv_(const char* uplo, const char* trans, const char* diag, const int* n, const void* ap, void* x,
                    const int* incx);

/* Level 3 */
ORV_API void dgemm_(const char* transa, const char* transb, const int* m, const int* n, const int* k,
                    const double* alpha, const double* a, const int* lda, const double* b, const int* ldb,
                    const double* beta, double* c, const int* ldc);
ORV_API void zgemm_(const char* transa, const char* transb, const int* m, const int* n, const int* k,
                    const void* alpha, const void* a, const int* lda, const void* b, const int* ldb, const void* beta,
                    void* c, const int* ldc);
ORV_API void dsymm_(const char* side, const char* uplo, const int* m, const int* n, const double* alpha,
                    const double* a, const int* lda, const double* b, const int* ldb, const double* beta, double* c,
                    const int* ldc);
ORV_API void zsymm_(const char* side, const char* uplo, const int* m, const int* n, const void* alpha, const void* a,
                    const int* lda, const void* b, const int* ldb, const void* beta, void* c, const int* ldc);
ORV_API void zhemm_(const char* side, const char* uplo, const int* m, const int* n, const void* alpha, const void* a,
                    const int* lda, const void* b, const int* ldb, const void* beta, void* c, const int* ldc);
ORV_API void dsyrk_(const char* uplo, const char* trans, const int* n, const int* k, const double* alpha,
                    const double* a, const int* lda, const double* beta, double* c, const int* ldc);
ORV_API void zsyrk_(const char* uplo, const char* trans, const int* n, const int* k, const void* alpha, const void* a,
                    const int* lda, const void* beta, void* c, const int* ldc);
ORV_API void zherk_(const char* uplo, const char* trans, const int* n, const int* k, const double* alpha,
                    const void* a, const int* lda, const double* beta, void* c, const int* ldc);
ORV_API void dsyr2k_(const char* uplo, const char* trans, const int* n, const int* k, const double* alpha,
                     const double* a, const int* lda, const double* b, const int* ldb, const double* beta, double* c,
                     const int* ldc);
ORV_API void zsyr2k_(const char* uplo, const char* trans, const int* n, const int* k, const void* alpha,
                     const void* a, const int* lda, const void* b, const int* ldb, const void* beta, void* c,
                     const int* ldc);
ORV_API void zher2k_(const char* uplo, const char* trans, const int* n, const int* k, const void* alpha,
                     const void* a, const int* lda, const void* b, const int* ldb, const double* beta, void* c,
                     const int* ldc);
ORV_API void dtrmm_(const char* side, const char* uplo, const char* transa, const char* diag, const int* m,
                    const int* n, const double* alpha, const double* a, const int* lda, double* b, const int* ldb);
ORV_API void ztrmm_(const char* side, const char* uplo, const char* transa, const char* diag, const int* m,
                    const int* n, const void* alpha, const void* a, const int* lda, void* b, const int* ldb);
ORV_API void dtrsm_(const char* side, const char* uplo, const char* transa, const char* diag, const int* m,
                    const int* n, const double* alpha, const double* a, const int* lda, double* b, const int* ldb);
ORV_API void ztrsm_(const char* side, const char* uplo, const char* transa, const char* diag, const int* m,
                    const int* n, const void* alpha, const void* a, const int* lda, void* b, const int* ldb);

/* Option-letter comparison and services */
ORV_API int lsame_(const char* a, const char* b);
ORV_API int orv_get_max_threads(void);
ORV_API void orv_set_num_threads(const int* n);
ORV_API void orv_get_version_string(char* buf, int len);

#ifdef __cplusplus
}
#endif

#endif /* ORV_H */
