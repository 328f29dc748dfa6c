# Installing the console and making its Debian package (make package).
#
# Layout under the prefix (/usr for the package):
#   bin/quintara
#   share/quintara/skins, share/quintara/examples      found beside the program at run time
#   share/applications, share/icons, share/metainfo    the desktop's menu and software centre
#   share/man/man1/quintara.1.gz, share/doc/quintara   manual page, command language, README
#   /lib/udev/rules.d/70-quintara-dmx.rules            FTDI adapters for the user at the seat

include(GNUInstallDirs)
set(PKG ${PROJECT_SOURCE_DIR}/packaging)
set(GEN ${PROJECT_BINARY_DIR}/packaging)
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

install(TARGETS quintara RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/skins/ DESTINATION ${CMAKE_INSTALL_DATADIR}/quintara/skins)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/ DESTINATION ${CMAKE_INSTALL_DATADIR}/quintara/examples
        PATTERN "*.png" EXCLUDE)
install(FILES ${PKG}/org.quintara.Quintara.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${PKG}/quintara.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
configure_file(${PKG}/org.quintara.Quintara.metainfo.xml ${GEN}/org.quintara.Quintara.metainfo.xml @ONLY)
install(FILES ${GEN}/org.quintara.Quintara.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${PKG}/70-quintara-dmx.rules DESTINATION /lib/udev/rules.d)

# The manual page and the changelog go in gzipped, without a time stamp, as Debian wants them.
configure_file(${PKG}/quintara.1 ${GEN}/quintara.1 @ONLY)
file(WRITE ${GEN}/changelog
     "quintara (${PROJECT_VERSION}) unstable; urgency=medium\n\n"
     "  * Release ${PROJECT_VERSION}.\n\n"
     " -- Quintara developers <maintainers@quintara.invalid>  Mon, 23 Nov 2026 12:00:00 +0000\n")
find_program(GZIP gzip REQUIRED)
add_custom_command(
  OUTPUT ${GEN}/quintara.1.gz ${GEN}/changelog.gz
  COMMAND ${GZIP} -9nf -k ${GEN}/quintara.1 ${GEN}/changelog
  DEPENDS ${GEN}/quintara.1 ${GEN}/changelog)
add_custom_target(quintara_manual DEPENDS ${GEN}/quintara.1.gz ${GEN}/changelog.gz)
add_dependencies(quintara quintara_manual)
install(FILES ${GEN}/quintara.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${PKG}/copyright ${GEN}/changelog.gz ${PROJECT_SOURCE_DIR}/README.md
              ${PROJECT_SOURCE_DIR}/docs/command-language.md
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/quintara)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quintara)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "Quintara developers <maintainers@quintara.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "theatre lighting console")
string(CONCAT CPACK_DEBIAN_PACKAGE_DESCRIPTION
       "Quintara mixes stage and preset scenes, twenty fader strips, two chasers,\n"
       "a cue list with timed crossfades and MIDI notes into one DMX512 universe,\n"
       "sent to an FTDI-based USB DMX adapter or, through OLA, to any DMX device\n"
       "or network. A headless mode runs the same console without a screen,\n"
       "driven by a small command language.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://github.com/quintara-console/quintara")
# The libraries the binary links come from dpkg-shlibdeps; what it loads at
# run time is named here: Qt's screen plugins and GStreamer's players.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "qt6-qpa-plugins, gstreamer1.0-plugins-base, gstreamer1.0-plugins-good")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "ola, gstreamer1.0-alsa | gstreamer1.0-pulseaudio")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_STRIP_FILES ON)
include(CPack)
