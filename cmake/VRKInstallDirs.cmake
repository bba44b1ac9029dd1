# Where `cmake --install` puts what the spooler needs, beside the usual folders of GNUInstallDirs.
# Relative paths are taken under CMAKE_INSTALL_PREFIX; with the prefix /usr they are the folders
# the Debian spooler reads (its filters in /usr/lib/cups/filter, its model PPDs under
# /usr/share/ppd, its MIME rules in /usr/share/cups/mime).
include(GNUInstallDirs)

set(VRK_INSTALL_CUPS_FILTERDIR "lib/cups/filter"
    CACHE STRING "Folder of the spooler's filters (the filter vrkplot-cups goes there)")
set(VRK_INSTALL_PPDDIR "${CMAKE_INSTALL_DATADIR}/ppd/vrkprtdriverhpgl2"
    CACHE STRING "Folder of the PPD files, one for each printer language")
set(VRK_INSTALL_CUPS_MIMEDIR "${CMAKE_INSTALL_DATADIR}/cups/mime"
    CACHE STRING "Folder of the spooler's MIME type and conversion rules")
set(VRK_INSTALL_RESOURCEDIR "${CMAKE_INSTALL_DATADIR}/vrkprtdriverhpgl2/resources"
    CACHE STRING "Folder of the dialogs' texts and pictures")
