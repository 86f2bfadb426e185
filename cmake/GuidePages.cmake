# The guide and what it leads to as pages with pictures, in the folder guide beside the programs.
# Where they cannot be made, GUIDE_PYTHON is not found.
function(guide_python_validate RESULT CANDIDATE)
    execute_process(COMMAND ${CANDIDATE} -c "import markdown" RESULT_VARIABLE STATUS OUTPUT_QUIET ERROR_QUIET)
    if(NOT STATUS EQUAL 0)
        set(${RESULT} FALSE PARENT_SCOPE)
    endif()
endfunction()
if(GUIDE_PYTHON) # found when the build was configured before: its module may be gone since
    set(GUIDE_PYTHON_USABLE TRUE)
    guide_python_validate(GUIDE_PYTHON_USABLE ${GUIDE_PYTHON})
    if(NOT GUIDE_PYTHON_USABLE)
        unset(GUIDE_PYTHON CACHE)
    endif()
endif()
find_program(GUIDE_PYTHON NAMES python3 NAMES_PER_DIR HINTS /usr/bin VALIDATOR guide_python_validate)

set(GUIDE_FOLDER ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/guide)
set(GUIDE_STAMP ${PROJECT_BINARY_DIR}/guide.stamp)
if(GUIDE_PYTHON)
    file(GLOB GUIDE_SOURCES CONFIGURE_DEPENDS docs/*.md docs/images/*.png)
    add_custom_command(OUTPUT ${GUIDE_STAMP}
        COMMAND ${CMAKE_COMMAND} -E rm -rf ${GUIDE_FOLDER}
        COMMAND ${GUIDE_PYTHON} ${PROJECT_SOURCE_DIR}/tools/guide_pages.py ${PROJECT_SOURCE_DIR}/docs ${GUIDE_FOLDER}
        COMMAND ${CMAKE_COMMAND} -E touch ${GUIDE_STAMP}
        DEPENDS ${GUIDE_SOURCES} tools/guide_pages.py VERBATIM)
    add_custom_target(hopcast_guide ALL DEPENDS ${GUIDE_STAMP})
else()
    message(STATUS "python3-markdown not found: the guide does not travel with the programs")
endif()
