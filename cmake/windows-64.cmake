# 64-bit Windows, built with MinGW-w64.
set(CMAKE_SYSTEM_PROCESSOR AMD64)
set(VDICOM_MINGW x86_64-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/windows.cmake)
