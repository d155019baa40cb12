# 32-bit Windows, built with MinGW-w64.
set(CMAKE_SYSTEM_PROCESSOR x86)
set(VDICOM_MINGW i686-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/windows.cmake)
