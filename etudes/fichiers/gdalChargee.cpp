// GDAL is loaded with quiet errors and a small cache: tiles are kept here.
#include "etudes/fichiers/gdalChargee.h"

#include "etudes/fichiers/bibliotheque.h"
#include "module/support/base/lettres.h"

namespace etu {

namespace {

constexpr GIntBig kCache = 32 << 20;  // bytes

gdalChargee charger() {
  const bibliotheque lib(KAVEL_GDAL, L"GDAL");
  gdalChargee g;
#define F(nom) g.nom = reinterpret_cast<decltype(g.nom)>(lib.fonction(#nom));
  KAVEL_FONCTIONS_GDAL(F)
#undef F
  g.GDALAllRegister();
  g.GDALSetCacheMax64(kCache);
  g.CPLSetErrorHandler(g.CPLQuietErrorHandler);
  g.CPLSetConfigOption("GPX_ELE_AS_25D", "YES");  // a track's altitudes, which are left out otherwise
  return g;
}

}  // namespace

const gdalChargee& gdal() {
  static const gdalChargee chargee = charger();
  return chargee;
}

donneesGdal ouvrirGdal(const std::wstring& chemin, unsigned int quoi, const char* const* pilotes) {
  const gdalChargee& g = gdal();
  g.CPLErrorReset();
  return {g.GDALOpenEx(plv::nomDeFichier(chemin).c_str(), quoi, pilotes, nullptr, nullptr), [](void* d) {
            if (d) gdal().GDALClose(d);
          }};
}

std::wstring messageGdal() {
  const std::wstring texte = plv::depuisAnsi(gdal().CPLGetLastErrorMsg());
  return texte.empty() ? L"" : L" (" + texte + L")";
}

}  // namespace etu
