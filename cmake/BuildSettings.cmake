# Settings of every target of our own.
add_library(zt_build_settings INTERFACE)
target_compile_options(zt_build_settings INTERFACE
    $<$<COMPILE_LANGUAGE:CXX>:-Wall -Wextra -Wconversion -Werror>
    $<$<AND:$<COMPILE_LANGUAGE:CXX>,$<CXX_COMPILER_ID:GNU>>:-Wshadow=local>
    # Clang counts a change of sign as a conversion, GCC does not.
    $<$<AND:$<COMPILE_LANGUAGE:CXX>,$<CXX_COMPILER_ID:Clang>>:-Wno-sign-conversion>
    # False alarms of GCC 12 on std::string with -O3.
    $<$<AND:$<COMPILE_LANGUAGE:CXX>,$<CXX_COMPILER_ID:GNU>>:-Wno-restrict>)

if(ZT_SANITIZE)
    set(ZT_SANITIZER_FLAGS -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    target_compile_options(zt_build_settings INTERFACE $<$<COMPILE_LANGUAGE:CXX>:${ZT_SANITIZER_FLAGS}>
        # False alarms of GCC 12 in <regex> with the address sanitizer.
        $<$<AND:$<COMPILE_LANGUAGE:CXX>,$<CXX_COMPILER_ID:GNU>>:-Wno-maybe-uninitialized>)
    target_link_options(zt_build_settings INTERFACE ${ZT_SANITIZER_FLAGS})
endif()

# Everything is watched by the fuzzers for the paths that an input takes.
if(ZT_FUZZ)
    target_compile_options(zt_build_settings INTERFACE -fsanitize=fuzzer-no-link)
endif()

find_program(ZT_CCACHE ccache)
if(ZT_CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${ZT_CCACHE})
endif()
find_program(ZT_MOLD mold)
if(ZT_MOLD)
    add_link_options(-fuse-ld=mold)
endif()
