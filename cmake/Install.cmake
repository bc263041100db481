# The install tree: libraries, headers, the program, resources, the CMake package and the pkg-config file.
include(CMakePackageConfigHelpers)

set(EDITOREXPORT_DATADIR "${CMAKE_INSTALL_DATADIR}/editor-export")
set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/EditorExport")

install(TARGETS Kestra KestraFF KestraQt EditorModel EditorPreset EditorExport EditorTimeline EditorRender EditorProject ExportCore
  EXPORT EditorExportTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS editor-export RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

set(header_dir "${CMAKE_INSTALL_INCLUDEDIR}/EditorExport")
get_property(api_headers GLOBAL PROPERTY EDITOREXPORT_API_HEADERS)
get_property(api_roots GLOBAL PROPERTY EDITOREXPORT_API_ROOTS)
list(REMOVE_DUPLICATES api_roots)
foreach(root IN LISTS api_roots)
  foreach(header IN LISTS api_headers)
    cmake_path(IS_PREFIX root "${header}" is_below)
    if(is_below)
      cmake_path(RELATIVE_PATH header BASE_DIRECTORY "${root}" OUTPUT_VARIABLE included_as)
      cmake_path(GET included_as PARENT_PATH folder)
      install(FILES "${header}" DESTINATION "${header_dir}/${folder}")
    endif()
  endforeach()
endforeach()
install(DIRECTORY "${CMAKE_BINARY_DIR}/include/" DESTINATION ${header_dir} FILES_MATCHING PATTERN "*.h")
install(DIRECTORY resources/presets DESTINATION ${EDITOREXPORT_DATADIR})

install(EXPORT EditorExportTargets NAMESPACE EditorExport:: DESTINATION ${package_dir})
configure_package_config_file(cmake/EditorExportConfig.cmake.in "${CMAKE_BINARY_DIR}/EditorExportConfig.cmake"
  INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file("${CMAKE_BINARY_DIR}/EditorExportConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(FILES "${CMAKE_BINARY_DIR}/EditorExportConfig.cmake" "${CMAKE_BINARY_DIR}/EditorExportConfigVersion.cmake"
  DESTINATION ${package_dir})

# The tree may be moved: the file finds its prefix from its own place.
file(RELATIVE_PATH EDITOREXPORT_PREFIX_FROM_PC "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
configure_file(cmake/EditorExport.pc.in "${CMAKE_BINARY_DIR}/EditorExport.pc" @ONLY)
install(FILES "${CMAKE_BINARY_DIR}/EditorExport.pc" DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
