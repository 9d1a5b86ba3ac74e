// Points and lines of GeoJSON, GPX, KML, Shapefile and GeoPackage. OGR stands behind them, in vecteur.cpp; a build without GDAL
// has vecteurAbsente.cpp.
#pragma once
#include <string>
#include <vector>

#include "etudes/surfaces/point.h"

namespace etu {

struct objetVecteur {
  std::wstring nom;             // its name in the file, or its layer and number
  std::vector<point3> sommets;  // one of a point
  bool altitudes = false;       // of all of them, from the geometry or from a field that is called like one
  std::string systeme;          // WKT; empty when the file doesn't tell
};

bool estVecteur(const std::wstring& chemin);

// Every point and line, the rings of areas included; throws `refus` for a file that can't be read or has none.
std::vector<objetVecteur> lireVecteur(const std::wstring& chemin);

}  // namespace etu
