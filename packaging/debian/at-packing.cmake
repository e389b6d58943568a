# Read by CPack before it makes packages.

# The files in the packages get the time of the commit, so that two builds of one commit give the same packages.
if("$ENV{SOURCE_DATE_EPOCH}" STREQUAL "")
    execute_process(COMMAND git -C ${CMAKE_CURRENT_LIST_DIR} log -1 --format=%ct
        OUTPUT_VARIABLE time OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET RESULT_VARIABLE failed)
    if(NOT failed)
        set(ENV{SOURCE_DATE_EPOCH} ${time})
    endif()
endif()

# CPack would put the description of the project above that of each package.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
