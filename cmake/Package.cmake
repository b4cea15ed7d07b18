# `cpack` in the Linux build tree makes an installable Debian package of the
# install tree under /usr. Installing it registers the drop-in as a choice of
# the system's libblas.so.3 (Debian's alternative), above the other BLAS
# libraries, so that programs linked against the reference BLAS run on ORV;
# removing it takes the choice away again.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME orv)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Dense linear algebra kernels with the standard BLAS interface")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "ORV developers <orv@localhost>")
set(CPACK_DEBIAN_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libc6, libomp5-14")

# The maintainer scripts name the drop-in where the package puts it.
set(ORV_DROPIN_PATH ${CPACK_PACKAGING_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}/orv/libblas.so.3)
set(ORV_BLAS_ALTERNATIVE libblas.so.3-${CMAKE_LIBRARY_ARCHITECTURE})
set(ORV_BLAS_LINK /usr/lib/${CMAKE_LIBRARY_ARCHITECTURE}/libblas.so.3)
foreach(script postinst prerm)
  configure_file(${CMAKE_CURRENT_LIST_DIR}/deb/${script}.in ${CMAKE_BINARY_DIR}/deb/${script} @ONLY
    FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
endforeach()
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${CMAKE_BINARY_DIR}/deb/postinst ${CMAKE_BINARY_DIR}/deb/prerm)
include(CPack)
