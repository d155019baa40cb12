# 32-bit programs on 64-bit Linux: Debian's g++-multilib, and lib32z1-dev for zlib.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i686)
# SSE2 arithmetic: the x87 registers' extra bits would make numbers differ from those of every other platform.
set(CMAKE_C_FLAGS_INIT "-m32 -msse2 -mfpmath=sse")
set(CMAKE_CXX_FLAGS_INIT "-m32 -msse2 -mfpmath=sse")
set(CMAKE_LIBRARY_PATH /usr/lib32)
