# Installation and the Debian package: the programs, the radio link simulator in a folder of its own
# (so that it never stands in for the real library unless asked for), the desktop entry, the icons and
# the README.
include(GNUInstallDirs)

install(TARGETS quorvel quorvel-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS Dravlink LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/quorvel)
install(FILES ${CMAKE_CURRENT_LIST_DIR}/quorvel.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
foreach(size 48 128 256)
  install(FILES ${CMAKE_CURRENT_LIST_DIR}/icons/${size}x${size}/quorvel.png
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
endforeach()
install(FILES ${CMAKE_CURRENT_LIST_DIR}/quorvel.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES ${PROJECT_SOURCE_DIR}/README.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/quorvel)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/ DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/quorvel/docs)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quorvel)
set(CPACK_PACKAGE_VENDOR "Quorvel")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Menu designer for handheld radio ordering terminals")
set(CPACK_PACKAGE_DESCRIPTION
  "Orvik Quorvel keeps the product catalogue, lays out the magnet menu pages, writes their texts in five languages, prints the sheets and sends the menu to the terminals over the radio link.")
set(CPACK_PACKAGE_CONTACT "Quorvel developers <dev@quorvel.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
# The libraries come from what the programs link; the window system plugins are a package of their own.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins, fonts-dejavu-core")
include(CPack)
