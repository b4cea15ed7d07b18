! Callers of the single-complex dot functions as any Fortran program calls
! them: gfortran decides where it takes the function value from.
subroutine call_cdotc(n, x, incx, y, incy, res)
  integer :: n, incx, incy
  complex(kind=4) :: x(*), y(*), res
  complex(kind=4), external :: cdotc
  res = cdotc(n, x, incx, y, incy)
end subroutine call_cdotc

subroutine call_cdotu(n, x, incx, y, incy, res)
  integer :: n, incx, incy
  complex(kind=4) :: x(*), y(*), res
  complex(kind=4), external :: cdotu
  res = cdotu(n, x, incx, y, incy)
end subroutine call_cdotu
