// In place of vecteur.cpp where GDAL isn't there when the program is built.
#include "etudes/fichiers/vecteur.h"

namespace etu {

bool estVecteur(const std::wstring&) { return false; }

std::vector<objetVecteur> lireVecteur(const std::wstring& chemin) {
  throw refus{chemin + L": ce programme a été construit sans GDAL, qui lit GeoJSON, GPX, KML, Shapefile et GeoPackage"};
}

}  // namespace etu
