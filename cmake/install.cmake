# Where an installed Korvane stands, and the Debian package. The program finds its starter files at
# ../share/korvane/starter and the themes at ../themes beside these.

set(data ${CMAKE_INSTALL_DATADIR}/korvane)
foreach(program korvane korvanectl korvane-master korvane-listener korvane-lights)
  if(TARGET ${program})
    install(TARGETS ${program} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  endif()
endforeach()
# korvane-listener starts it in its own stead.
if(TARGET korvane-listener-movies)
  install(TARGETS korvane-listener-movies RUNTIME DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/korvane)
endif()
install(DIRECTORY starter DESTINATION ${data})
install(DIRECTORY themes/krvgraphics DESTINATION ${data}/themes)
install(FILES packaging/korvane.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(
  FILES themes/krvgraphics/MERIDIAN/logo.svg
  DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps
  RENAME korvane.svg)
install(FILES docs/settings.md docs/credits.md docs/protocol.md docs/buttons.md DESTINATION ${CMAKE_INSTALL_DOCDIR})

find_program(GZIP gzip REQUIRED)
function(korvane_zip from to)
  add_custom_command(
    OUTPUT ${CMAKE_BINARY_DIR}/${to}
    COMMAND ${GZIP} -9nc ${PROJECT_SOURCE_DIR}/${from} > ${CMAKE_BINARY_DIR}/${to}
    DEPENDS ${PROJECT_SOURCE_DIR}/${from}
    VERBATIM)
endfunction()
set(manuals)
foreach(program korvane korvanectl korvane-master korvane-listener korvane-lights)
  korvane_zip(packaging/${program}.1 ${program}.1.gz)
  list(APPEND manuals ${CMAKE_BINARY_DIR}/${program}.1.gz)
endforeach()
korvane_zip(packaging/changelog changelog.gz)
add_custom_target(korvane_manuals ALL DEPENDS ${manuals} ${CMAKE_BINARY_DIR}/changelog.gz)
install(FILES ${manuals} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
# Debian looks for units here whatever the library directory is called. They are not enabled.
install(FILES packaging/korvane-master.service packaging/korvane-listener.service packaging/korvane-lights.service
        DESTINATION lib/systemd/system)
install(FILES ${CMAKE_BINARY_DIR}/changelog.gz packaging/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME korvane)
set(CPACK_PACKAGE_CONTACT "Korvane developers <developers@korvane.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "touch-screen media and cabin control centre")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "A full-screen console for a car, a cabin or a home, worked with a finger:
 a music library with playlists and cover art, playing here or through
 Listener services on the cabin's network, and themes drawn to any size.
 It scans a million songs and opens at once. A control socket lets hardware
 keys and scripts press what a finger presses.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "qt6-qpa-plugins, vlc-plugin-base, vlc-plugin-video-output, libvlc-bin, fonts-inter, fonts-dejavu-core")
# Doors of CD drives without root; the certificates of CDDB servers.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "udisks2, ca-certificates")
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS ${CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})
include(CPack)
