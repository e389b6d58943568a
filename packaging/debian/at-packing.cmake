# Read by CPack before it makes packages.

# The files in the packages get the time of the commit, so that two builds of one commit give the same packages.
if("$ENV{SOURCE_DATE_EPOCH}" STREQUAL "")
    execute_process(COMMAND git -C ${CMAKE_CURRENT_LIST_DIR} log -1 --format=%ct
        OUTPUT_VARIABLE time OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET RESULT_VARIABLE failed)
    if(failed) # a source archive: its files have the time of the commit
        file(TIMESTAMP ${CMAKE_CURRENT_LIST_DIR}/../../CHANGELOG.md time %s UTC)
    endif()
    set(ENV{SOURCE_DATE_EPOCH} ${time})
endif()

# CPack would put the description of the project above that of each package.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
