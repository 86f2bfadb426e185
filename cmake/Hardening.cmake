# What keeps a memory error from becoming more, in every optimised build. Debug builds (sanitizers, coverage,
# fuzzing) have checks of their own. packaging/hardening.sh looks at the built programs.
set(HOPCAST_HARDENED OFF)
string(TOUPPER "${CMAKE_BUILD_TYPE}" BUILD_TYPE)
if(NOT BUILD_TYPE MATCHES "^(RELEASE|RELWITHDEBINFO|MINSIZEREL)$" OR CMAKE_CXX_FLAGS MATCHES "-fsanitize|--coverage")
    return()
endif()
set(HOPCAST_HARDENED ON)

# Level 3 needs sizes that are known at run time only: GCC 12, clang 12. mingw-w64 stops at 2.
set(FORTIFY_LEVEL 2)
if(NOT MINGW AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 12)
    set(FORTIFY_LEVEL 3)
endif()
# Taken back first: some compilers define it themselves.
target_compile_options(hopcast_flags INTERFACE -fstack-protector-strong
    -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=${FORTIFY_LEVEL})
if(MINGW)
    target_link_options(hopcast_flags INTERFACE -fstack-protector-strong
        -Wl,--dynamicbase,--high-entropy-va,--nxcompat)
else()
    # Here, before the windowing toolkit's own -fPIC, which has to have the last word.
    target_compile_options(hopcast_flags INTERFACE -fPIE)
    target_link_options(hopcast_flags INTERFACE -pie -Wl,-z,relro,-z,now)
endif()
