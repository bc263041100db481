# SPDX-License-Identifier: GPL-3.0-or-later
# Debian packages by cpack; scripts/package makes and checks them. They are made from the preset "package", which knows that its
# files go to /usr and stay there.
set(package_library "libeditorexport${EDITOREXPORT_SOVERSION}")
set(package_development "libeditorexport-dev")
set(package_tools "editor-export")
set(package_window "editor-export-dialog")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME editor-export)
set(CPACK_PACKAGE_VENDOR "The authors of EditorExport")
set(CPACK_PACKAGE_CONTACT "The authors of EditorExport <maintainers@editorexport.invalid>")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGING_INSTALL_PREFIX "/usr")
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL runtime development tools window)
set(CPACK_COMPONENTS_GROUPING IGNORE)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SECTION video)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# Dependencies are those that dpkg-shlibdeps finds, in the libraries of the same build too.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME "${package_library}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${PROJECT_SOURCE_DIR}/packaging/debian/triggers")
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "Export module of a video editor: libraries
EditorExport turns media files, timelines or the project of a video editor
into a finished media file, and checks it before it gets its name.

This package holds the libraries and the catalogue of presets.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME "${package_tools}")
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${package_library} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_TOOLS_PACKAGE_SUGGESTS "${package_window}")
set(CPACK_COMPONENT_TOOLS_DESCRIPTION "Export media files and timelines to finished files
EditorExport turns media files and OpenTimelineIO timelines into a finished
media file, and checks it before it gets its name: frame count, duration,
sound in step with the picture, colours, readable to the last byte.

This package holds the command line, with its page and completions for shells.")

# In a package of its own: computers without a desktop need none of Qt's widgets.
set(CPACK_DEBIAN_WINDOW_PACKAGE_NAME "${package_window}")
set(CPACK_DEBIAN_WINDOW_PACKAGE_DEPENDS "${package_library} (= ${PROJECT_VERSION})")
# What opens finished files and their folders; the translations of Qt's own dialogs.
set(CPACK_DEBIAN_WINDOW_PACKAGE_RECOMMENDS "xdg-utils, qttranslations5-l10n")
set(CPACK_COMPONENT_WINDOW_DESCRIPTION "Export media files and timelines in a window
EditorExport turns media files and OpenTimelineIO timelines into a finished
media file, and checks it before it gets its name: frame count, duration,
sound in step with the picture, colours, readable to the last byte.

This package holds the export window: presets with search, a range chosen on
pictures of the source, a queue of exports, a preview of what is encoded.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME "${package_development}")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_GENERATE_SHLIBS OFF)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
  "${package_library} (= ${PROJECT_VERSION}), qtbase5-dev (>= 5.15), libboost1.74-dev | libboost-dev (>= 1.74)")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "Export module of a video editor: development files
EditorExport turns media files, timelines or the project of a video editor
into a finished media file, and checks it before it gets its name.

This package holds headers, pkg-config files, the CMake package and examples.")

# What policy wants of every package, compressed in a way that knows no date.
function(editorexport_install_package_documents component package)
  set(folder "${PROJECT_BINARY_DIR}/packaging/${package}")
  add_custom_command(OUTPUT "${folder}/changelog.gz"
    COMMAND "${CMAKE_COMMAND}" -E make_directory "${folder}"
    COMMAND gzip -9nc "${PROJECT_SOURCE_DIR}/packaging/debian/changelog" > "${folder}/changelog.gz"
    DEPENDS "${PROJECT_SOURCE_DIR}/packaging/debian/changelog" VERBATIM)
  add_custom_target(package_documents_${component} ALL DEPENDS "${folder}/changelog.gz")
  install(FILES "${folder}/changelog.gz" packaging/debian/copyright DESTINATION share/doc/${package} COMPONENT ${component})
endfunction()
if(EDITOREXPORT_PACKAGES)
  editorexport_install_package_documents(runtime ${package_library})
  editorexport_install_package_documents(tools ${package_tools})
  editorexport_install_package_documents(window ${package_window})
  editorexport_install_package_documents(development ${package_development})
  set(CPACK_POST_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/packaging/repack.cmake")
endif()

include(CPack)
