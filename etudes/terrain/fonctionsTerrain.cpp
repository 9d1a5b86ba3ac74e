// et_terrain: the profiles of a surface along axes. The surface is made once for all of them; without axes it is only looked at. et_triangles: the surface itself.
#include "etudes/fichiers/nombres.h"
#include "etudes/surfaces/coupeAxe.h"
#include "etudes/terrain/arguments.h"
#include "etudes/terrain/controle.h"
#include "etudes/terrain/fonctions.h"
#include "etudes/terrain/sources.h"
#include "module/support/base/nombres.h"

namespace etu {

namespace {

bool lireAxes(const resbuf* noeud, std::vector<axePlan>& axes) {
  if (noeud->restype == RTNIL) return true;
  if (noeud->restype != RTLB) return false;
  for (noeud = noeud->rbnext; noeud && noeud->restype == RTLB;)
    if (!lireAxe(noeud, axes.emplace_back()) || axes.back().size() < 2) return false;
  return noeud && noeud->restype == RTLE;
}

const wchar_t* nomDe(desaccord quoi) {
  switch (quoi) {
    case desaccord::pointDouble: return L"deux points au même endroit";
    case desaccord::lignesCroisees: return L"deux lignes se croisent";
    case desaccord::pointSurLigne: return L"un point sur une ligne";
    case desaccord::facesSuperposees: return L"deux faces l'une sur l'autre";
  }
  return L"";
}

std::vector<std::wstring> remarques(const surfaceLue& lue) {
  std::vector<std::wstring> textes = lue.remarques;
  if (lue.doubles > 0) textes.push_back(compte(lue.doubles, L"point") + L" à la place d'un autre: un seul compte");
  std::wstring laisses;
  const auto ajouter = [&](std::size_t nombre, const wchar_t* pourquoi) {
    if (nombre > 0) laisses += (laisses.empty() ? L"Objets laissés: " : L", ") + std::to_wstring(nombre) + pourquoi;
  };
  ajouter(lue.bilan.altitudeNulle, L" à l'altitude 0, prise pour absente (le réglage Zéro les prend)");
  ajouter(lue.bilan.sansAltitude, L" sans altitude (blocs, textes)");
  ajouter(lue.bilan.autres, L" d'un autre type");
  if (!laisses.empty()) textes.push_back(laisses);
  if (lue.triangles == 1) textes.push_back(L"La surface n'a qu'un triangle");
  return textes;
}

std::wstring direCroisement(const piedAxe& lieu) {
  return L"L'axe se croise lui-même à " + plv::texteFixe(lieu.station, 2) + L" m de son début, en " +
         plv::texteFixe(lieu.x, 2) + L", " + plv::texteFixe(lieu.y, 2);
}

// The profile along one axis; the sentence tells why there is none.
std::vector<morceau> profilDe(const axePlan& axe, const std::vector<piedAxe>& pieds, const reglesTerrain& regles,
                              surfaceLue& lue, std::wstring& pourquoi) {
  if (regles.pres > 0) {
    const morceau m = profilDesPoints(pieds, lue.pointsPres, regles.pres);
    if (m.empty()) pourquoi = L"moins de deux points sont à " + plv::texteFixe(regles.pres, 2) + L" m de l'axe au plus";
    return m.empty() ? std::vector<morceau>{} : std::vector<morceau>{alleger(m, regles.tolerance)};
  }
  std::vector<morceau> morceaux = couper(lue.surface, pieds, lue.contradictions);
  if (morceaux.empty()) {
    const etendue emprise = lue.surface.emprise();
    pourquoi = emprise.vide() ? L"l'axe n'a pas d'altitudes" : pourquoiHors(etendueDe(axe), emprise);
  }
  if (!regles.bornes.vides() && !morceaux.empty()) {
    morceaux = dansIntervalles(morceaux, dansLimites(regles.bornes, pieds));
    if (morceaux.empty()) pourquoi = L"le contour et les trous ne laissent aucune surface sous l'axe";
  }
  for (morceau& m : morceaux) m = alleger(m, regles.tolerance);
  return morceaux;
}

void ajouter(plv::listeRb& liste, double longueurAxe, const std::vector<morceau>& morceaux) {
  ouvrir(liste);
  liste.ajouter(acutBuildList(RTREAL, longueurAxe, 0));
  for (const morceau& m : morceaux) {
    ouvrir(liste);
    for (const pointCoupe& p : m) liste.ajouter(acutBuildList(RTLB, RTREAL, p.station, RTREAL, p.z, RTLE, 0));
    fermer(liste);
  }
  fermer(liste);
}

void ajouter(plv::listeRb& liste, const listeContradictions& contradictions) {
  ouvrir(liste);
  for (const contradiction& c : contradictions.montrees)
    liste.ajouter(
        acutBuildList(RTLB, RTSTR, nomDe(c.quoi), RTREAL, c.x, RTREAL, c.y, RTREAL, c.z1, RTREAL, c.z2, RTLE, 0));
  fermer(liste);
}

void ajouter(plv::listeRb& liste, const maillage& mesh) {
  for (const auto& triangle : mesh.triangles) {
    ouvrir(liste);
    for (const numero p : triangle) {
      const ads_point point = {mesh.points[p].x, mesh.points[p].y, mesh.points[p].z};
      liste.ajouter(acutBuildList(RT3DPOINT, point, 0));
    }
    fermer(liste);
  }
}

void rendre(const std::vector<axePlan>& axes, const reglesTerrain& regles, surfaceLue& lue) {
  plv::listeRb liste;
  ouvrir(liste);
  std::vector<std::wstring> textes = remarques(lue);
  for (const axePlan& axe : axes) {
    const std::vector<piedAxe> pieds = cordes(axe);
    if (const auto lieu = croisementPropre(pieds)) textes.push_back(direCroisement(*lieu));
    std::wstring pourquoi;
    const std::vector<morceau> morceaux = profilDe(axe, pieds, regles, lue, pourquoi);
    if (morceaux.empty()) liste.ajouter(acutBuildList(RTSTR, pourquoi.c_str(), 0));
    else ajouter(liste, pieds.back().station, morceaux);
  }
  fermer(liste);
  ajouter(liste, lue.contradictions);
  ajouterTextes(liste, textes);
  liste.ajouter(acutBuildList(RTLB, RTLONG, static_cast<Adesk::Int32>(lue.points), RTLONG,
                              static_cast<Adesk::Int32>(lue.segments), RTLONG, static_cast<Adesk::Int32>(lue.triangles),
                              RTLONG, static_cast<Adesk::Int32>(lue.contradictions.nombre), RTLE, 0));
  acedRetList(liste.tete());
}

}  // namespace

void et_terrain() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  std::vector<axePlan> axes;
  const resbuf* premier = args.nieme(0);
  if (!premier) return;
  const resbuf* sources = premier->restype == RTLB ? apresListe(premier) : premier->rbnext;
  reglesTerrain regles;
  if (!lireAxes(premier, axes) || !sources || sources->restype != RTLB || !lireRegles(apresListe(sources), regles))
    return;
  repondre([&] {
    surfaceLue lue;
    if (lireSources(sources, regles, lue)) {
      if (lue.surface.vide() && lue.pointsPres.empty())
        throw refus{L"aucun point, aucune ligne et aucune face dans les sources"};
      rendre(axes, regles, lue);
    }
  });
}

void et_triangles() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  const resbuf* sources = args.nieme(0);
  reglesTerrain regles;
  if (!sources || sources->restype != RTLB) return;
  const resbuf* options = apresListe(sources);
  const resbuf* nombre = !options ? nullptr : options->restype == RTLB ? apresListe(options) : options->rbnext;
  if (!lireRegles(options, regles) || !plv::estEntier(nombre)) return;
  repondre([&] {
    surfaceLue lue;
    if (!lireSources(sources, regles, lue)) return;
    if (lue.triangles > static_cast<std::size_t>(std::max(plv::valeurEntiere(nombre), 0)))
      throw refus{compte(lue.triangles, L"triangle") + L", plus qu'il n'en est dessiné (" +
                  std::to_wstring(plv::valeurEntiere(nombre)) + L"): limitez la source"};
    plv::listeRb liste(acutBuildList(RTLB, 0));
    for (const coupeMaillage* m : lue.maillages) ajouter(liste, m->mesh());
    fermer(liste);
    if (lue.triangles > 0) acedRetList(liste.tete());
  });
}

}  // namespace etu
