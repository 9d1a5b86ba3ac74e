// Rasters of altitudes: GeoTIFF, ASC, VRT and others, or a folder of their tiles. GDAL stands behind them, in raster.cpp; a build
// without it has rasterAbsente.cpp. Memory is bounded whatever the size: tiles are read as they are crossed.
#pragma once
#include <memory>
#include <string>

#include "etudes/surfaces/coupeGrille.h"

namespace etu {

struct rasterOuvert {
  std::unique_ptr<surfaceCoupable> surface;  // in the raster's own coordinates
  std::string systeme;                       // these, as WKT; empty when the file doesn't tell
  int colonnes = 0, lignes = 0;
};

// Whether a file, or what lies in a folder, is a raster.
bool estRaster(const std::wstring& chemin);

// Throws `refus` for what can't be read or holds no altitudes; so does cutting the surface where a tile can't be read.
rasterOuvert ouvrirRaster(const std::wstring& chemin);

}  // namespace etu
