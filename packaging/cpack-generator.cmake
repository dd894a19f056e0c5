# Read by cpack for each kind of package.
list(GET CPACK_INSTALL_CMAKE_PROJECTS 0 build)
if(CPACK_GENERATOR STREQUAL "DEB")
    # The menu entry holds the path under which the package will lie.
    set(CPACK_SET_DESTDIR ON)
    set(CPACK_INSTALL_PREFIX /usr)
    set(CPACK_INSTALL_CMAKE_PROJECTS "${build};VrkTrk;ALL;/;${build};VrkTrk;debian;/")
else()
    # No desktop looks into the folder of an unpacked tarball.
    set(CPACK_INSTALL_CMAKE_PROJECTS "${build};VrkTrk;program;/")
endif()
