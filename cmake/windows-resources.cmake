# tarnwick_resources(TARGET DESCRIPTION [ICON]): gives a program what Windows shows of it and asks it for: version,
# manifest, and an icon.
function(tarnwick_resources target description)
    if(NOT WIN32)
        return()
    endif()
    set(PROGRAM ${target})
    set(DESCRIPTION ${description})
    if(ARGC GREATER 2)
        set(ICON_LINE "1 ICON \"${ARGV2}\"")
    endif()
    configure_file(${PROJECT_SOURCE_DIR}/windows/tarnwick.rc.in ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc @ONLY)
    target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
endfunction()
