# The Debian package. Its own files (copyright, changelog, lintian overrides, the menu entry of the desk) are a component
# that only cpack installs.

# The licence stands in one place.
file(READ ${PROJECT_SOURCE_DIR}/LICENSE licence)
set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/LICENSE)
configure_file(${packaging_folder}/debian/copyright.in ${generated}/debian/copyright @ONLY)
configure_file(${packaging_folder}/debian/changelog.in ${generated}/debian/changelog @ONLY)
configure_file(${packaging_folder}/debian/lintian-overrides ${generated}/debian/overrides/pedigreewatch COPYONLY)
compress_file(${generated}/debian/changelog)
install(FILES ${generated}/debian/copyright ${generated}/debian/changelog.gz DESTINATION ${CMAKE_INSTALL_DOCDIR}
        COMPONENT debian EXCLUDE_FROM_ALL)
install(FILES ${generated}/debian/overrides/pedigreewatch DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides
        COMPONENT debian EXCLUDE_FROM_ALL)
install(FILES ${packaging_folder}/debian/pedigreewatch.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications
        COMPONENT debian EXCLUDE_FROM_ALL)
install(FILES ${packaging_folder}/debian/pedigreewatch.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT debian EXCLUDE_FROM_ALL)

set(CPACK_INSTALL_CMAKE_PROJECTS
    "${PROJECT_BINARY_DIR};${PROJECT_NAME};ALL;/;${PROJECT_BINARY_DIR};${PROJECT_NAME};debian;/")
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${CPACK_PACKAGE_CONTACT}")
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils")  # opens the desk from the menu
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Pedigree Watch reads the pedigree of a whole population (a breed, a herdbook,
a flock) and writes one text report with everything per year of birth: numbers
of animals and parents, litter sizes, ages of the parents, generation
interval, completeness of the pedigrees, inbreeding, kinship, the rates of
both and the effective population size, for the population as a whole and for
its subpopulations.
.
Report and messages are in English or in Dutch.")
