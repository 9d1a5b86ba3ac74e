# The libraries that Kavel uses, all of them packages of the distribution.
find_package(PkgConfig REQUIRED)
find_package(Boost 1.74 REQUIRED)
pkg_check_modules(FREETYPE REQUIRED IMPORTED_TARGET freetype2)
pkg_check_modules(FONTCONFIG REQUIRED IMPORTED_TARGET fontconfig)
pkg_check_modules(READLINE REQUIRED IMPORTED_TARGET readline)
find_package(CLI11 REQUIRED)
find_package(ZLIB REQUIRED)
pkg_check_modules(CAIRO REQUIRED IMPORTED_TARGET cairo cairo-pdf cairo-svg)
pkg_check_modules(QPDF REQUIRED IMPORTED_TARGET libqpdf)
pkg_check_modules(GDKPIXBUF REQUIRED IMPORTED_TARGET gdk-pixbuf-2.0)
pkg_check_modules(XLSXWRITER REQUIRED IMPORTED_TARGET xlsxwriter)
pkg_check_modules(PUGIXML REQUIRED IMPORTED_TARGET pugixml)
find_package(OpenCASCADE REQUIRED COMPONENTS FoundationClasses ModelingData ModelingAlgorithms)
find_package(Threads REQUIRED)

add_library(kavel_occt INTERFACE)
target_include_directories(kavel_occt SYSTEM INTERFACE ${OpenCASCADE_INCLUDE_DIR})
target_link_libraries(kavel_occt INTERFACE TKG2d TKG3d TKGeomBase TKGeomAlgo TKBRep TKMath TKernel)

# Of what studies of the ground stand on, a build without it says so and does the rest.
find_package(CGAL QUIET)
find_package(GDAL CONFIG QUIET)
find_package(PROJ CONFIG QUIET)

if(KAVEL_DESKTOP)
  find_package(Qt6 COMPONENTS Widgets PrintSupport REQUIRED)
  find_package(Threads REQUIRED)
endif()
