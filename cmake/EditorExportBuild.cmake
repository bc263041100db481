# Flags and the two functions by which every room is declared.
include(GNUInstallDirs)
include(GenerateExportHeader)

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}:$ORIGIN")

find_program(EDITOREXPORT_CCACHE ccache)
if(EDITOREXPORT_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${EDITOREXPORT_CCACHE}")
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

# editorexport_library(NAME ROOT dir SOURCES ... [PUBLIC libs...] [PRIVATE libs...] [QT])
# A shared library whose headers are included relative to ROOT. Generates <NAME>Export.h with the
# macros <NAME>_EXPORT (types) in capitals. QT turns the meta-object compiler on.
function(editorexport_library name)
  cmake_parse_arguments(ARG "QT" "ROOT" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
  add_library(${name} SHARED ${ARG_SOURCES})
  add_library(EditorExport::${name} ALIAS ${name})
  string(TOUPPER ${name} upper)
  generate_export_header(${name} BASE_NAME ${upper}
    EXPORT_FILE_NAME "${CMAKE_BINARY_DIR}/include/${name}Export.h")
  target_include_directories(${name} PUBLIC
    $<BUILD_INTERFACE:${ARG_ROOT}> $<BUILD_INTERFACE:${CMAKE_BINARY_DIR}/include>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/EditorExport>)
  target_link_libraries(${name} PUBLIC ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE} $<BUILD_INTERFACE:editorexport_flags>)
  set_target_properties(${name} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
  if(ARG_QT)
    set_target_properties(${name} PROPERTIES AUTOMOC ON AUTOMOC_PATH_PREFIX ON)
  endif()
endfunction()
