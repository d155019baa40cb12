# MinGW-w64, for windows-32.cmake and windows-64.cmake, which set VDICOM_MINGW to the compilers' prefix. The posix
# thread model: the other one has no std::mutex. Everything is linked statically, so that the DLL and the programs need
# nothing but what every Windows has.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_C_COMPILER ${VDICOM_MINGW}-gcc-posix)
set(CMAKE_CXX_COMPILER ${VDICOM_MINGW}-g++-posix)
set(CMAKE_RC_COMPILER ${VDICOM_MINGW}-windres)
set(CMAKE_FIND_ROOT_PATH /usr/${VDICOM_MINGW})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -static-libgcc -static-libstdc++")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static -static-libgcc -static-libstdc++")
set(ZLIB_USE_STATIC_LIBS ON)
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../scripts/wine-run)
