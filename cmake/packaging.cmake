# What is installed, and the Debian package of it. The program stands beside neither its help pages nor
# its settings: the launcher brings them together in a folder of the user's own.
set(CMAKE_INSTALL_DOCDIR share/doc/${MORLEN_PACKAGE})
include(GNUInstallDirs)
set(MORLEN_LIB lib/${MORLEN_PACKAGE})
set(MORLEN_SHARE ${CMAKE_INSTALL_DATAROOTDIR}/${MORLEN_PACKAGE})

install(TARGETS MorlenEditor DESTINATION ${MORLEN_LIB})
install(PROGRAMS packaging/morlen-utilities DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY Docs DESTINATION ${MORLEN_SHARE})
install(FILES Donate.htm data/ZENTAM.OCX DESTINATION ${MORLEN_SHARE})
install(FILES packaging/morlen-utilities.desktop
  DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/applications)
install(FILES packaging/morlen-utilities.svg
  DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/icons/hicolor/scalable/apps)
install(FILES LICENSE CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES data/README.md DESTINATION ${CMAKE_INSTALL_DOCDIR} RENAME airport-list.md)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ${MORLEN_PACKAGE})
set(CPACK_PACKAGE_CONTACT "Ostrel")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_FILE_NAME ${MORLEN_PACKAGE}-${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "wine | wine-stable, xdg-utils")
include(CPack)
