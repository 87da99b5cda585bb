! The other side of the text benchmarks: the Fortran run-time library's own formatted input and output.
module text_io
    use, intrinsic :: iso_c_binding
    implicit none
contains
    function path_of(name) result(path)
        character(kind=c_char), intent(in) :: name(*)
        character(len=:), allocatable :: path
        integer :: length
        length = 0
        do while (name(length + 1) /= c_null_char)
            length = length + 1
        end do
        allocate (character(len=length) :: path)
        path = transfer(name(1:length), path)
    end function

    subroutine write_reals(name, values, count) bind(c)
        character(kind=c_char), intent(in) :: name(*)
        integer(c_int64_t), value :: count
        real(c_float), intent(in) :: values(count)
        integer :: unit
        open (newunit=unit, file=path_of(name), form='formatted', action='write', status='replace')
        write (unit, '(4(1X,E16.8))') values
        close (unit)
    end subroutine

    subroutine write_doubles(name, values, count) bind(c)
        character(kind=c_char), intent(in) :: name(*)
        integer(c_int64_t), value :: count
        real(c_double), intent(in) :: values(count)
        integer :: unit
        open (newunit=unit, file=path_of(name), form='formatted', action='write', status='replace')
        write (unit, '(3(1X,E22.14))') values
        close (unit)
    end subroutine

    subroutine write_integers(name, values, count) bind(c)
        character(kind=c_char), intent(in) :: name(*)
        integer(c_int64_t), value :: count
        integer(c_int), intent(in) :: values(count)
        integer :: unit
        open (newunit=unit, file=path_of(name), form='formatted', action='write', status='replace')
        write (unit, '(6(1X,I11))') values
        close (unit)
    end subroutine

    subroutine read_reals(name, values, count) bind(c)
        character(kind=c_char), intent(in) :: name(*)
        integer(c_int64_t), value :: count
        real(c_float), intent(out) :: values(count)
        integer :: unit
        open (newunit=unit, file=path_of(name), form='formatted', action='read', status='old')
        read (unit, '(4(1X,E16.8))') values
        close (unit)
    end subroutine

    subroutine read_doubles(name, values, count) bind(c)
        character(kind=c_char), intent(in) :: name(*)
        integer(c_int64_t), value :: count
        real(c_double), intent(out) :: values(count)
        integer :: unit
        open (newunit=unit, file=path_of(name), form='formatted', action='read', status='old')
        read (unit, '(3(1X,E22.14))') values
        close (unit)
    end subroutine

    subroutine read_integers(name, values, count) bind(c)
        character(kind=c_char), intent(in) :: name(*)
        integer(c_int64_t), value :: count
        integer(c_int), intent(out) :: values(count)
        integer :: unit
        open (newunit=unit, file=path_of(name), form='formatted', action='read', status='old')
        read (unit, '(6(1X,I11))') values
        close (unit)
    end subroutine
end module
