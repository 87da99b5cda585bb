# mrlio_build_flags carries what every target of this project is compiled and linked with. It is never exported.

add_library(mrlio_build_flags INTERFACE)
target_compile_features(mrlio_build_flags INTERFACE cxx_std_20)
target_compile_options(mrlio_build_flags INTERFACE
    -fvisibility=hidden
    -fvisibility-inlines-hidden
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow
    -Wnon-virtual-dtor -Woverloaded-virtual
    # g++ 12 sees overlaps in the standard library's own string concatenation.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    # clang counts changes of sign as conversions, g++ does not.
    $<$<CXX_COMPILER_ID:Clang>:-Wno-sign-conversion>)
if(MRLIO_WARNINGS_AS_ERRORS)
    target_compile_options(mrlio_build_flags INTERFACE -Werror)
endif()

set(CMAKE_CXX_EXTENSIONS OFF)

if(MRLIO_SANITIZE)
    set(sanitize "-fsanitize=${MRLIO_SANITIZE}")
    target_compile_options(mrlio_build_flags INTERFACE
        ${sanitize} -fno-sanitize-recover=all -fno-omit-frame-pointer
        # g++ finds uninitialised members inside the standard library's own code once a sanitizer has rewritten it.
        $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
    target_link_options(mrlio_build_flags INTERFACE ${sanitize})
endif()
if(MRLIO_LIBFUZZER)
    target_compile_options(mrlio_build_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()

if(MRLIO_USE_LLD)
    find_program(MRLIO_LLD ld.lld)
    if(MRLIO_LLD)
        target_link_options(mrlio_build_flags INTERFACE -fuse-ld=lld)
    endif()
endif()
