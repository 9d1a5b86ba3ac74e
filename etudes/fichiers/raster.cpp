// Reading rasters by GDAL, in squares that are kept while they are among the last ones used.
#include "etudes/fichiers/raster.h"

#include <algorithm>
#include <filesystem>
#include <list>
#include <unordered_map>
#include <vector>

#include "etudes/fichiers/gdalChargee.h"
#include "etudes/fichiers/grilleTexte.h"
#include "module/support/base/lettres.h"
#include "module/support/base/nombres.h"

namespace etu {

namespace {

constexpr const char* kPilotes[] = {"GTiff",          "COG",     "AAIGrid", "VRT",     "HFA",  "EHdr",        "ENVI",
                                    "GRASSASCIIGrid", "SRTMHGT", "DTED",    "USGSDEM", "GSAG", "JP2OpenJPEG", "NTv2",
                                    "SAGA",           nullptr};
constexpr int kCote = 64;                   // nodes of a square's side
constexpr std::size_t kCarresGardes = 512;  // 16 MB
constexpr double kPlusHaut = 12000, kPlusBas = -12000;
// Said for "no altitude" by files that don't declare it.
constexpr double kAbsences[] = {-9999, -32768, -32767, -99999};

class grilleGdal : public grilleAltitudes {
 public:
  grilleGdal(donneesGdal donnees, std::wstring chemin) : m_donnees(std::move(donnees)), m_chemin(std::move(chemin)) {
    const gdalChargee& g = gdal();
    m_bande = g.GDALGetRasterBand(m_donnees.get(), 1);
    m_colonnes = g.GDALGetRasterXSize(m_donnees.get()), m_lignes = g.GDALGetRasterYSize(m_donnees.get());
    int declaree = 0;
    m_absence = g.GDALGetRasterNoDataValue(m_bande, &declaree);
    m_declaree = declaree != 0;
    m_echelle = g.GDALGetRasterScale(m_bande, &declaree);
    if (!declaree) m_echelle = 1;
    m_decalage = g.GDALGetRasterOffset(m_bande, &declaree);
    if (!declaree) m_decalage = 0;
  }
  int colonnes() const override { return m_colonnes; }
  int lignes() const override { return m_lignes; }
  double altitude(int colonne, int ligne) override {
    const std::vector<double>& c = carre(colonne / kCote, ligne / kCote);
    return c[static_cast<std::size_t>(ligne % kCote) * kCote + static_cast<std::size_t>(colonne % kCote)];
  }
  std::unique_ptr<grilleAltitudes> autre() const override {
    donneesGdal donnees = ouvrirGdal(m_chemin, GDAL_OF_RASTER | GDAL_OF_READONLY, kPilotes);
    return donnees ? std::make_unique<grilleGdal>(std::move(donnees), m_chemin) : nullptr;
  }

 private:
  struct carreLu {
    std::int64_t cle;
    std::vector<double> altitudes;
  };

  const std::vector<double>& carre(int colonne, int ligne) {
    const std::int64_t cle = static_cast<std::int64_t>(ligne) << 32 | colonne;
    if (!m_carres.empty() && m_carres.front().cle == cle) return m_carres.front().altitudes;
    if (const auto connu = m_places.find(cle); connu != m_places.end()) {
      m_carres.splice(m_carres.begin(), m_carres, connu->second);
    } else {
      m_carres.push_front({cle, lire(colonne * kCote, ligne * kCote)});
      m_places[cle] = m_carres.begin();
      if (m_carres.size() > kCarresGardes) m_places.erase(m_carres.back().cle), m_carres.pop_back();
    }
    return m_carres.front().altitudes;
  }

  std::vector<double> lire(int colonne, int ligne) const {
    const int largeur = std::min(kCote, m_colonnes - colonne), hauteur = std::min(kCote, m_lignes - ligne);
    std::vector<double> z(static_cast<std::size_t>(kCote) * kCote, std::nan(""));
    gdal().CPLErrorReset();
    if (gdal().GDALRasterIO(m_bande, GF_Read, colonne, ligne, largeur, hauteur, z.data(), largeur, hauteur, GDT_Float64,
                            0, static_cast<int>(kCote * sizeof(double))) != CE_None)
      throw refus{m_chemin + L": lecture impossible près de la colonne " + std::to_wstring(colonne) + L", ligne " +
                  std::to_wstring(ligne) + messageGdal()};
    for (double& valeur : z) valeur = altitudeDe(valeur);
    return z;
  }

  double altitudeDe(double valeur) const {
    const bool absente = m_declaree
                             ? valeur == m_absence || (std::isnan(m_absence) && std::isnan(valeur))
                             : std::find(std::begin(kAbsences), std::end(kAbsences), valeur) != std::end(kAbsences);
    const double z = valeur * m_echelle + m_decalage;
    return absente || !(z > kPlusBas && z < kPlusHaut) ? std::nan("") : z;
  }

  donneesGdal m_donnees;
  std::wstring m_chemin;
  GDALRasterBandH m_bande = nullptr;
  int m_colonnes = 0, m_lignes = 0;
  double m_absence = 0, m_echelle = 1, m_decalage = 0;
  bool m_declaree = false;
  std::list<carreLu> m_carres;  // the last one used first
  std::unordered_map<std::int64_t, std::list<carreLu>::iterator> m_places;
};

bool dossier(const std::wstring& chemin) {
  std::error_code faute;
  return std::filesystem::is_directory(plv::nomDeFichier(chemin), faute);
}

void exigerEntiere(const std::wstring& chemin) {
  if (!grilleTexteEntiere(chemin))
    throw refus{chemin + L": la grille est incomplète, sa dernière ligne est plus courte que les autres"};
}

// The tiles of a folder as one raster; their seams are bridged as if they were one file.
donneesGdal mosaique(const std::wstring& chemin) {
  std::vector<std::string> fichiers;
  for (const auto& entree : std::filesystem::directory_iterator(plv::nomDeFichier(chemin))) {
    const std::wstring nom = plv::depuisNomDeFichier(entree.path().string());
    if (!entree.is_regular_file() || !ouvrirGdal(nom, GDAL_OF_RASTER | GDAL_OF_READONLY, kPilotes)) continue;
    exigerEntiere(nom);
    fichiers.push_back(entree.path().string());
  }
  if (fichiers.empty()) throw refus{chemin + L": aucune dalle d'altitudes dans ce dossier (GeoTIFF, ASC ...)"};
  std::sort(fichiers.begin(), fichiers.end());
  std::vector<const char*> noms;
  for (const std::string& f : fichiers) noms.push_back(f.c_str());
  gdal().CPLErrorReset();
  int faute = 0;
  donneesGdal d(gdal().GDALBuildVRT("", static_cast<int>(noms.size()), nullptr, noms.data(), nullptr, &faute),
                [](void* p) {
                  if (p) gdal().GDALClose(p);
                });
  if (!d) throw refus{chemin + L": les dalles ne s'assemblent pas" + messageGdal()};
  return d;
}

}  // namespace

bool estRaster(const std::wstring& chemin) {
  if (dossier(chemin)) return true;
  return ouvrirGdal(chemin, GDAL_OF_RASTER | GDAL_OF_READONLY, kPilotes) != nullptr;
}

rasterOuvert ouvrirRaster(const std::wstring& chemin) {
  const gdalChargee& g = gdal();
  donneesGdal donnees =
      dossier(chemin) ? mosaique(chemin) : ouvrirGdal(chemin, GDAL_OF_RASTER | GDAL_OF_READONLY, kPilotes);
  if (!donnees) throw refus{chemin + L": ce fichier n'est pas une grille d'altitudes, ou il est abîmé" + messageGdal()};
  if (!dossier(chemin)) exigerEntiere(chemin);
  if (const int bandes = g.GDALGetRasterCount(donnees.get()); bandes != 1)
    throw refus{chemin + L": " + std::to_wstring(bandes) +
                L" bandes, une image peut-être; une grille d'altitudes n'en a qu'une"};
  double t[6];
  if (g.GDALGetGeoTransform(donnees.get(), t) != CE_None || t[1] * t[5] - t[2] * t[4] == 0)
    throw refus{chemin + L": la grille ne dit pas où elle est"};
  rasterOuvert r;
  if (const char* wkt = g.GDALGetProjectionRef(donnees.get())) r.systeme = wkt;
  r.colonnes = g.GDALGetRasterXSize(donnees.get()), r.lignes = g.GDALGetRasterYSize(donnees.get());
  // The transform has the corners of cells, altitudes stand in their middles.
  const repereGrille repere{t[0] + 0.5 * (t[1] + t[2]), t[1], t[2], t[3] + 0.5 * (t[4] + t[5]), t[4], t[5]};
  r.surface = std::make_unique<coupeGrille>(std::make_unique<grilleGdal>(std::move(donnees), chemin), repere);
  return r;
}

}  // namespace etu
