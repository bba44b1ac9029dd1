# Installed programs find the installed libraries through a relative RPATH: "$ORIGIN" followed by
# the way from the program's install folder to CMAKE_INSTALL_LIBDIR. It holds wherever the prefix
# is (`cmake --install BUILD --prefix P` or a package's /usr), since both folders move with it.
#
#     vrk_install_program(vrkplot-cups "${VRK_INSTALL_CUPS_FILTERDIR}")
#
# installs the program into the folder with that RPATH. In the build tree the program keeps
# "$ORIGIN/../lib" (build/bin beside build/lib), the folder the top CMakeLists.txt gives every
# program; the install rewrites it in the installed copy.
include_guard(GLOBAL)
include(GNUInstallDirs)

# The RPATH of a program installed into `folder` (relative to the prefix, or absolute), in `out`.
function(vrk_install_rpath_for out folder)
  if(IS_ABSOLUTE "${folder}" OR IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
    # A folder outside the prefix: the way between the two full paths, fixed at configure time.
    if(IS_ABSOLUTE "${folder}")
      set(from "${folder}")
    else()
      set(from "${CMAKE_INSTALL_PREFIX}/${folder}")
    endif()
    set(to "${CMAKE_INSTALL_FULL_LIBDIR}")
  else()
    # Both under the prefix: the way between them does not depend on where the prefix is.
    set(from "/prefix/${folder}")
    set(to "/prefix/${CMAKE_INSTALL_LIBDIR}")
  endif()
  file(RELATIVE_PATH way "${from}" "${to}")
  string(REGEX REPLACE "/$" "" way "${way}")
  if(way STREQUAL "")
    set(${out} "$ORIGIN" PARENT_SCOPE)
  else()
    set(${out} "$ORIGIN/${way}" PARENT_SCOPE)
  endif()
endfunction()

# Installs the program `target` into `folder` with the RPATH that finds the installed libraries.
#
# The RPATH of an ELF file can be rewritten in place only into the space it already has, so a
# build-tree RPATH shorter than the installed one is lengthened with slashes, which name the same
# folder ("$ORIGIN/../lib////"). The usual way of CMake, a build RPATH padded with separators,
# would leave an empty entry, which the dynamic linker takes for the current folder.
function(vrk_install_program target folder)
  vrk_install_rpath_for(installed "${folder}")
  get_target_property(build ${target} INSTALL_RPATH)
  if(NOT build)
    set(build "$ORIGIN/../lib")
  endif()
  install(TARGETS ${target} RUNTIME DESTINATION "${folder}")
  if(installed STREQUAL build)
    return()
  endif()
  string(LENGTH "${build}" buildLength)
  string(LENGTH "${installed}" installedLength)
  while(buildLength LESS installedLength)
    string(APPEND build "/")
    math(EXPR buildLength "${buildLength} + 1")
  endwhile()
  set_target_properties(${target} PROPERTIES INSTALL_RPATH "${build}")
  if(IS_ABSOLUTE "${folder}")
    set(file "\$ENV{DESTDIR}${folder}/$<TARGET_FILE_NAME:${target}>")
  else()
    set(file "\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${folder}/$<TARGET_FILE_NAME:${target}>")
  endif()
  install(CODE "file(RPATH_CHANGE FILE \"${file}\" OLD_RPATH \"${build}\" NEW_RPATH \"${installed}\")")
endfunction()
