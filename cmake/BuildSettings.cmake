# Settings of every target of our own.
add_library(zt_build_settings INTERFACE)
target_compile_options(zt_build_settings INTERFACE
    $<$<COMPILE_LANGUAGE:CXX>:-Wall -Wextra -Wconversion -Werror>
    $<$<AND:$<COMPILE_LANGUAGE:CXX>,$<CXX_COMPILER_ID:GNU>>:-Wshadow=local>
    # Clang counts a change of sign as a conversion, GCC does not.
    $<$<AND:$<COMPILE_LANGUAGE:CXX>,$<CXX_COMPILER_ID:Clang>>:-Wno-sign-conversion>
    # False alarms of GCC 12 on std::string with -O3.
    $<$<AND:$<COMPILE_LANGUAGE:CXX>,$<CXX_COMPILER_ID:GNU>>:-Wno-restrict>)

# Tests leave the optimiser little to do, and are most of the time to build.
set(is_test $<BOOL:$<TARGET_PROPERTY:ZT_IS_TEST>>)
target_compile_options(zt_build_settings INTERFACE $<${is_test}:-O0>)

# One build serves the sanitizers and the fuzzers. It is optimised just enough to run the tests, and keeps the lines of
# the sources for the reports: more of either would double the time to build.
if(ZT_SANITIZE)
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        message(FATAL_ERROR "The build with sanitizers needs clang: cmake --preset sanitizers")
    endif()
    set(ZT_SANITIZER_FLAGS -fsanitize=address,undefined -fno-sanitize-recover=undefined)
    target_compile_options(zt_build_settings INTERFACE -fno-omit-frame-pointer -gline-tables-only
        # In tests only what they do to memory is watched. Everything else is watched in full, and shows the fuzzers which
        # paths an input takes.
        $<${is_test}:-fsanitize=address>
        "$<$<NOT:${is_test}>:-O1;${ZT_SANITIZER_FLAGS};-fsanitize=fuzzer-no-link>")
    target_link_options(zt_build_settings INTERFACE ${ZT_SANITIZER_FLAGS})
endif()

find_program(ZT_CCACHE ccache)
if(ZT_CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${ZT_CCACHE})
endif()
find_program(ZT_MOLD mold)
if(ZT_MOLD)
    add_link_options(-fuse-ld=mold)
endif()
