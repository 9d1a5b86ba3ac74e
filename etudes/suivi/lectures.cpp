// What AutoLISP would have to look at entity by entity, of which there are thousands: those that a record names (et_entites), those that
// another list lacks (et_hors), a chain (et_chaine), the ends of lines (et_departs, et_bouts), the straight pieces that the
// first plug-in reads of a curve (et_morceaux); numbers as texts (et_reels).
#include <cmath>
#include <optional>
#include <unordered_set>
#include <vector>

#include "etudes/suivi/fonctions.h"
#include "etudes/suivi/rangees.h"
#include "hote/acdb.h"
#include "hote/dbents.h"
#include "hote/dbsymtb.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/commande/arguments/listeRb.h"
#include "module/profil/chaines.h"
#include "module/support/base/lettres.h"
#include "module/support/base/nombres.h"
#include "module/support/courbes/kitCourbes.h"
#include "module/support/dessin/kitXrecords.h"

namespace etu {

namespace {

constexpr short kGroupeEntite = 330;

// Whether an object is there, and on the layer, where one is asked for.
bool presente(AcDbObjectId id, AcDbObjectId calque) {
  const AcDbObjectPointer<AcDbObject> objet(id);
  if (objet.openStatus() != Acad::eOk) return false;
  if (calque.isNull()) return true;
  const auto* entite = AcDbEntity::cast(objet.object());
  return entite && entite->layerId() == calque;
}

// The entity that stands under a key of an entity, keys read without regard to case.
AcDbObjectId suivanteDe(const AcDbEntity& entite, const std::wstring& cle) {
  plv::ArgsLisp donnees;
  const resbuf* g = donnees.lireXData(entite, plv::kApplicationCles);
  for (g = g ? g->rbnext : nullptr; g && g->rbnext; g = g->rbnext->rbnext) {
    if (g->restype != plv::kXTexte || !plv::egalSansCasse(g->resval.rstring, cle)) continue;
    AcDbObjectId id;
    if (g->rbnext->restype == plv::kXHandle) plv::handleVersId(g->rbnext->resval.rstring, id);
    return id;
  }
  return {};
}

bool memePoint(const AcGePoint3d& a, const resbuf* b) {
  constexpr double kMeme = 1e-4;  // drawing units
  const AcGePoint3d p = plv::valeurPoint(b);
  return std::abs(a.x - p.x) <= kMeme && std::abs(a.y - p.y) <= kMeme;
}

bool estZero(const std::wstring& texte) { return texte.find_first_of(L"123456789") == std::wstring::npos; }

}  // namespace

void et_chaine() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  if (!plv::estNom(args.nieme(0)) || !plv::estChaine(args.nieme(1))) return;
  const std::wstring cle = plv::valeurTexte(args.nieme(1));
  std::unordered_set<AcDbStub*> passees;
  plv::listeRb liste;
  for (AcDbObjectId id = plv::valeurId(args.nieme(0)); !id.isNull() && passees.insert(id).second;) {
    const AcDbEntityPointer entite(id);
    ads_name nom{};
    if (entite.openStatus() != Acad::eOk || acdbGetAdsName(nom, id) != Acad::eOk) break;
    liste.ajouter(acutBuildList(RTENAME, nom, 0));
    id = suivanteDe(*entite, cle);
  }
  if (liste.tete()) acedRetList(liste.tete());
}

void et_bouts() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  for (const resbuf* n = args.nieme(0); n; n = n->rbnext) {
    if (!plv::estNom(n)) continue;
    const AcDbObjectPointer<AcDbLine> ligne(plv::valeurId(n));
    const resbuf* debut = n->rbnext;
    const resbuf* fin = debut ? debut->rbnext : nullptr;
    if (ligne.openStatus() != Acad::eOk || !plv::estPoint(debut) || !plv::estPoint(fin)) return;
    if (!memePoint(ligne->startPoint(), debut) || !memePoint(ligne->endPoint(), fin)) return;
  }
  acedRetT();
}

void et_departs() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  plv::listeRb liste;
  const resbuf* noeud = args.nieme(0);
  for (const AcDbObjectId id : suivi::lireEntites(noeud)) {
    const AcDbObjectPointer<AcDbLine> ligne(id);
    if (ligne.openStatus() == Acad::eOk) liste.ajouter(acutBuildList(RT3DPOINT, asDblArray(ligne->startPoint()), 0));
    else liste.ajouter(acutBuildList(RTNIL, 0));
  }
  if (liste.tete()) acedRetList(liste.tete());
}

void et_morceaux() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  if (!plv::estNom(args.nieme(0))) return;
  const AcDbObjectPointer<AcDbCurve> courbe(plv::valeurId(args.nieme(0)));
  if (courbe.openStatus() != Acad::eOk) return;
  constexpr double kTolerance = 1e-8;
  AcGePoint2dArray debuts, fins;
  plv::segmentsCourbe(*courbe, debuts, fins, kTolerance);
  if (debuts.isEmpty()) return;
  plv::listeRb liste(acutBuildList(RTLB, 0));
  liste.ajouter(acutBuildList(RTLB, RTREAL, debuts[0].x, RTREAL, debuts[0].y, RTLE, 0));
  for (const AcGePoint2d& p : fins) liste.ajouter(acutBuildList(RTLB, RTREAL, p.x, RTREAL, p.y, RTLE, 0));
  liste.ajouter(acutBuildList(RTLE, 0));
  acedRetList(liste.tete());
}

void et_reels() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  const resbuf* n = args.nieme(0);
  if (!n) return;
  // A list of two or three numbers reaches a function as a point.
  std::vector<std::optional<double>> valeurs;
  if (plv::estPoint(n)) valeurs.assign(n->resval.rpoint, n->resval.rpoint + (n->restype == RT3DPOINT ? 3 : 2));
  else if (n->restype != RTLB) return;
  else
    for (n = n->rbnext; n && n->restype != RTLE; n = n->rbnext)
      valeurs.push_back(plv::estNombre(n) ? std::optional(plv::valeurReelle(n)) : std::nullopt);
  if (!n || !plv::estEntier(n->rbnext)) return;
  plv::listeRb liste;
  for (const std::optional<double>& v : valeurs) {
    std::wstring texte = v ? plv::texteFixe(*v, plv::valeurEntiere(n->rbnext)) : L"";
    if (!texte.empty() && texte.front() == L'-' && estZero(texte)) texte.erase(0, 1);
    liste.ajouter(v ? acutBuildList(RTSTR, texte.c_str(), 0) : acutBuildList(RTNIL, 0));
  }
  if (liste.tete()) acedRetList(liste.tete());
}

void et_entites() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  const resbuf* porteur = args.nieme(0);
  const resbuf* cle = args.nieme(1);
  if (!plv::estNom(porteur) || !plv::estChaine(cle)) return;
  AcDbObjectId calque;
  if (const resbuf* nom = cle->rbnext; plv::estChaine(nom)) {
    const AcDbObjectPointer<AcDbLayerTable> calques(acdbHostApplicationServices()->workingDatabase()->layerTableId());
    if (calques.openStatus() != Acad::eOk || calques->getAt(plv::valeurTexte(nom).c_str(), calque) != Acad::eOk) return;
  }
  plv::listeRb groupes(plv::lireXrecord(plv::valeurId(porteur), plv::valeurTexte(cle).c_str())), liste;
  for (const resbuf* g = groupes.tete(); g; g = g->rbnext) {
    AcDbObjectId id;
    if (g->restype != kGroupeEntite || acdbGetObjectId(id, g->resval.rlname) != Acad::eOk || !presente(id, calque))
      continue;
    liste.ajouter(acutBuildList(RTENAME, g->resval.rlname, 0));
  }
  if (liste.tete()) acedRetList(liste.tete());
}

void et_hors() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  const resbuf* noeud = args.nieme(0);
  const std::vector<AcDbObjectId> entites = suivi::lireEntites(noeud);
  const suivi::ensemble autres(suivi::lireEntites(noeud));
  plv::listeRb liste;
  for (const AcDbObjectId id : entites) {
    ads_name nom{};
    if (autres.contains(id) || acdbGetAdsName(nom, id) != Acad::eOk) continue;
    liste.ajouter(acutBuildList(RTENAME, nom, 0));
  }
  if (liste.tete()) acedRetList(liste.tete());
}

}  // namespace etu
