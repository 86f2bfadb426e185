# One static library per folder of src/, one test program per folder of tests/.

add_library(hopcast_flags INTERFACE)
target_compile_features(hopcast_flags INTERFACE cxx_std_20)
target_compile_options(hopcast_flags INTERFACE -Wall -Wextra -Wshadow -Wconversion
    -ffp-contract=off)                        # same digits on every CPU, fused multiply or not
target_compile_definitions(hopcast_flags INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_KEYWORDS
    HOPCAST_VERSION="${PROJECT_VERSION}")
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 sees overlaps in operator+ of std::string where there are none (GCC bug 105651).
    target_compile_options(hopcast_flags INTERFACE -Wno-restrict)
    if(HOPCAST_PCH)  # and copies beyond the end
        target_compile_options(hopcast_flags INTERFACE -Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread)
    endif()
endif()
if(CMAKE_CXX_FLAGS MATCHES "sanitize=thread")
    # The sanitizer's calls hide from GCC 12 what is read of a std::optional and a std::string.
    target_compile_options(hopcast_flags INTERFACE -Wno-maybe-uninitialized -Wno-array-bounds -Wno-stringop-overflow
        -Wno-stringop-overread)
endif()
if(HOPCAST_WERROR)
    target_compile_options(hopcast_flags INTERFACE -Werror)
endif()
if(MINGW)
    target_compile_definitions(hopcast_flags INTERFACE UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX
        _WIN32_WINNT=0x0A00)
    target_link_options(hopcast_flags INTERFACE -static)
endif()
include(${CMAKE_CURRENT_LIST_DIR}/Hardening.cmake)

if(CMAKE_CXX_COMPILER_LAUNCHER MATCHES "ccache")
    # The compiler tells the cache what a file includes; without the second setting the cache keeps nothing that uses
    # precompiled headers.
    set(CMAKE_CXX_COMPILER_LAUNCHER
        ${CMAKE_COMMAND} -E env CCACHE_DEPEND=true CCACHE_SLOPPINESS=pch_defines,time_macros
        ${CMAKE_CXX_COMPILER_LAUNCHER})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        target_compile_options(hopcast_flags INTERFACE "SHELL:-Xclang -fno-pch-timestamp")
    else()
        target_compile_options(hopcast_flags INTERFACE -fpch-preprocess)
    endif()
endif()
if(HOPCAST_FAST_LINK)
    # The undefined-behaviour sanitizer leaves a million addresses, which each start of a movable program would adapt.
    add_link_options(-no-pie)
    find_program(HOPCAST_MOLD mold)
    if(HOPCAST_MOLD)
        add_link_options(-fuse-ld=mold)
    endif()
endif()

# hopcast_headers(NAME HEADER ...): these headers, which nearly every file reads, are compiled once for the
# target NAME and those that take them over by hopcast_headers_from(OTHER NAME). A file still includes
# what it uses: builds without HOPCAST_PCH have no such headers.
function(hopcast_headers NAME)
    if(HOPCAST_PCH)
        target_precompile_headers(${NAME} PRIVATE ${ARGN})
    endif()
endfunction()
function(hopcast_headers_from OTHER NAME)
    if(HOPCAST_PCH)
        target_precompile_headers(${OTHER} REUSE_FROM ${NAME})
    endif()
endfunction()

# hopcast_module(NAME SOURCES ... LINK ...): a static library, headers found as "folder/File.h".
function(hopcast_module NAME)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_library(${NAME} STATIC ${ARG_SOURCES})
    target_include_directories(${NAME} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${NAME} PUBLIC hopcast_flags ${ARG_LINK})
    if(NAME MATCHES "^hopcast_(system|ui_common|engine)$")   # makes its own, or has other options
        return()
    elseif(NAME MATCHES "^hopcast_ui_")
        hopcast_headers_from(${NAME} hopcast_ui_common)
    else()
        hopcast_headers_from(${NAME} hopcast_system)
    endif()
endfunction()

# hopcast_form(NAME STEM ...): a module with a .ui form and its pictures.
function(hopcast_form NAME STEM)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK;RESOURCES" ${ARGN})
    qt_wrap_ui(UI_HEADER ${STEM}.ui)          # not AUTOUIC: its folder is invisible to tests
    hopcast_module(${NAME} SOURCES ${STEM}.cpp ${STEM}.h ${UI_HEADER} ${ARG_SOURCES}
        LINK Qt6::Widgets ${ARG_LINK})
    set_target_properties(${NAME} PROPERTIES AUTOMOC ON)
    target_include_directories(${NAME} PUBLIC ${CMAKE_CURRENT_BINARY_DIR})
    if(ARG_RESOURCES)                         # found as :/ui_map/world.png, also from a static library
        qt_add_resources(${NAME} ${NAME} PREFIX /${NAME} FILES ${ARG_RESOURCES})
    endif()
endfunction()

# hopcast_test_options(NAME): the compiler's options for tests, which are compiled more often than they run long. In a
# sanitizer build undefined behaviour is looked for in what they test, not in the tests.
function(hopcast_test_options NAME)
    if(CMAKE_CROSSCOMPILING)
        target_compile_options(${NAME} PRIVATE -O0)
    elseif(CMAKE_CXX_FLAGS MATCHES "sanitize=.*undefined")
        target_compile_options(${NAME} PRIVATE -fno-sanitize=undefined)
    endif()
endfunction()

# hopcast_test(NAME LABEL unit SOURCES ... LINK ...): a GoogleTest program; every test a CTest test
# with the label; TEST_DATA is the data folder beside the sources. GUI adds the Qt main. THREADS: the
# thread sanitizer runs it too; its label then ends in /thread. Cross-built for
# Windows the whole program is one CTest test, run under Wine, with the label wine; DRIVE_C: it writes to drive C or the
# registry of the prefix, which all share, so one such program runs at a time.
function(hopcast_test NAME)
    cmake_parse_arguments(ARG "GUI;DRIVE_C;THREADS" "LABEL;TIMEOUT" "SOURCES;LINK" ${ARGN})
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 60)
    endif()
    if(CMAKE_CXX_FLAGS MATCHES "sanitize=thread")   # five to fifteen times slower
        math(EXPR ARG_TIMEOUT "${ARG_TIMEOUT} * 5")
    endif()
    if(ARG_THREADS)
        string(APPEND ARG_LABEL /thread)            # one label: a list of them does not survive the discovery
        set_property(GLOBAL APPEND PROPERTY HOPCAST_THREAD_TESTS ${NAME})
    endif()
    add_executable(${NAME} ${ARG_SOURCES})
    target_include_directories(${NAME} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_compile_definitions(${NAME} PRIVATE
        TEST_DATA="${CMAKE_CURRENT_SOURCE_DIR}/data" TEST_BIN="${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
    hopcast_test_options(${NAME})
    if(ARG_GUI)
        set_target_properties(${NAME} PROPERTIES AUTOMOC ON)
        target_link_libraries(${NAME} PRIVATE hopcast_test_gui ${ARG_LINK})
        hopcast_headers_from(${NAME} hopcast_test_gui)
    else()
        target_link_libraries(${NAME} PRIVATE hopcast_test_support ${ARG_LINK})
        if(NOT ARG_LINK MATCHES "Qt6::|hopcast_ui_")  # Qt has options of its own
            hopcast_headers_from(${NAME} hopcast_test_support)
        endif()
    endif()
    set_target_properties(${NAME} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests/bin)
    if(CMAKE_CROSSCOMPILING)
        hopcast_wine_test(${NAME})
        if(ARG_DRIVE_C)
            set_tests_properties(${NAME} PROPERTIES RESOURCE_LOCK drive_c)
        endif()
        return()
    endif()
    # What may take longest begins first, so that it does not run alone at the end.
    gtest_discover_tests(${NAME} DISCOVERY_TIMEOUT 60 PROPERTIES LABELS ${ARG_LABEL} TIMEOUT ${ARG_TIMEOUT}
        COST ${ARG_TIMEOUT}
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;TZ=UTC;LC_ALL=C;ASAN_OPTIONS=detect_leaks=0")
endfunction()

# hopcast_wine_test(NAME): the test program NAME as one CTest test in the throw-away Wine prefix of this build.
function(hopcast_wine_test NAME)
    add_test(NAME ${NAME} COMMAND ${PROJECT_SOURCE_DIR}/tests/wine/prefix.sh run ${PROJECT_BINARY_DIR}/wine
        $<TARGET_FILE:${NAME}>)
    set_tests_properties(${NAME} PROPERTIES LABELS wine TIMEOUT 300 FIXTURES_REQUIRED wine_prefix)
endfunction()

# hopcast_code_page_test(NAME PAGE LOCALE FILTER): the same with the system code page of a country; FILTER picks
# the tests.
function(hopcast_code_page_test NAME PAGE LOCALE FILTER)
    add_test(NAME ${NAME}.codepage${PAGE} COMMAND ${PROJECT_SOURCE_DIR}/tests/wine/prefix.sh run
        ${PROJECT_BINARY_DIR}/wine $<TARGET_FILE:${NAME}> "--gtest_filter=${FILTER}")
    set_tests_properties(${NAME}.codepage${PAGE} PROPERTIES LABELS wine TIMEOUT 300 FIXTURES_REQUIRED wine_prefix
        RESOURCE_LOCK drive_c ENVIRONMENT "WINE_LOCALE=${LOCALE};HOPCAST_CODE_PAGE=${PAGE}")
endfunction()
