! Calls the library from Fortran exactly as a program written for the
! reference BLAS would: matrix-vector product, dot products (real and
! complex), norm, and a symmetric rank-2k update, printing what they computed.
program example
  implicit none
  integer, parameter :: n = 4
  double precision :: a(n, n), x(n), y(n), c(n, n)
  complex(kind=8) :: u(2), v(2)
  double precision, external :: ddot, dnrm2
  complex(kind=8), external :: zdotc
  integer, external :: idamax
  integer :: i, j

  do j = 1, n
    do i = 1, n
      a(i, j) = dble(i + 10 * j)
    end do
    x(j) = dble(j)
  end do
  y = 0.0d0

  call dgemv('N', n, n, 1.0d0, a, n, x, 1, 0.0d0, y, 1)
  print '(a, 4f10.1)', ' dgemv: y =', y
  print '(a, f12.1)', ' ddot: x . y =', ddot(n, x, 1, y, 1)
  print '(a, f12.6)', ' dnrm2: |x| =', dnrm2(n, x, 1)
  print '(a, i3)', ' idamax: index of largest |y| =', idamax(n, y, 1)

  u = [(1.0d0, 2.0d0), (0.0d0, -1.0d0)]
  v = [(3.0d0, 4.0d0), (2.0d0, 5.0d0)]
  print '(a, 2f8.1)', ' zdotc: conj(u) . v =', zdotc(2, u, 1, v, 1)

  c = 0.0d0
  call dsyr2k('U', 'N', n, 1, 1.0d0, x, n, y, n, 0.0d0, c, n)
  print '(a)', ' dsyr2k: upper triangle of x*y'' + y*x'':'
  do i = 1, n
    print '(4f10.1)', (merge(c(i, j), 0.0d0, j >= i), j = 1, n)
  end do
end program example
