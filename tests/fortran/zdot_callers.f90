! Callers of the double-complex dot functions as any Fortran program calls
! them: gfortran decides where it takes the function value from.
subroutine call_zdotc(n, x, incx, y, incy, res)
  integer :: n, incx, incy
  complex(kind=8) :: x(*), y(*), res
  complex(kind=8), external :: zdotc
  res = zdotc(n, x, incx, y, incy)
end subroutine call_zdotc

subroutine call_zdotu(n, x, incx, y, incy, res)
  integer :: n, incx, incy
  complex(kind=8) :: x(*), y(*), res
  complex(kind=8), external :: zdotu
  res = zdotu(n, x, incx, y, incy)
end subroutine call_zdotu
