# GoogleTest for the machine that is built for: Debian has it for its own machine alone, and its
# source in the package googletest.
set(GTEST_SOURCE /usr/src/googletest/googletest CACHE PATH "Folder of GoogleTest's source")
if(NOT EXISTS ${GTEST_SOURCE}/CMakeLists.txt)
    message(FATAL_ERROR "The tests need GoogleTest's source: install the package googletest, "
        "or configure with -DHOPCAST_TESTS=OFF")
endif()
set(GOOGLETEST_VERSION 1.12.1)                # read by its CMakeLists.txt
set(INSTALL_GTEST OFF)
add_subdirectory(${GTEST_SOURCE} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
if(NOT TARGET GTest::gtest)
    add_library(GTest::gtest ALIAS gtest)
endif()
