# The Debian package, as script/package makes it.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quarnel)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION TRUE)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What no library tells: the fonts of the windows, and of the plot and the report.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-dejavu-core, fonts-liberation")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "hicolor-icon-theme, qt6-wayland, shared-mime-info")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "bash-completion, cups")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "slug test analysis by the Bouwer-Rice method")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "Quarnel computes the hydraulic conductivity around a well from a slug test.
It takes the dimensions of one well and the water levels measured after a
slug went in or came out, checks every entry, fits a line to ln(Y) against
time through the points chosen, and gives the conductivity in the units
wanted, with the plot to judge the fit by and a report.

It suits fully and partially penetrating wells in unconfined aquifers,
screens below or across the water table, and rising as well as falling head
tests. Readings are typed, pasted or imported from the files of water level
loggers. quarnel-cli does the same analysis in a terminal.")
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE ${CMAKE_PROJECT_HOMEPAGE_URL})
include(CPack)
