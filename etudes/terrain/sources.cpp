// One row for each kind of source; points, lines and faces of all sources are gathered before they become surfaces.
#include "etudes/terrain/sources.h"

#include <optional>

#include "etudes/fichiers/landxml.h"
#include "etudes/fichiers/listePoints.h"
#include "etudes/fichiers/nature.h"
#include "etudes/fichiers/nombres.h"
#include "etudes/fichiers/projection.h"
#include "etudes/fichiers/raster.h"
#include "etudes/fichiers/vecteur.h"
#include "etudes/surfaces/coupeAxe.h"
#include "etudes/surfaces/coupeMaillage.h"
#include "etudes/surfaces/coupeTransformee.h"
#include "etudes/surfaces/triangulation.h"
#include "etudes/terrain/arguments.h"
#include "module/support/base/lettres.h"
#include "module/support/base/nombres.h"

namespace etu {

namespace {

struct source {
  std::wstring genre, chemin, surface;
  std::string systeme;  // that of the file as the user says
  AcDbObjectIdArray entites;
  bool echanger = false;

  // Without its folder, for remarks; sentences that end the work have it all.
  std::wstring fichier() const { return chemin.substr(chemin.find_last_of(L"/\\") + 1); }
};

struct travail {
  const reglesTerrain& regles;
  collecte dessin;
  surfaceLue& lue;
  std::vector<std::unique_ptr<surfaceCoupable>> grilles;  // asked after points and faces
};

// In the order of their making: of two points at one place the earlier one stands.
void prendreDessin(const source& s, travail& t) {
  std::vector<AcDbObjectId> ids(s.entites.begin(), s.entites.end());
  std::sort(ids.begin(), ids.end(), [](AcDbObjectId a, AcDbObjectId b) {
    return static_cast<Adesk::UInt64>(a.handle()) < static_cast<Adesk::UInt64>(b.handle());
  });
  for (const AcDbObjectId id : ids) t.dessin.prendre(id);
}

// How coordinates of a source become those of the axes; nothing to do when one of both systems isn't known.
passage passageDe(const source& s, const std::string& duFichier, travail& t) {
  const std::string& systeme = s.systeme.empty() ? duFichier : s.systeme;
  if (systeme.empty()) return {};
  const auto connu = systemeDe(systeme);
  if (t.regles.systeme.empty()) {
    if (connu && connu->geographique)
      throw refus{s.chemin + L": ce fichier est en degrés (" + connu->nom +
                  L"); indiquez le système de coordonnées du dessin (PLV-TERRAIN Système)"};
    return {};
  }
  passage p = passageEntre(systeme, t.regles.systeme);
  const auto dire = [&](const std::wstring& texte) {
    if (std::find(t.lue.remarques.begin(), t.lue.remarques.end(), texte) == t.lue.remarques.end())
      t.lue.remarques.push_back(texte);
  };
  if (connu && !p.identique())
    dire(s.fichier() + L": coordonnées passées de " + connu->nom +
         L" au système du dessin; les altitudes restent telles quelles");
  if (connu && !connu->vertical.empty())
    dire(s.fichier() + L": altitudes en " + connu->vertical + L", à comparer au système d'altitudes du dessin");
  return p;
}

// The points from a place on, carried to the system of the axes.
void passer(std::vector<point3>& points, std::size_t depuis, const passage& p, const source& s) {
  for (std::size_t i = depuis; i < points.size(); ++i) {
    if (s.echanger) std::swap(points[i].x, points[i].y);
    if (!p.identique() && !p.aller(points[i].x, points[i].y))
      throw refus{s.chemin + L": des coordonnées sont hors de leur système; est-ce le bon, et x et y dans cet ordre?"};
  }
}

void prendrePoints(const source& s, travail& t) {
  std::vector<point3>& points = t.dessin.resultat().points;
  const std::size_t avant = points.size();
  lirePoints(s.chemin, t.dessin.resultat());
  passer(points, avant, passageDe(s, {}, t), s);
}

void prendreVecteur(const source& s, travail& t) {
  releve& r = t.dessin.resultat();
  std::size_t sansAltitude = 0, prises = 0;
  std::optional<passage> p;  // of the system of the object before
  std::string systeme;
  for (const objetVecteur& objet : lireVecteur(s.chemin)) {
    if (!objet.altitudes) {
      ++sansAltitude;
      continue;
    }
    const std::size_t avant = r.points.size();
    r.points.insert(r.points.end(), objet.sommets.begin(), objet.sommets.end());
    if (!p || objet.systeme != systeme) p = passageDe(s, systeme = objet.systeme, t);
    passer(r.points, avant, *p, s);
    for (std::size_t i = avant; i + 1 < r.points.size(); ++i)
      r.segments.emplace_back(static_cast<numero>(i), static_cast<numero>(i + 1));
    ++prises;
  }
  if (prises == 0) throw refus{s.chemin + L": les points et les lignes de ce fichier n'ont pas d'altitude"};
  if (sansAltitude > 0)
    t.lue.remarques.push_back(s.fichier() + L": " + compte(sansAltitude, L"objet") + L" sans altitude, laissés");
}

void prendreGrille(const source& s, travail& t) {
  rasterOuvert r = ouvrirRaster(s.chemin);
  passage p = passageDe(s, r.systeme, t);
  t.lue.remarques.push_back(s.fichier() + L": grille de " + std::to_wstring(r.colonnes) + L" x " +
                            std::to_wstring(r.lignes) + L" altitudes");
  if (p.identique()) t.grilles.push_back(std::move(r.surface));
  else
    t.grilles.push_back(
        std::make_unique<coupeTransformee>(std::move(r.surface), std::move(p.retour), std::move(p.aller)));
}

// The surface of that name, or the first one.
void prendreLandXml(const source& s, travail& t) {
  const landXmlLu lu = lireLandXml(s.chemin);
  t.lue.remarques.insert(t.lue.remarques.end(), lu.laisses.begin(), lu.laisses.end());
  const auto surface = std::find_if(lu.surfaces.begin(), lu.surfaces.end(),
                                    [&](const surfaceLandXml& l) { return s.surface.empty() || l.nom == s.surface; });
  if (surface == lu.surfaces.end())
    throw refus{s.chemin + (s.surface.empty() ? L": pas de surface dans ce fichier LandXML"
                                              : L": pas de surface \"" + s.surface + L"\"")};
  const passage p = passageDe(s, lu.systeme, t);
  releve& r = t.dessin.resultat();
  const std::size_t avant = r.points.size();
  r.points.insert(r.points.end(), surface->contenu.points.begin(), surface->contenu.points.end());
  passer(r.points, avant, p, s);
  for (const auto& [a, b] : surface->contenu.segments)
    r.segments.emplace_back(static_cast<numero>(a + avant), static_cast<numero>(b + avant));
  for (const auto& face : surface->contenu.faces) {
    std::vector<point3> coins(face.begin(), face.end());
    passer(coins, 0, p, s);
    r.faces.push_back({coins[0], coins[1], coins[2]});
  }
  t.lue.remarques.push_back(s.fichier() + L": surface " + surface->nom);
}

void prendreFichier(const source& s, travail& t) {
  switch (natureDe(s.chemin)) {
    case nature::listePoints: return prendrePoints(s, t);
    case nature::vecteur: return prendreVecteur(s, t);
    case nature::raster: return prendreGrille(s, t);
    case nature::landXml: return prendreLandXml(s, t);
  }
}

void prendreAxe(const source&, travail& t) { t.grilles.push_back(std::make_unique<coupeAxe>()); }

struct genreSource {
  const wchar_t* nom;
  void (*prendre)(const source& s, travail& t);
};
constexpr genreSource kGenres[] = {{L"dessin", prendreDessin}, {L"fichier", prendreFichier}, {L"axe", prendreAxe}};

bool lireSource(const resbuf*& noeud, source& s) {
  if (noeud->restype != RTLB || !plv::estChaine(noeud->rbnext)) return false;
  const resbuf* suite = apresListe(noeud);
  noeud = noeud->rbnext;
  s.genre = plv::valeurTexte(noeud);
  for (noeud = noeud->rbnext; noeud && noeud->restype != RTLE; noeud = noeud->rbnext) {
    if (!plv::estChaine(noeud)) {
      s.entites = entitesDe(noeud);
    } else if (const std::wstring mot = plv::valeurTexte(noeud); s.chemin.empty()) {
      s.chemin = mot;
    } else if (mot == L"echanger") {
      s.echanger = true;
    } else if (constexpr std::wstring_view kSurface = L"surface:"; mot.starts_with(kSurface)) {
      s.surface = mot.substr(kSurface.size());
    } else {
      s.systeme = plv::nomDeFichier(mot);
    }
  }
  noeud = suite;
  return true;
}

// No system has coordinates as great; numbers beyond it are a damaged file, and would cost all digits of the others.
void exigerVraisemblables(const releve& r) {
  constexpr double kPlusGrande = 1e11;  // millimetres, too
  const auto exiger = [](const point3& p) {
    if (std::abs(p.x) > kPlusGrande || std::abs(p.y) > kPlusGrande || std::abs(p.z) > kPlusGrande)
      throw refus{L"coordonnée invraisemblable dans la surface: " + plv::texteFixe(p.x, 2) + L", " +
                  plv::texteFixe(p.y, 2) + L", " + plv::texteFixe(p.z, 2)};
  };
  for (const point3& p : r.points) exiger(p);
  for (const auto& face : r.faces)
    for (const point3& p : face) exiger(p);
}

void faireSurfaces(travail& t) {
  releve& r = t.dessin.resultat();
  surfaceLue& lue = t.lue;
  lue.bilan = t.dessin.bilan();
  lue.points = r.points.size(), lue.segments = r.segments.size();
  exigerVraisemblables(r);
  if (t.regles.pres > 0) {
    lue.pointsPres = std::move(r.points);
    return;
  }
  const auto ajouter = [&](maillage mesh) {
    if (t.regles.arete > 0) retirerLongues(mesh, t.regles.arete);
    if (mesh.triangles.empty())
      throw refus{L"aucun triangle de la surface n'a toutes ses arêtes plus courtes que la plus longue permise"};
    lue.triangles += mesh.triangles.size();
    auto coupable = std::make_unique<coupeMaillage>(std::move(mesh));
    lue.maillages.push_back(coupable.get());
    lue.surface.ajouter(std::move(coupable));
  };
  if (!r.faces.empty()) ajouter(maillageDe(r.faces));
  // Beside faces a few stray points make no surface, and needn't.
  if (!r.points.empty() && (r.faces.empty() || r.points.size() > 2)) {
    triangulation faite = trianguler(r.points, r.segments, lue.contradictions);
    lue.doubles = faite.doubles;
    ajouter(std::move(faite.mesh));
  }
  for (auto& grille : t.grilles) lue.surface.ajouter(std::move(grille));
}

}  // namespace

bool lireSources(const resbuf* noeud, const reglesTerrain& regles, surfaceLue& lue) {
  if (!noeud || noeud->restype != RTLB) return false;
  travail t{regles, collecte(regles.collecte), lue, {}};
  for (noeud = noeud->rbnext; noeud && noeud->restype == RTLB;) {
    source s;
    if (!lireSource(noeud, s)) return false;
    const auto* genre =
        std::find_if(std::begin(kGenres), std::end(kGenres), [&](const genreSource& g) { return s.genre == g.nom; });
    if (genre == std::end(kGenres)) return false;
    genre->prendre(s, t);
  }
  faireSurfaces(t);
  return true;
}

}  // namespace etu
