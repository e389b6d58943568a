# Run by CPack before it packs what is installed: the folders get fixed permissions, instead of those that follow from the
# umask. The files have theirs from `install`.
cmake_minimum_required(VERSION 3.25)
file(GLOB_RECURSE entries LIST_DIRECTORIES true ${CPACK_TEMPORARY_DIRECTORY}/*)
foreach(entry IN LISTS entries)
    if(IS_DIRECTORY ${entry} AND NOT IS_SYMLINK ${entry})
        file(CHMOD ${entry} PERMISSIONS
            OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
    endif()
endforeach()
