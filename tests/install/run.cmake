# Installs into a folder of its own, moves that folder (an installed tree must not know where it was), and builds and
# runs the outside project against it in every way that users have.
cmake_minimum_required(VERSION 3.25)

function(run what)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${what} failed (${result}):\n${output}")
  endif()
  set(output "${output}" PARENT_SCOPE)
  message(STATUS "${what}: ok")
endfunction()

file(REMOVE_RECURSE ${WORK_DIR})
run("install" ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${WORK_DIR}/first --config ${CONFIG})
file(RENAME ${WORK_DIR}/first ${WORK_DIR}/prefix)
set(prefix ${WORK_DIR}/prefix)

# With CMake: the shared and the static library.
foreach(library shared static)
  set(build ${WORK_DIR}/cmake-${library})
  run("configure (${library})" ${CMAKE_COMMAND} -S ${SOURCE_DIR} -B ${build} -G ${GENERATOR}
    -DCMAKE_MAKE_PROGRAM=${MAKE_PROGRAM} -DCMAKE_CXX_COMPILER=${CXX_COMPILER} -DCMAKE_CXX_FLAGS=${CXX_FLAGS}
    -DCMAKE_BUILD_TYPE=${CONFIG} -DCMAKE_PREFIX_PATH=${prefix} -DOUTSIDE_LIBRARY=${library})
  run("build (${library})" ${CMAKE_COMMAND} --build ${build} --config ${CONFIG})
  run("run (${library})" ${build}/outside ${build}/outside.dcm)
endforeach()

# A version that is not installed is refused.
execute_process(COMMAND ${CMAKE_COMMAND} -S ${SOURCE_DIR} -B ${WORK_DIR}/cmake-version -G ${GENERATOR}
  -DCMAKE_MAKE_PROGRAM=${MAKE_PROGRAM} -DCMAKE_CXX_COMPILER=${CXX_COMPILER} -DCMAKE_PREFIX_PATH=${prefix}
  -DOUTSIDE_LIBRARY=shared -DOUTSIDE_VERSION=99 RESULT_VARIABLE result OUTPUT_QUIET ERROR_QUIET)
if(result EQUAL 0)
  message(FATAL_ERROR "find_package(vdicom 99) was satisfied")
endif()

# With pkg-config. The flags come as a list for the command line.
if(PKG_CONFIG)
  set(ENV{PKG_CONFIG_PATH} ${prefix}/${LIBDIR}/pkgconfig)
  separate_arguments(flags UNIX_COMMAND "${CXX_FLAGS}")
  run("pkg-config" ${PKG_CONFIG} --cflags --libs vdicom)
  separate_arguments(package UNIX_COMMAND "${output}")
  run("compile (pkg-config)" ${CXX_COMPILER} -std=c++17 ${flags} ${SOURCE_DIR}/outside.cpp -o ${WORK_DIR}/outside
    ${package} -Wl,-rpath,${prefix}/${LIBDIR})
  run("run (pkg-config)" ${WORK_DIR}/outside ${WORK_DIR}/outside.dcm)
  # The static library alone: what --static adds must be enough to link it.
  file(MAKE_DIRECTORY ${WORK_DIR}/static)
  file(COPY ${prefix}/${LIBDIR}/libvdicom.a DESTINATION ${WORK_DIR}/static)
  run("pkg-config --static" ${PKG_CONFIG} --static --cflags --libs vdicom)
  separate_arguments(package UNIX_COMMAND "${output}")
  run("compile (pkg-config --static)" ${CXX_COMPILER} -std=c++17 ${flags} ${SOURCE_DIR}/outside.cpp
    -o ${WORK_DIR}/outside-static -L${WORK_DIR}/static ${package})
  file(RENAME ${prefix}/${LIBDIR} ${prefix}/hidden)
  run("run (pkg-config --static)" ${WORK_DIR}/outside-static ${WORK_DIR}/outside.dcm)
  file(RENAME ${prefix}/hidden ${prefix}/${LIBDIR})
else()
  message(STATUS "pkg-config is not installed: that way was not tried")
endif()

# Every public header stands by itself and is plain C++17.
file(GLOB headers RELATIVE ${prefix}/include/vdicom ${prefix}/include/vdicom/*.h)
foreach(header ${headers})
  file(WRITE ${WORK_DIR}/headers/${header}.cpp "#include <${header}>\n#include <${header}>\n")
  run("header ${header}" ${CXX_COMPILER} -std=c++17 -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror
    -I${prefix}/include/vdicom -fsyntax-only ${WORK_DIR}/headers/${header}.cpp)
endforeach()

# The first program of the README is one.
file(READ ${README} readme)
string(FIND "${readme}" "```cpp\n" from)
string(SUBSTRING "${readme}" ${from} -1 readme)
string(REGEX REPLACE "^```cpp\n" "" readme "${readme}")
string(FIND "${readme}" "```" to)
string(SUBSTRING "${readme}" 0 ${to} readme)
file(WRITE ${WORK_DIR}/readme.cpp "${readme}")
separate_arguments(flags UNIX_COMMAND "${CXX_FLAGS}")
run("compile (README)" ${CXX_COMPILER} -std=c++17 ${flags} ${WORK_DIR}/readme.cpp -o ${WORK_DIR}/readme
  -I${prefix}/include/vdicom -L${prefix}/${LIBDIR} -lvdicom -Wl,-rpath,${prefix}/${LIBDIR})
run("run (README)" ${WORK_DIR}/readme ${WORK_DIR}/outside.dcm)
if(NOT output MATCHES "00100010 Patient's Name")
  message(FATAL_ERROR "the README's program printed:\n${output}")
endif()

# The shared library has its SONAME, and the program runs from where it was installed.
file(GLOB soname ${prefix}/${LIBDIR}/libvdicom.so.[0-9])
if(NOT soname)
  message(FATAL_ERROR "there is no libvdicom.so.N")
endif()
if(PROGRAM)
  run("program" ${prefix}/bin/vdicom dump ${WORK_DIR}/outside.dcm)
  if(NOT output MATCHES "Doe\\^Jane") # as the README's program left it
    message(FATAL_ERROR "the program did not show the file:\n${output}")
  endif()
endif()
