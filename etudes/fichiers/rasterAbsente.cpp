// In place of raster.cpp where GDAL isn't there when the program is built.
#include "etudes/fichiers/raster.h"

namespace etu {

// Asked for files that are neither text nor LandXML, which all need GDAL.
bool estRaster(const std::wstring& chemin) {
  throw refus{chemin +
              L": ce programme a été construit sans GDAL, qui lit GeoTIFF, ASC, VRT, GeoJSON, GPX, KML, Shapefile et "
              L"GeoPackage"};
}

rasterOuvert ouvrirRaster(const std::wstring& chemin) {
  estRaster(chemin);
  return {};
}

}  // namespace etu
