# Compiles for Windows with Debian's g++-mingw-w64-x86-64-posix. MERGELOOM_WINDOWS_LIBRARIES names the folder with what
# tools/build_windows_libraries has built.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_AR x86_64-w64-mingw32-gcc-ar-posix CACHE FILEPATH "")
set(CMAKE_RANLIB x86_64-w64-mingw32-gcc-ranlib-posix CACHE FILEPATH "")

list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES MERGELOOM_WINDOWS_LIBRARIES)
set(CMAKE_FIND_ROOT_PATH ${MERGELOOM_WINDOWS_LIBRARIES} /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Tests run under Wine.
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../../tools/wine)

# The programs need nothing but Windows: the compiler's own libraries are inside.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
