// One row for each kind of source and of option; points, lines and faces of all sources are gathered before they become surfaces.
#include "etudes/terrain/sources.h"

#include "etudes/surfaces/coupeMaillage.h"
#include "etudes/surfaces/triangulation.h"
#include "etudes/terrain/arguments.h"
#include "etudes/terrain/lectureAxe.h"
#include "etudes/terrain/listePoints.h"
#include "module/support/base/lettres.h"

namespace etu {

namespace {

struct source {
  std::wstring genre, chemin;
  AcDbObjectIdArray entites;
  bool echanger = false;
};

struct travail {
  const reglesTerrain& regles;
  collecte dessin;
  surfaceLue& lue;
};

// In the order of their making: of two points at one place the earlier one stands.
void prendreDessin(const source& s, travail& t) {
  std::vector<AcDbObjectId> ids(s.entites.begin(), s.entites.end());
  std::sort(ids.begin(), ids.end(), [](AcDbObjectId a, AcDbObjectId b) {
    return static_cast<Adesk::UInt64>(a.handle()) < static_cast<Adesk::UInt64>(b.handle());
  });
  for (const AcDbObjectId id : ids) t.dessin.prendre(id);
}

void prendrePoints(const source& s, travail& t) {
  std::vector<point3>& points = t.dessin.resultat().points;
  const std::size_t avant = points.size();
  lirePoints(s.chemin, t.dessin.resultat());
  if (s.echanger)
    for (std::size_t i = avant; i < points.size(); ++i) std::swap(points[i].x, points[i].y);
}

struct genreSource {
  const wchar_t* nom;
  void (*prendre)(const source& s, travail& t);
};
constexpr genreSource kGenres[] = {{L"dessin", prendreDessin}, {L"points", prendrePoints}};

bool lireSource(const resbuf*& noeud, source& s) {
  if (noeud->restype != RTLB || !plv::estChaine(noeud->rbnext)) return false;
  const resbuf* suite = apresListe(noeud);
  noeud = noeud->rbnext;
  s.genre = plv::valeurTexte(noeud);
  for (noeud = noeud->rbnext; noeud && noeud->restype != RTLE; noeud = noeud->rbnext) {
    if (!plv::estChaine(noeud)) {
      s.entites = entitesDe(noeud);
    } else if (plv::valeurTexte(noeud) == L"echanger") {
      s.echanger = true;
    } else {
      s.chemin = plv::valeurTexte(noeud);
    }
  }
  noeud = suite;
  return true;
}

void faireSurfaces(travail& t) {
  releve& r = t.dessin.resultat();
  surfaceLue& lue = t.lue;
  lue.bilan = t.dessin.bilan();
  lue.points = r.points.size(), lue.segments = r.segments.size();
  const auto ajouter = [&](maillage mesh) {
    if (t.regles.arete > 0) retirerLongues(mesh, t.regles.arete);
    if (mesh.triangles.empty())
      throw refus{L"aucun triangle de la surface n'a toutes ses arêtes plus courtes que la plus longue permise"};
    lue.triangles += mesh.triangles.size();
    lue.surface.ajouter(std::make_unique<coupeMaillage>(std::move(mesh)));
  };
  if (!r.faces.empty()) ajouter(maillageDe(r.faces));
  // Beside faces a few stray points make no surface, and needn't.
  if (!r.points.empty() && (r.faces.empty() || r.points.size() > 2)) {
    triangulation faite = trianguler(r.points, r.segments, lue.contradictions);
    lue.doubles = faite.doubles;
    ajouter(std::move(faite.mesh));
  }
}

std::vector<axePlan> contoursDe(const resbuf* noeud) {
  std::vector<axePlan> contours;
  for (const AcDbObjectId id : entitesDe(noeud)) {
    const AcDbEntityPointer entite(id);
    if (entite.openStatus() != Acad::eOk) continue;
    if (axePlan contour = axeDeCourbe(*entite); contour.size() > 2) contours.push_back(std::move(contour));
  }
  return contours;
}

struct genreOption {
  const wchar_t* nom;
  bool (*prendre)(const resbuf* valeur, reglesTerrain& regles);
};

bool positif(const resbuf* noeud, double& valeur) {
  if (!plv::estNombre(noeud) || !(plv::valeurReelle(noeud) >= 0)) return false;
  valeur = plv::valeurReelle(noeud);
  return true;
}

constexpr genreOption kOptions[] = {
    {L"tolerance", [](const resbuf* n, reglesTerrain& r) { return positif(n, r.tolerance); }},
    {L"arete", [](const resbuf* n, reglesTerrain& r) { return positif(n, r.arete); }},
    {L"attribut",
     [](const resbuf* n, reglesTerrain& r) {
       r.collecte.attribut = plv::valeurTexte(n);
       return plv::estChaine(n);
     }},
    {L"zero",
     [](const resbuf* n, reglesTerrain& r) {
       r.collecte.zeroCompris = n->restype != RTNIL;
       return true;
     }},
    {L"contour",
     [](const resbuf* n, reglesTerrain& r) {
       r.bornes.contours = contoursDe(n);
       r.collecte.ecartees.append(entitesDe(n));
       return !r.bornes.contours.empty();
     }},
    {L"trous",
     [](const resbuf* n, reglesTerrain& r) {
       r.bornes.trous = contoursDe(n);
       r.collecte.ecartees.append(entitesDe(n));
       return !r.bornes.trous.empty();
     }},
    {L"sauf",
     [](const resbuf* n, reglesTerrain& r) {
       r.collecte.ecartees.append(entitesDe(n));
       return true;
     }},
};

}  // namespace

bool lireRegles(const resbuf* noeud, reglesTerrain& regles) {
  if (!noeud || noeud->restype == RTNIL) return true;
  if (noeud->restype != RTLB) return false;
  for (noeud = noeud->rbnext; noeud && noeud->restype == RTLB; noeud = apresListe(noeud)) {
    if (!plv::estChaine(noeud->rbnext) || !noeud->rbnext->rbnext) return false;
    const std::wstring nom = plv::valeurTexte(noeud->rbnext);
    const auto* option =
        std::find_if(std::begin(kOptions), std::end(kOptions), [&](const genreOption& o) { return nom == o.nom; });
    if (option == std::end(kOptions) || !option->prendre(noeud->rbnext->rbnext, regles)) return false;
  }
  return noeud && noeud->restype == RTLE;
}

bool lireSources(const resbuf* noeud, const reglesTerrain& regles, surfaceLue& lue) {
  if (!noeud || noeud->restype != RTLB) return false;
  travail t{regles, collecte(regles.collecte), lue};
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
