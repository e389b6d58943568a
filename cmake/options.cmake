# The compile options of every target of the project: link this one target.
add_library(tarnwick_options INTERFACE)
target_compile_features(tarnwick_options INTERFACE cxx_std_20)
set(CMAKE_CXX_EXTENSIONS OFF)

target_compile_options(tarnwick_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual)
target_compile_definitions(tarnwick_options INTERFACE
    QT_USE_QSTRINGBUILDER
    QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_TO_ASCII
    QT_NO_CAST_FROM_BYTEARRAY
    QT_NO_URL_CAST_FROM_STRING
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
    QT_NO_FOREACH
    QT_NO_JAVA_STYLE_ITERATORS
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)

# Programs do not name the folder that they were built in, so that a commit gives the same programs in every folder. The
# last map is looked at first: the build folder may be inside of the other one.
target_compile_options(tarnwick_options INTERFACE
    -ffile-prefix-map=${PROJECT_SOURCE_DIR}=. -ffile-prefix-map=${PROJECT_BINARY_DIR}=build)

# tarnwick_precompile(TARGET HEADER...) compiles these headers once for TARGET. A file still includes all that it names:
# the preset `fuzz` builds without precompiled headers.
function(tarnwick_precompile target)
    if(TARNWICK_PRECOMPILE)
        target_precompile_headers(${target} PRIVATE ${ARGN})
    endif()
endfunction()
# tarnwick_share_precompiled(TARGET OTHER): TARGET takes the precompiled headers of OTHER.
function(tarnwick_share_precompiled target other)
    if(TARNWICK_PRECOMPILE)
        target_precompile_headers(${target} REUSE_FROM ${other})
    endif()
endfunction()

if(TARNWICK_SANITIZE)
    target_compile_options(tarnwick_options INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    target_link_options(tarnwick_options INTERFACE -fsanitize=address,undefined)
endif()

# The fuzzer recognises new inputs by the branches that they take. Assertions of the libraries are on: a position beyond
# the end of a text may still be valid memory, and the sanitizers would not notice it.
if(TARNWICK_FUZZ)
    target_compile_options(tarnwick_options INTERFACE -fsanitize=fuzzer-no-link)
    target_compile_definitions(tarnwick_options INTERFACE QT_FORCE_ASSERTS _GLIBCXX_ASSERTIONS)
endif()
