# The Debian package, made from the install rules by `cpack -G DEB` in the build folder:
# vrkprtdriverhpgl2_<version>_<arch>.deb with everything installed under /usr (the spooler's filter
# in /usr/lib/cups/filter). For the multiarch library folder of a distribution's own packages,
# configure with -DCMAKE_INSTALL_PREFIX=/usr.
include_guard(GLOBAL)

set(VRK_PACKAGE_MAINTAINER "VRKPrtDriverHPGL2 developers <vrkprtdriverhpgl2@localhost>"
    CACHE STRING "The Maintainer field of the Debian package")

set(CPACK_GENERATOR "DEB")
set(CPACK_PACKAGE_NAME "vrkprtdriverhpgl2")
set(CPACK_PACKAGE_VENDOR "VRK")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
    "Print driver for large-format printers and pen plotters, with the vrkplot program")
set(CPACK_PACKAGE_DESCRIPTION
    "Generators of HP-GL/2, HP-GL for pen plotters and HP-GL/2 inside PJL jobs for the \
DesignJet 1000 and 4000 series, their property dialogs and the host libraries they run on. \
vrkplot plays job files, SVG drawings and PDF documents into a generator and writes the plot to a \
file, a device, a serial plotter, a network printer or the spooler. The package also holds the \
headers, a CMake package and a pkg-config file for programs built on the driver.")
set(CPACK_PACKAGING_INSTALL_PREFIX "/usr")
set(CPACK_PACKAGE_CONTACT "${VRK_PACKAGE_MAINTAINER}")
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${VRK_PACKAGE_MAINTAINER}")
set(CPACK_DEBIAN_PACKAGE_SECTION "graphics")
set(CPACK_DEBIAN_FILE_NAME "DEB-DEFAULT")
# The libraries' dependencies come from dpkg-shlibdeps (dpkg-dev); the package's own libraries
# are found in its library folder. Text drawn as geometry needs the default font, which no
# library links.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
    "${CPACK_PACKAGING_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}")
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-dejavu-core")

include(CPack)
