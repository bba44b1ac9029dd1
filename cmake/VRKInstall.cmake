# What `cmake --install` puts where: the driver, the host libraries it and the programs need, the
# dialogs with vrkplot's settings editor and their texts and pictures, the host's public headers,
# a CMake package (VRK:: targets) and a pkg-config file. Programs install themselves with
# vrk_install_program (VRKInstallRpath.cmake) beside their targets.
include_guard(GLOBAL)
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(VRK_INSTALL_INCLUDEDIR "${CMAKE_INSTALL_INCLUDEDIR}/vrkprtdriverhpgl2")
set(VRK_INSTALL_CMAKEDIR "${CMAKE_INSTALL_LIBDIR}/cmake/VRKPrtDriverHPGL2")

# The libraries a host program links or loads, exported as VRK::<name without the VRK>. Each
# keeps its third-party libraries private, so a program built against the package needs none of
# their headers or packages.
set(VRK_EXPORTED_LIBRARIES
  VRKHostCore VRKHostGeometry VRKHostXml VRKHostOutput VRKHostImage VRKHostJob VRKHostDrawing
  VRKHostSvg VRKHostPdf VRKHostInput VRKHostFonts VRKHostPrinters VRKHostDialogs
  VRKPrtDriverHPGL2 VRKPrtDriverHPGL2Dialogs)
foreach(library IN LISTS VRK_EXPORTED_LIBRARIES)
  string(REGEX REPLACE "^VRK" "" exportName "${library}")
  set_target_properties(${library} PROPERTIES EXPORT_NAME "${exportName}")
endforeach()
# The sources include the headers by their path from the top ("host/core/VRKString.h"); the
# installed headers keep those paths under one folder. Every host library links the core.
target_include_directories(VRKHostCore INTERFACE $<INSTALL_INTERFACE:${VRK_INSTALL_INCLUDEDIR}>)

install(TARGETS ${VRK_EXPORTED_LIBRARIES}
  EXPORT VRKPrtDriverHPGL2Targets
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
  ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}"
  RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
# vrkplot's settings editor: loaded by name for `settings --edit`, found beside the host libraries.
install(TARGETS VRKPlotEdit LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}")

# The host's headers. The Qt side of the dialog toolkit (host/dialogs/qt) and the libpng side of
# the image library are theirs alone.
install(DIRECTORY "${PROJECT_SOURCE_DIR}/host/" DESTINATION "${VRK_INSTALL_INCLUDEDIR}/host"
  FILES_MATCHING PATTERN "*.h"
  PATTERN "qt" EXCLUDE
  PATTERN "VRKPngFile.h" EXCLUDE
  PATTERN "VRKPngRowSource.h" EXCLUDE)

# The dialogs' texts and pictures, where the toolkit looks from a program in bin/.
install(DIRECTORY "${PROJECT_SOURCE_DIR}/dialogs/resources/"
  DESTINATION "${VRK_INSTALL_RESOURCEDIR}")

# The CMake package: find_package(VRKPrtDriverHPGL2 CONFIG), then VRK::PrtDriverHPGL2.
install(EXPORT VRKPrtDriverHPGL2Targets NAMESPACE VRK:: DESTINATION "${VRK_INSTALL_CMAKEDIR}")
configure_package_config_file("${CMAKE_CURRENT_LIST_DIR}/VRKPrtDriverHPGL2Config.cmake.in"
  "${PROJECT_BINARY_DIR}/package/VRKPrtDriverHPGL2Config.cmake"
  INSTALL_DESTINATION "${VRK_INSTALL_CMAKEDIR}")
# Before 1.0 a minor version may change the interfaces.
write_basic_package_version_file(
  "${PROJECT_BINARY_DIR}/package/VRKPrtDriverHPGL2ConfigVersion.cmake"
  COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/package/VRKPrtDriverHPGL2Config.cmake"
              "${PROJECT_BINARY_DIR}/package/VRKPrtDriverHPGL2ConfigVersion.cmake"
  DESTINATION "${VRK_INSTALL_CMAKEDIR}")

# The pkg-config file names its folders from its own place (${pcfiledir}), so that it holds for
# any prefix given to `cmake --install` as well as for the package's /usr.
set(VRK_PKGCONFIG_DIR "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
  set(VRK_PC_PREFIX "${CMAKE_INSTALL_PREFIX}")
else()
  file(RELATIVE_PATH way "/prefix/${VRK_PKGCONFIG_DIR}" "/prefix")
  string(REGEX REPLACE "/$" "" way "${way}")
  set(VRK_PC_PREFIX "\${pcfiledir}/${way}")
endif()
foreach(kind LIBDIR INCLUDEDIR)
  if(IS_ABSOLUTE "${CMAKE_INSTALL_${kind}}")
    set(VRK_PC_${kind} "${CMAKE_INSTALL_${kind}}")
  else()
    set(VRK_PC_${kind} "\${prefix}/${CMAKE_INSTALL_${kind}}")
  endif()
endforeach()
configure_file("${CMAKE_CURRENT_LIST_DIR}/vrkprtdriverhpgl2.pc.in"
  "${PROJECT_BINARY_DIR}/package/vrkprtdriverhpgl2.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/package/vrkprtdriverhpgl2.pc"
  DESTINATION "${VRK_PKGCONFIG_DIR}")
