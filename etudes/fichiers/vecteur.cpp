// Reading features by OGR. Of a GPX file tracks, routes and waypoints are taken, and not the layers with their points once more.
#include "etudes/fichiers/vecteur.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "etudes/fichiers/gdalChargee.h"
#include "module/support/base/lettres.h"

namespace etu {

namespace {

constexpr const char* kPilotes[] = {"GeoJSON", "GPX", "LIBKML", "KML", "ESRI Shapefile", "GPKG", "GML", nullptr};
constexpr std::array kAltitudes = {L"z",         L"alt",  L"altitude", L"ele",  L"elev",
                                   L"elevation", L"cote", L"hauteur",  L"z_moy"};
constexpr std::array kNoms = {L"name", L"nom", L"numero", L"id"};

template <class Noms>
bool parmi(const Noms& noms, const std::wstring& nom) {
  return std::any_of(noms.begin(), noms.end(), [&](const wchar_t* n) { return plv::egalSansCasse(nom, n); });
}

class lecteur {
 public:
  explicit lecteur(std::vector<objetVecteur>& objets) : m_objets(objets) {}

  void lireCouche(OGRLayerH couche) {
    const gdalChargee& g = gdal();
    const std::wstring nom = plv::depuisAnsi(g.OGR_L_GetName(couche));
    if (nom == L"track_points" || nom == L"route_points") return;
    m_systeme.clear();
    char* wkt = nullptr;
    if (const OGRSpatialReferenceH s = g.OGR_L_GetSpatialRef(couche); s && g.OSRExportToWkt(s, &wkt) == OGRERR_NONE)
      m_systeme = wkt;
    g.VSIFree(wkt);
    g.OGR_L_ResetReading(couche);
    while (const OGRFeatureH f = g.OGR_L_GetNextFeature(couche)) {
      lireObjet(f, nom);
      g.OGR_F_Destroy(f);
    }
  }

 private:
  void lireObjet(OGRFeatureH f, const std::wstring& couche) {
    const gdalChargee& g = gdal();
    m_nom = couche + L" " + std::to_wstring(g.OGR_F_GetFID(f));
    m_altitude.reset();
    bool nomme = false;
    for (int i = 0; i < g.OGR_F_GetFieldCount(f); ++i) {
      if (!g.OGR_F_IsFieldSetAndNotNull(f, i)) continue;
      const OGRFieldDefnH champ = g.OGR_F_GetFieldDefnRef(f, i);
      const std::wstring nom = plv::depuisAnsi(g.OGR_Fld_GetNameRef(champ));
      const OGRFieldType type = g.OGR_Fld_GetType(champ);
      if (!m_altitude && type != OFTString && parmi(kAltitudes, nom)) m_altitude = g.OGR_F_GetFieldAsDouble(f, i);
      if (!nomme && parmi(kNoms, nom)) m_nom = plv::depuisAnsi(g.OGR_F_GetFieldAsString(f, i)), nomme = true;
    }
    if (const OGRGeometryH geometrie = g.OGR_F_GetGeometryRef(f)) lireGeometrie(geometrie);
  }

  void lireGeometrie(OGRGeometryH geometrie) {
    const gdalChargee& g = gdal();
    if (g.OGR_G_HasCurveGeometry(geometrie, 1)) {
      const OGRGeometryH droite = g.OGR_G_GetLinearGeometry(geometrie, 0, nullptr);
      lireDroite(droite);
      g.OGR_G_DestroyGeometry(droite);
    } else {
      lireDroite(geometrie);
    }
  }

  void lireDroite(OGRGeometryH geometrie) {
    const gdalChargee& g = gdal();
    const OGRwkbGeometryType type = g.OGR_G_GetGeometryType(geometrie);
    if (const int parties = g.OGR_G_GetGeometryCount(geometrie); parties > 0) {
      for (int i = 0; i < parties; ++i) lireDroite(g.OGR_G_GetGeometryRef(geometrie, i));
      return;
    }
    objetVecteur objet{m_nom, {}, g.OGR_GT_HasZ(type) != 0, m_systeme};
    for (int i = 0; i < g.OGR_G_GetPointCount(geometrie); ++i)
      objet.sommets.push_back({g.OGR_G_GetX(geometrie, i), g.OGR_G_GetY(geometrie, i), g.OGR_G_GetZ(geometrie, i)});
    std::erase_if(objet.sommets,
                  [](const point3& p) { return !std::isfinite(p.x) || !std::isfinite(p.y) || !std::isfinite(p.z); });
    if (!objet.altitudes && m_altitude) {
      for (point3& p : objet.sommets) p.z = *m_altitude;
      objet.altitudes = true;
    }
    if (!objet.sommets.empty()) m_objets.push_back(std::move(objet));
  }

  std::vector<objetVecteur>& m_objets;
  std::string m_systeme;
  std::wstring m_nom;
  std::optional<double> m_altitude;
};

}  // namespace

bool estVecteur(const std::wstring& chemin) {
  return ouvrirGdal(chemin, GDAL_OF_VECTOR | GDAL_OF_READONLY, kPilotes) != nullptr;
}

std::vector<objetVecteur> lireVecteur(const std::wstring& chemin) {
  const donneesGdal donnees = ouvrirGdal(chemin, GDAL_OF_VECTOR | GDAL_OF_READONLY, kPilotes);
  if (!donnees) throw refus{chemin + L": lecture impossible" + messageGdal()};
  std::vector<objetVecteur> objets;
  lecteur l(objets);
  for (int i = 0; i < gdal().GDALDatasetGetLayerCount(donnees.get()); ++i)
    l.lireCouche(gdal().GDALDatasetGetLayer(donnees.get(), i));
  if (objets.empty()) throw refus{chemin + L": ni point ni ligne dans ce fichier" + messageGdal()};
  return objets;
}

}  // namespace etu
