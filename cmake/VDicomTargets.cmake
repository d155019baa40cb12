# The targets of the library: an object library per folder of Common/, and the shared and static libraries made of them.

add_library(vdicom_warnings INTERFACE)
target_compile_options(vdicom_warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow
                                                 $<$<BOOL:${VDICOM_WERROR}>:-Werror>)
# GCC 12 sees overlapping copies in "text" + std::string where there are none.
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(vdicom_warnings INTERFACE -Wno-restrict)
endif()

# A symbol of GCC's "unique" kind, of which the standard library's headers make some, keeps a library in its process for
# ever: dlclose would do nothing.
include(CheckCXXCompilerFlag)
check_cxx_compiler_flag(-fno-gnu-unique VDICOM_HAS_NO_GNU_UNIQUE)

# vdicom_folder(NAME [SEES FOLDER...] [LINKS LIBRARY...]): Common/NAME with the headers of the folders it may see.
function(vdicom_folder name)
  cmake_parse_arguments(ARG "" "" "SEES;LINKS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/Common/${name}/*.cpp)
  if(name STREQUAL Platform)
    if(WIN32)
      file(GLOB backend CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/Common/Platform/win32/*.cpp)
    else()
      file(GLOB backend CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/Common/Platform/posix/*.cpp)
    endif()
    list(APPEND sources ${backend})
  endif()
  add_library(vdicom_${name} OBJECT ${sources})
  target_compile_options(vdicom_${name} PRIVATE $<$<BOOL:${VDICOM_HAS_NO_GNU_UNIQUE}>:-fno-gnu-unique>)
  # Exported classes are marked for the DLL; the same objects make the static library, whose users see them unmarked.
  target_compile_definitions(vdicom_${name} PRIVATE VDICOM_BUILD)
  target_include_directories(vdicom_${name} PUBLIC ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR}/Common/${name})
  target_link_libraries(vdicom_${name} PRIVATE vdicom_warnings PUBLIC ${ARG_LINKS})
  if(name STREQUAL tables)
    set_target_properties(vdicom_tables PROPERTIES CXX_CLANG_TIDY "") # rows alone: minutes for nothing
  endif()
  foreach(seen ${ARG_SEES})
    get_target_property(directories vdicom_${seen} INTERFACE_INCLUDE_DIRECTORIES)
    target_include_directories(vdicom_${name} PUBLIC ${directories})
  endforeach()
endfunction()

# vdicom_library(FOLDERS NAME... LINKS LIBRARY...): targets vdicom (shared) and vdicom_static.
function(vdicom_library)
  cmake_parse_arguments(ARG "" "" "FOLDERS;LINKS" ${ARGN})
  set(objects "")
  foreach(folder ${ARG_FOLDERS})
    list(APPEND objects $<TARGET_OBJECTS:vdicom_${folder}>)
  endforeach()
  add_library(vdicom SHARED ${objects})
  add_library(vdicom_static STATIC ${objects})
  set_target_properties(vdicom PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
  if(WIN32)
    set_target_properties(vdicom PROPERTIES PREFIX "") # vdicom.dll; its import library is libvdicom.dll.a
  endif()
  set_target_properties(vdicom_static PROPERTIES OUTPUT_NAME vdicom)
  target_compile_definitions(vdicom_static INTERFACE VDICOM_STATIC)
  foreach(target vdicom vdicom_static)
    target_include_directories(${target} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
                                                $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/vdicom>)
    target_link_libraries(${target} PRIVATE ${ARG_LINKS})
    target_compile_features(${target} INTERFACE cxx_std_17)
    add_library(vdicom::${target} ALIAS ${target})
  endforeach()
endfunction()
