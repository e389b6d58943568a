# MinGW-w64 on Debian, with Qt for Windows in the folder that TARNWICK_WINDOWS_KIT names.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

if(DEFINED ENV{TARNWICK_WINDOWS_KIT})
    set(TARNWICK_WINDOWS_KIT "$ENV{TARNWICK_WINDOWS_KIT}" CACHE PATH "Folder with Qt and SQLite for Windows" FORCE)
endif()
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES TARNWICK_WINDOWS_KIT)
if(NOT IS_DIRECTORY "${TARNWICK_WINDOWS_KIT}")
    message(FATAL_ERROR "Set the environment variable TARNWICK_WINDOWS_KIT to the folder of the Windows kit.")
endif()
set(QT_HOST_PATH /usr CACHE PATH "Where the Qt tools of this machine are installed")
set(QT_HOST_PATH_CMAKE_DIR "/usr/lib/${CMAKE_HOST_SYSTEM_PROCESSOR}-linux-gnu/cmake" CACHE PATH "")

# Programs do not hold the time at which they were linked.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-Wl,--no-insert-timestamp")

# Tests are run on Wine.
set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/../windows/wine")

# Debian has zlib for MinGW-w64, which is linked into the programs.
set(ZLIB_USE_STATIC_LIBS ON)

set(CMAKE_FIND_ROOT_PATH "${TARNWICK_WINDOWS_KIT}" /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
