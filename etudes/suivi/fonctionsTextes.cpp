// et_noter_textes, et_ecarts and et_dans_bande: where the texts of rows stand, and what a hand has changed of them, from AutoLISP.
// A row is (entity key x top [bottom]): its places are kept in an Xrecord of the entity, groups 10 of x from the row's x, y from its top
// and the checksum of the words. A list of lists is returned with a bracket pair of its own.
#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <utility>

#include "etudes/suivi/fonctions.h"
#include "etudes/suivi/places.h"
#include "hote/acdb.h"
#include "hote/dbdict.h"
#include "hote/dbents.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/commande/arguments/listeRb.h"
#include "module/support/dessin/kitXrecords.h"

namespace etu {

namespace {

void ajouterEntite(std::vector<AcDbObjectId>& ids, AcDbObjectId id) {
  const AcDbObjectPointer<AcDbGroup> groupe(id);
  if (groupe.openStatus() != Acad::eOk) return ids.push_back(id);
  AcDbObjectIdArray membres;
  groupe->allEntityIds(membres);
  for (int i = 0; i < membres.length(); ++i) ids.push_back(membres[i]);
}

// The entities of a list that begins at this node, which moves behind it; a group stands for its members.
std::vector<AcDbObjectId> lireEntites(const resbuf*& noeud) {
  std::vector<AcDbObjectId> ids;
  if (!noeud) return ids;
  const bool liste = noeud->restype == RTLB;
  for (noeud = noeud->rbnext; liste && noeud && noeud->restype != RTLE; noeud = noeud->rbnext)
    if (plv::estNom(noeud)) ajouterEntite(ids, plv::valeurId(noeud));
  if (liste && noeud) noeud = noeud->rbnext;
  return ids;
}

struct rangee {
  AcDbObjectId porteur;
  std::wstring cle;
  double x = 0, haut = 0, bas = 0;
};

std::vector<rangee> lireRangees(const resbuf* noeud) {
  std::vector<rangee> rangees;
  for (; noeud; noeud = noeud->rbnext) {
    if (!plv::estNom(noeud) || !plv::estChaine(noeud->rbnext)) continue;
    rangee r{plv::valeurId(noeud), plv::valeurTexte(noeud->rbnext)};
    double* const valeurs[] = {&r.x, &r.haut, &r.bas};
    const resbuf* nombre = noeud->rbnext->rbnext;
    for (double* const valeur : valeurs) {
      if (!plv::estNombre(nombre)) break;
      *valeur = plv::valeurReelle(nombre);
      nombre = nombre->rbnext;
    }
    rangees.push_back(std::move(r));
  }
  return rangees;
}

std::vector<place> lirePlaces(const rangee& r) {
  std::vector<place> places;
  plv::listeRb lue(plv::lireXrecord(r.porteur, r.cle.c_str()));
  for (const resbuf* g = lue.tete(); g; g = g->rbnext)
    if (g->restype == plv::kGroupePoint)
      places.push_back({g->resval.rpoint[0] + r.x, g->resval.rpoint[1] + r.haut, g->resval.rpoint[2]});
  return places;
}

void ecrirePlaces(const rangee& r, const std::vector<texte>& textes) {
  plv::listeRb chaine;
  for (const texte& t : textes) {
    if (t.milieu > r.haut || t.milieu <= r.bas) continue;
    const ads_point p{t.lieu.x - r.x, t.lieu.y - r.haut, t.lieu.mots};
    chaine.ajouter(acutBuildList(plv::kGroupePoint, p, 0));
  }
  plv::ecrireXrecord(r.porteur, r.cle.c_str(), chaine.tete());
}

// The ordinates between which an entity belongs to a row: those of the ends of a line or arc, that of a text's or reference's point.
std::optional<std::pair<double, double>> ordonnees(AcDbObjectId id) {
  const AcDbEntityPointer entite(id);
  if (entite.openStatus() != Acad::eOk) return {};
  if (const auto* ligne = AcDbLine::cast(entite.object()))
    return std::minmax({ligne->startPoint().y, ligne->endPoint().y});
  if (const auto* t = AcDbText::cast(entite.object())) {
    const double y = t->isDefaultAlignment() ? t->position().y : t->alignmentPoint().y;
    return std::pair(y, y);
  }
  if (const auto* bloc = AcDbBlockReference::cast(entite.object()))
    return std::pair(bloc->position().y, bloc->position().y);
  if (const auto* arc = AcDbArc::cast(entite.object()))
    return std::minmax({arc->center().y + arc->radius() * std::sin(arc->startAngle()),
                        arc->center().y + arc->radius() * std::sin(arc->endAngle())});
  return {};
}

}  // namespace

void et_noter_textes() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  const resbuf* noeud = args.nieme(0);
  std::vector<texte> textes;
  for (const AcDbObjectId id : lireEntites(noeud))
    if (const auto t = lireTexte(id)) textes.push_back(*t);
  for (const rangee& r : lireRangees(noeud)) ecrirePlaces(r, textes);
  acedRetT();
}

void et_ecarts() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  const resbuf* noeud = args.nieme(0);
  const std::vector<AcDbObjectId> ids = lireEntites(noeud);
  const std::vector<rangee> rangees = lireRangees(noeud);
  std::vector<texte> textes;
  std::vector<AcDbObjectId> noms;
  std::vector<int> proprietaires;
  for (const AcDbObjectId id : ids) {
    const auto t = lireTexte(id);
    if (!t) continue;
    textes.push_back(*t);
    noms.push_back(id);
  }
  std::vector<place> places;
  for (std::size_t i = 0; i < rangees.size(); ++i) {
    const std::vector<place> siennes = lirePlaces(rangees[i]);
    places.insert(places.end(), siennes.begin(), siennes.end());
    proprietaires.resize(places.size(), static_cast<int>(i));
  }
  const std::vector<ecart> trouves = ecarts(textes, places);
  if (trouves.empty()) return;
  plv::listeRb liste;
  liste.ajouter(acutBuildList(RTLB, 0));
  for (const ecart& e : trouves) {
    const place& p = places[e.place];
    const rangee& r = rangees[static_cast<std::size_t>(proprietaires[e.place])];
    ads_name nom{};
    acdbGetAdsName(nom, noms[e.texte]);
    liste.ajouter(acutBuildList(RTLB, RTENAME, nom, RTLONG, proprietaires[e.place], RTREAL, p.x - r.x, RTREAL,
                                p.y - r.haut, RTREAL, e.dx, RTREAL, e.dy,
                                textes[e.texte].lieu.mots != p.mots ? RTT : RTNIL, RTREAL, p.mots, RTLE, 0));
  }
  liste.ajouter(acutBuildList(RTLE, 0));
  acedRetList(liste.tete());
}

void et_textes() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  const resbuf* noeud = args.nieme(0);
  struct lu {
    double x;
    AcString mots;
    AcDbObjectId id;
  };
  std::vector<lu> textes;
  for (const AcDbObjectId id : lireEntites(noeud)) {
    const AcDbObjectPointer<AcDbText> t(id);
    if (t.openStatus() != Acad::eOk) continue;
    textes.push_back({t->isDefaultAlignment() ? t->position().x : t->alignmentPoint().x, t->textString(), id});
  }
  std::ranges::stable_sort(textes, {}, &lu::x);
  if (textes.empty()) return;
  plv::listeRb liste;
  liste.ajouter(acutBuildList(RTLB, 0));
  for (const lu& t : textes) {
    ads_name nom{};
    acdbGetAdsName(nom, t.id);
    liste.ajouter(acutBuildList(RTLB, RTREAL, t.x, RTSTR, t.mots.kACharPtr(), RTENAME, nom, RTLE, 0));
  }
  liste.ajouter(acutBuildList(RTLE, 0));
  acedRetList(liste.tete());
}

void et_somme() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  const resbuf* noeud = args.nieme(0);
  if (!plv::estNom(noeud)) return;
  if (const auto t = lireTexte(plv::valeurId(noeud))) acedRetReal(t->lieu.mots);
}

void et_dans_bande() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  const resbuf* noeud = args.nieme(0);
  const std::vector<AcDbObjectId> ids = lireEntites(noeud);
  if (!plv::estNombre(noeud) || !plv::estNombre(noeud->rbnext)) return;
  const double haut = plv::valeurReelle(noeud) + 1e-6, bas = plv::valeurReelle(noeud->rbnext) - 1e-6;
  plv::listeRb liste;
  for (const AcDbObjectId id : ids) {
    const auto siennes = ordonnees(id);
    if (!siennes || siennes->first < bas || siennes->second > haut) continue;
    ads_name nom{};
    acdbGetAdsName(nom, id);
    liste.ajouter(acutBuildList(RTENAME, nom, 0));
  }
  if (liste.tete()) acedRetList(liste.tete());
}

}  // namespace etu
