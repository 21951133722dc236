# What `cmake --install` puts in place and `cpack -G DEB` makes a package of.
#
# The program, its module and the empty catalogue lie together in a folder of their own, since the program
# looks for them beside itself; bin/ holds a link to it.
include(GNUInstallDirs)

set(QUAVERLY_RELEASE_DATE 2026-11-22)
set(QUAVERLY_RELEASE_DAY "Sun, 22 Nov 2026")
set(program_folder ${CMAKE_INSTALL_LIBEXECDIR}/quaverly)
set(staging ${PROJECT_BINARY_DIR}/packaging)

install(TARGETS quaverly RUNTIME DESTINATION ${program_folder})
install(TARGETS quaverly-media LIBRARY DESTINATION ${program_folder})
install(FILES ${QUAVERLY_EMPTY_CATALOGUE} DESTINATION ${program_folder})

cmake_path(RELATIVE_PATH program_folder BASE_DIRECTORY ${CMAKE_INSTALL_BINDIR} OUTPUT_VARIABLE link_target)
file(MAKE_DIRECTORY ${staging})
file(CREATE_LINK ${link_target}/quaverly ${staging}/quaverly SYMBOLIC)
install(FILES ${staging}/quaverly DESTINATION ${CMAKE_INSTALL_BINDIR})

configure_file(packaging/org.quaverly.Quaverly.metainfo.xml.in
  ${staging}/org.quaverly.Quaverly.metainfo.xml @ONLY)
configure_file(packaging/quaverly.1.in ${staging}/quaverly.1 @ONLY)
configure_file(packaging/debian-changelog.in ${staging}/changelog.Debian @ONLY)

# gzip without a time stamp, so that the same sources give the same package
function(compressed source result)
  add_custom_command(OUTPUT ${staging}/${result}
    COMMAND gzip -9nc ${source} > ${staging}/${result}
    DEPENDS ${source} VERBATIM)
endfunction()
compressed(${staging}/quaverly.1 quaverly.1.gz)
compressed(${PROJECT_SOURCE_DIR}/CHANGELOG.md changelog.gz)
compressed(${staging}/changelog.Debian changelog.Debian.gz)
add_custom_target(packaging ALL
  DEPENDS ${staging}/quaverly.1.gz ${staging}/changelog.gz ${staging}/changelog.Debian.gz)
# All that is installed, without tests, samples and benchmarks.
add_custom_target(installed DEPENDS quaverly quaverly-media empty_catalogue packaging)

install(FILES ${staging}/quaverly.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES packaging/quaverly.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/quaverly.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES packaging/quaverly-mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages
  RENAME quaverly.xml)
install(FILES ${staging}/org.quaverly.Quaverly.metainfo.xml
  DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(DIRECTORY docs/site DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/quaverly)
install(FILES packaging/copyright ${staging}/changelog.gz ${staging}/changelog.Debian.gz
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/quaverly)

# Menus and file managers read indexes. A package's own are made anew by the system when it is unpacked.
install(CODE [[
  if("$ENV{DESTDIR}" STREQUAL "" AND NOT CMAKE_INSTALL_PREFIX MATCHES "/_CPack_Packages/")
    foreach(index "update-mime-database;mime" "update-desktop-database;applications")
      list(POP_BACK index folder)
      execute_process(COMMAND ${index} "${CMAKE_INSTALL_PREFIX}/share/${folder}" RESULT_VARIABLE failure)
      if(failure)
        message(STATUS "Not run: ${index} (${failure})")
      endif()
    endforeach()
  endif()
]])

install(FILES packaging/lintian-overrides DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides
  RENAME quaverly)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quaverly)
set(CPACK_PACKAGE_CONTACT "The Quaverly developers <developers@quaverly.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "catalogue of the music on your disks")
set(CPACK_PACKAGE_DESCRIPTION
  "Quaverly reads the tags of music files, a folder or a whole drive at a time,
keeps them in a catalogue that is a single file, and shows all songs in one
list that can be sorted and shown in part.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What Qt loads by name: the plugin for Wayland, the one for X being in Qt's own library, and those for SVG icons
# and for WebP pictures.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-wayland, libqt6svg6, qt6-image-formats-plugins")
# xdg-open shows the help and the web look-ups.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils")
include(CPack)
