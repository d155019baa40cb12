# Header-only libraries of the program: CLI11, fmt, rapidjson, spdlog. Their headers are the
# same for every target, so cross builds take the build machine's through a folder of links of their own: adding all of
# /usr/include would put glibc's headers before the target's.
function(vdicom_header_library target folder header)
  if(TARGET ${target})
    return()
  endif()
  find_path(VDICOM_${folder}_DIR ${folder}/${header} PATHS /usr/include /usr/local/include
            NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  set(links ${CMAKE_BINARY_DIR}/header-libraries)
  file(MAKE_DIRECTORY ${links})
  file(CREATE_LINK ${VDICOM_${folder}_DIR}/${folder} ${links}/${folder} SYMBOLIC)
  add_library(${target} INTERFACE IMPORTED GLOBAL)
  target_include_directories(${target} SYSTEM INTERFACE ${links})
endfunction()

vdicom_header_library(CLI11::CLI11 CLI CLI.hpp)
vdicom_header_library(fmt::fmt-header-only fmt format.h)
vdicom_header_library(rapidjson::rapidjson rapidjson writer.h)
set_property(TARGET fmt::fmt-header-only PROPERTY INTERFACE_COMPILE_DEFINITIONS FMT_HEADER_ONLY=1)
vdicom_header_library(spdlog::spdlog_header_only spdlog spdlog.h)
set_property(TARGET spdlog::spdlog_header_only PROPERTY INTERFACE_COMPILE_DEFINITIONS SPDLOG_FMT_EXTERNAL=1)
