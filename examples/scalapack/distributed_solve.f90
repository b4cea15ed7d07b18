! Solves a dense system distributed over the processes of an MPI job with
! ScaLAPACK's pdgesv, each process's BLAS being the library. The matrix is
! diagonally dominant and the right-hand side is A times a vector of ones, so
! the solution is known; each process checks its part and the largest error
! is gathered. Every process also reports how many threads the library gives
! its BLAS calls. Prints "residual ok" on process 0 when the solve is right.
!   mpirun -np 2 distributed_solve [n]
program distributed_solve
  use, intrinsic :: iso_c_binding, only: c_int
  implicit none
  interface
    integer(c_int) function orv_get_max_threads() bind(c, name="orv_get_max_threads")
      import :: c_int
    end function
  end interface
  integer, parameter :: nb = 64
  integer :: n, me, nprocs, ctxt, nprow, npcol, myrow, mycol, info
  integer :: mloc, nloc, lld, i, j, gi, gj, argc
  integer :: desca(9), descb(9)
  integer, allocatable :: ipiv(:)
  double precision, allocatable :: a(:, :), b(:)
  double precision :: err
  character(len=16) :: arg
  integer, external :: numroc, indxl2g

  n = 1000
  argc = command_argument_count()
  if (argc >= 1) then
    call get_command_argument(1, arg)
    read (arg, *) n
  end if

  call blacs_pinfo(me, nprocs)
  call blacs_get(-1, 0, ctxt)
  nprow = 1
  npcol = nprocs
  call blacs_gridinit(ctxt, 'C', nprow, npcol)
  call blacs_gridinfo(ctxt, nprow, npcol, myrow, mycol)

  mloc = numroc(n, nb, myrow, 0, nprow)
  nloc = numroc(n, nb, mycol, 0, npcol)
  lld = max(1, mloc)
  call descinit(desca, n, n, nb, nb, 0, 0, ctxt, lld, info)
  call descinit(descb, n, 1, nb, nb, 0, 0, ctxt, lld, info)
  allocate (a(lld, max(1, nloc)), b(lld), ipiv(mloc + nb))

  ! a(i, j) = 1 / (i + j - 1), plus n on the diagonal; b = A * ones.
  do j = 1, nloc
    gj = indxl2g(j, nb, mycol, 0, npcol)
    do i = 1, mloc
      gi = indxl2g(i, nb, myrow, 0, nprow)
      a(i, j) = 1d0 / dble(gi + gj - 1)
      if (gi == gj) a(i, j) = a(i, j) + dble(n)
    end do
  end do
  b = 0d0
  if (mycol == 0) then
    do i = 1, mloc
      gi = indxl2g(i, nb, myrow, 0, nprow)
      b(i) = dble(n)
      do gj = 1, n
        b(i) = b(i) + 1d0 / dble(gi + gj - 1)
      end do
    end do
  end if

  write (*, '(a, i0, a, i0, a)') 'process ', me, ': ', orv_get_max_threads(), ' BLAS threads'
  call pdgesv(n, 1, a, 1, 1, desca, ipiv, b, 1, 1, descb, info)

  err = 0d0
  if (mycol == 0) err = maxval(abs(b(1:mloc) - 1d0))
  call dgamx2d(ctxt, 'A', ' ', 1, 1, err, 1, i, j, -1, -1, 0)
  if (me == 0) then
    write (*, '(a, i0, a, i0, a, es9.2)') 'n = ', n, ', info = ', info, ', largest error ', err
    if (info == 0 .and. err < 1d-12) then
      print '(a)', 'residual ok'
    else
      print '(a)', 'residual too large'
    end if
  end if
  call blacs_gridexit(ctxt)
  call blacs_exit(0)
end program
