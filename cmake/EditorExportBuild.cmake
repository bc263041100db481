# SPDX-License-Identifier: GPL-3.0-or-later
# Flags and the two functions by which every room is declared.
include(GNUInstallDirs)
include(GenerateExportHeader)
include(LibraryExports)

if(PROJECT_IS_TOP_LEVEL AND NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "Debug, Release, RelWithDebInfo, MinSizeRel, or None for CMAKE_CXX_FLAGS alone" FORCE)
endif()

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
# What a build is linked with names no folder of it: the linker's build ids count that, also after the installation has taken it out.
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
# A room says what it needs of Qt's compilers, whatever a project around this one does.
set(CMAKE_AUTOMOC OFF)
set(CMAKE_AUTOUIC OFF)
set(CMAKE_AUTORCC OFF)
# One folder for all libraries, as the engine looks for its codecs beside itself; never one of a project around this one.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
if(EDITOREXPORT_RELOCATABLE)
  set(CMAKE_INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}:$ORIGIN")
else()
  set(CMAKE_INSTALL_RPATH "")
endif()

# While the first number is 0, the second rises with every change that a program built before would not survive.
if(PROJECT_VERSION_MAJOR EQUAL 0)
  set(EDITOREXPORT_SOVERSION "0.${PROJECT_VERSION_MINOR}")
else()
  set(EDITOREXPORT_SOVERSION "${PROJECT_VERSION_MAJOR}")
endif()
configure_file("${CMAKE_CURRENT_LIST_DIR}/EditorExportVersion.h.in" "${PROJECT_BINARY_DIR}/include/EditorExportVersion.h" @ONLY)

find_program(EDITOREXPORT_CCACHE ccache)
if(EDITOREXPORT_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${EDITOREXPORT_CCACHE}")
endif()

# What is built for others says nothing of the folder that it was built in; what is built to be looked at does, by which
# debuggers find the sources.
set(reproducible OFF)
if(CMAKE_BUILD_TYPE MATCHES "^(RelWithDebInfo|Release|MinSizeRel)$")
  set(reproducible ON)
endif()
option(EDITOREXPORT_REPRODUCIBLE "Nothing that is built depends on the folder it is built in" ${reproducible})
if(EDITOREXPORT_REPRODUCIBLE)
  add_compile_options("-ffile-prefix-map=${PROJECT_SOURCE_DIR}/=" "-ffile-prefix-map=${PROJECT_BINARY_DIR}=build")
endif()

add_library(editorexport_flags INTERFACE)
target_compile_options(editorexport_flags INTERFACE -Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Wsuggest-override)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(editorexport_flags INTERFACE -Wshadow=local)
endif()
if(EDITOREXPORT_WERROR)
  target_compile_options(editorexport_flags INTERFACE -Werror)
endif()
target_compile_definitions(editorexport_flags INTERFACE
  QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_STRICT_ITERATORS
  QT_DEPRECATED_WARNINGS BOOST_BIND_GLOBAL_PLACEHOLDERS)

if(EDITOREXPORT_SANITIZE)
  add_compile_options(-fsanitize=${EDITOREXPORT_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  add_link_options(-fsanitize=${EDITOREXPORT_SANITIZE})
endif()
if(NOT (EDITOREXPORT_SANITIZE AND CMAKE_CXX_COMPILER_ID MATCHES "Clang"))
  add_link_options($<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,SHARED_LIBRARY>:-Wl,--no-undefined>)
endif()

# editorexport_room(FOLDER LIBRARY name ROOT dir [QT] [SOURCES s...] [OWN headers...] [DEPENDS folders...] [LIBRARIES libs...])
# One folder below ROOT, with its Details if it has any, as a target of its own: the objects of one library. DEPENDS names
# the rooms that its files may include, beside those that these depend on; one that is not yet declared is an error, so
# the order of the declarations is the order of dependency. Headers are API and installed, but for those under OWN: names,
# or ALL. QT turns the meta-object compiler on.
function(editorexport_room folder)
  cmake_parse_arguments(ARG "QT" "LIBRARY;ROOT" "SOURCES;OWN;DEPENDS;LIBRARIES" ${ARGN})
  editorexport_room_target(room "${folder}")
  set(path "${ARG_ROOT}/${folder}")
  file(GLOB sources CONFIGURE_DEPENDS "${path}/*.cpp" "${path}/Details/*.cpp")
  file(GLOB headers CONFIGURE_DEPENDS "${path}/*.h" "${path}/Details/*.h")
  list(APPEND sources ${ARG_SOURCES})
  if(sources)
    set(scope PUBLIC)
    add_library(${room} OBJECT ${sources} ${headers})
    target_link_libraries(${room} PRIVATE editorexport_flags)
    # Threads that were left work on while the process ends: what they use is never destroyed.
    target_compile_options(${room} PRIVATE $<$<CXX_COMPILER_ID:Clang>:-Wexit-time-destructors>)
    foreach(resources IN LISTS ARG_SOURCES) # Qt's own
      set_source_files_properties("${resources}" PROPERTIES COMPILE_OPTIONS $<$<CXX_COMPILER_ID:Clang>:-Wno-exit-time-destructors>)
    endforeach()
    if(ARG_QT)
      set_target_properties(${room} PROPERTIES AUTOMOC ON AUTOMOC_PATH_PREFIX ON)
    endif()
  else()
    set(scope INTERFACE)
    add_library(${room} INTERFACE)
  endif()
  target_include_directories(${room} ${scope} "${ARG_ROOT}" "${PROJECT_BINARY_DIR}/include")
  foreach(lower IN LISTS ARG_DEPENDS)
    editorexport_room_target(lower_room "${lower}")
    if(NOT TARGET ${lower_room})
      message(FATAL_ERROR "${folder} depends on ${lower}, which is not declared before it")
    endif()
    target_link_libraries(${room} ${scope} ${lower_room})
  endforeach()
  target_link_libraries(${room} ${scope} ${ARG_LIBRARIES})
  set_property(GLOBAL APPEND PROPERTY EDITOREXPORT_ROOMS_OF_${ARG_LIBRARY} ${room})
  if(NOT ARG_OWN STREQUAL "ALL")
    list(TRANSFORM ARG_OWN PREPEND "${path}/")
    foreach(own IN LISTS ARG_OWN)
      if(NOT own IN_LIST headers)
        message(FATAL_ERROR "${folder} has no header ${own}")
      endif()
    endforeach()
    list(REMOVE_ITEM headers ${ARG_OWN})
    set_property(GLOBAL APPEND PROPERTY EDITOREXPORT_API_ROOTS ${ARG_ROOT})
    set_property(GLOBAL APPEND PROPERTY EDITOREXPORT_API_HEADERS ${headers})
  endif()
endfunction()

function(editorexport_room_target out folder)
  string(REPLACE "/" "_" room "room_${folder}")
  set(${out} "${room}" PARENT_SCOPE)
endfunction()

# editorexport_library(NAME ROOT dir [DESCRIPTION text] EXPORTS names... [OWN_EXPORTS names...] [PUBLIC libs...] [PRIVATE libs...])
# The shared library of all the rooms that name it; headers are included relative to ROOT. Generates <NAME>Export.h with the
# macros <NAME>_EXPORT (types) in capitals. Tests that look inside link NAME_inner beside NAME: it gives them what NAME
# keeps to itself. EXPORTS are the namespaces and global classes whose symbols may leave it, if they are marked, too, and
# OWN_EXPORTS what of them only libraries and programs of this repository link (LibraryExports.cmake). One with a DESCRIPTION is
# for embedders to link, and gets a pkg-config file.
function(editorexport_library name)
  cmake_parse_arguments(ARG "" "ROOT;DESCRIPTION" "EXPORTS;OWN_EXPORTS;PUBLIC;PRIVATE" ${ARGN})
  get_property(rooms GLOBAL PROPERTY EDITOREXPORT_ROOMS_OF_${name})
  add_library(${name} SHARED)
  add_library(EditorExport::${name} ALIAS ${name})
  string(TOUPPER ${name} upper)
  generate_export_header(${name} BASE_NAME ${upper}
    EXPORT_FILE_NAME "${PROJECT_BINARY_DIR}/include/${name}Export.h")
  target_include_directories(${name} PUBLIC
    $<BUILD_INTERFACE:${ARG_ROOT}> $<BUILD_INTERFACE:${PROJECT_BINARY_DIR}/include>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/EditorExport>)
  set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX VERSION ${PROJECT_VERSION} SOVERSION ${EDITOREXPORT_SOVERSION})
  target_compile_features(${name} INTERFACE cxx_std_17)
  editorexport_limit_exports(${name} EXPORTS ${ARG_EXPORTS} OWN_EXPORTS ${ARG_OWN_EXPORTS})
  set_property(GLOBAL APPEND PROPERTY EDITOREXPORT_LIBRARIES ${name})
  set_property(GLOBAL PROPERTY EDITOREXPORT_PUBLIC_OF_${name} ${ARG_PUBLIC})
  set_property(GLOBAL PROPERTY EDITOREXPORT_DESCRIPTION_OF_${name} "${ARG_DESCRIPTION}")
  target_link_libraries(${name} PUBLIC ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE})
  foreach(room IN LISTS rooms)
    target_link_libraries(${name} PRIVATE $<BUILD_INTERFACE:${room}>)
  endforeach()
  editorexport_archive(${name})
  target_link_libraries(${name}_inner INTERFACE ${ARG_PUBLIC} ${ARG_PRIVATE})
endfunction()

# NAME_inner: what links it finds what NAME exports in NAME itself, if that is a library, and the rest in an archive of the
# objects of NAME's rooms. The linker gets both in one piece: CMake would move the library behind the archive, which would
# then be taken for everything.
function(editorexport_archive name)
  get_property(rooms GLOBAL PROPERTY EDITOREXPORT_ROOMS_OF_${name})
  add_library(${name}_archive STATIC EXCLUDE_FROM_ALL)
  set_target_properties(${name}_archive PROPERTIES LINKER_LANGUAGE CXX)
  add_library(${name}_inner INTERFACE)
  foreach(room IN LISTS rooms)
    get_target_property(type ${room} TYPE)
    if(type STREQUAL "OBJECT_LIBRARY")
      target_sources(${name}_archive PRIVATE $<TARGET_OBJECTS:${room}>)
    endif()
    target_include_directories(${name}_inner INTERFACE $<TARGET_PROPERTY:${room},INTERFACE_INCLUDE_DIRECTORIES>)
  endforeach()
  # Paths, as generator expressions would have the library's objects listed before those of the meta-object compiler are.
  set(files "${CMAKE_ARCHIVE_OUTPUT_DIRECTORY}/${CMAKE_STATIC_LIBRARY_PREFIX}${name}_archive${CMAKE_STATIC_LIBRARY_SUFFIX}")
  get_target_property(type ${name} TYPE)
  if(type STREQUAL "SHARED_LIBRARY")
    list(PREPEND files
      "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}/${CMAKE_SHARED_LIBRARY_PREFIX}${name}${CMAKE_SHARED_LIBRARY_SUFFIX}")
  endif()
  add_dependencies(${name}_inner ${name} ${name}_archive)
  set_property(TARGET ${name}_inner PROPERTY INTERFACE_LINK_DEPENDS ${files})
  list(JOIN files "," files)
  target_link_libraries(${name}_inner INTERFACE "-Wl,${files}")
  # What the objects need of other libraries may stand before them.
  target_link_options(${name}_inner INTERFACE -Wl,--no-as-needed)
endfunction()
