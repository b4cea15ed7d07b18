"""numpy's products and factorizations on the drop-in under the reference
LAPACK (run through with_orv.sh). Every result is checked by a residual
computed without BLAS (element-wise products and sums), scaled by the
problem's size and the unit roundoff."""
import os
import sys

import numpy as np

EPS = np.finfo(float).eps


def loaded():
    """The real paths of the shared objects this process has mapped."""
    with open("/proc/self/maps") as maps:
        return {os.path.realpath(line.split()[-1]) for line in maps if "/" in line}


def product(a, b):
    """a @ b by element-wise multiplication and summation: no BLAS."""
    return (a[:, :, None] * b[None, :, :]).sum(axis=1)


def check(name, residual, scale, limit=30.0):
    ratio = residual / (scale * EPS)
    print(f"{name:34s} scaled residual {ratio:8.3f}")
    if not np.isfinite(ratio) or ratio > limit:
        sys.exit(f"{name}: scaled residual {ratio} above {limit}")


def main():
    maps = loaded()
    for want in (os.environ["ORV_EXPECT_BLAS"], os.environ["ORV_EXPECT_LAPACK"]):
        if want not in maps:
            sys.exit(f"{want} is not loaded: numpy runs on another library")
    rng = np.random.default_rng(7)
    norm = np.linalg.norm

    for n in (7, 64, 160):
        a = rng.standard_normal((n, n))
        b = rng.standard_normal((n, n + 3))
        check(f"real matmul n={n}", norm(a @ b - product(a, b)), norm(a) * norm(b) * n)

        z = a + 1j * rng.standard_normal((n, n))
        w = b + 1j * rng.standard_normal((n, n + 3))
        check(f"complex matmul n={n}", norm(z @ w - product(z, w)), norm(z) * norm(w) * n)

        rhs = rng.standard_normal((n, 2))
        x = np.linalg.solve(a, rhs)
        check(f"solve n={n}", norm(product(a, x) - rhs), norm(a) * norm(x) * n)

        s = a + a.T
        vals, vecs = np.linalg.eigh(s)
        check(f"eigh n={n}", norm(product(s, vecs) - vecs * vals), norm(s) * n)
        check(f"eigh orthogonality n={n}", norm(product(vecs.T, vecs) - np.eye(n)), n)

        u, sv, vt = np.linalg.svd(b, full_matrices=False)
        check(f"svd n={n}", norm(product(u * sv, vt) - b), norm(b) * n)
    print("numpy on ORV: all residuals small")


if __name__ == "__main__":
    main()
