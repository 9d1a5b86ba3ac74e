// Chains of arguments as rows, records as places.
#include "etudes/suivi/rangees.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <unordered_set>
#include <utility>

#include "hote/dbdict.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/commande/arguments/listeRb.h"
#include "module/support/dessin/kitXrecords.h"

namespace etu::suivi {

namespace {

constexpr double kBord = 1e-6;  // drawing units

void ajouterEntite(std::vector<AcDbObjectId>& ids, AcDbObjectId id) {
  const AcDbObjectPointer<AcDbGroup> groupe(id);
  if (groupe.openStatus() != Acad::eOk) return ids.push_back(id);
  AcDbObjectIdArray membres;
  groupe->allEntityIds(membres);
  for (int i = 0; i < membres.length(); ++i) ids.push_back(membres[i]);
}

const resbuf* apres(const resbuf* noeud) { return noeud ? noeud->rbnext : nullptr; }

// The cells or pieces of a list of lists that begins at this node.
void lireCellules(const resbuf* noeud, rangee& r) {
  for (noeud = noeud->rbnext; noeud && noeud->restype == RTLB; noeud = apres(noeud)) {
    const resbuf* x = noeud->rbnext;
    const resbuf* y = apres(x);
    if (!plv::estNombre(x) || !y) return;
    if (plv::estChaine(y)) {
      r.cellules.push_back({plv::valeurReelle(x), plv::valeurTexte(y)});
      noeud = apres(y);
      continue;
    }
    const resbuf* montee = apres(y);
    const resbuf* mots = apres(montee);
    if (!plv::estNombre(y) || !plv::estEntier(montee) || !plv::estChaine(mots)) return;
    r.morceaux.push_back({plv::valeurReelle(x), plv::valeurReelle(y), static_cast<int>(plv::valeurEntiere(montee)),
                          plv::valeurTexte(mots)});
    noeud = apres(mots);
  }
}

}  // namespace

std::vector<AcDbObjectId> lireEntites(const resbuf*& noeud) {
  std::vector<AcDbObjectId> ids;
  if (!noeud) return ids;
  const bool liste = noeud->restype == RTLB;
  for (noeud = noeud->rbnext; liste && noeud && noeud->restype != RTLE; noeud = noeud->rbnext)
    if (plv::estNom(noeud)) ajouterEntite(ids, plv::valeurId(noeud));
  if (liste && noeud) noeud = noeud->rbnext;
  return ids;
}

std::vector<AcDbObjectId> uniques(std::vector<AcDbObjectId> ids) {
  std::unordered_set<AcDbStub*> vus;
  std::erase_if(ids, [&](AcDbObjectId id) { return !vus.insert(id).second; });
  return ids;
}

std::vector<rangee> lireRangees(const resbuf* noeud) {
  std::vector<rangee> rangees;
  for (; noeud; noeud = noeud->rbnext) {
    if (!plv::estNom(noeud) || !plv::estChaine(noeud->rbnext)) continue;
    rangee r;
    r.porteur = plv::valeurId(noeud);
    r.cle = plv::valeurTexte(noeud->rbnext);
    double* const valeurs[] = {&r.x, &r.haut, &r.bas};
    const resbuf* nombre = noeud->rbnext->rbnext;
    for (double* const valeur : valeurs) {
      if (!plv::estNombre(nombre)) break;
      *valeur = plv::valeurReelle(nombre);
      nombre = nombre->rbnext;
    }
    if (nombre && nombre->restype == RTLB) lireCellules(nombre, r);
    rangees.push_back(std::move(r));
  }
  return rangees;
}

ensemble::ensemble(const std::vector<AcDbObjectId>& ids) : m_membres(ids.begin(), ids.end()) {
  std::ranges::sort(m_membres, std::less<>());
}

bool ensemble::contains(AcDbObjectId id) const {
  return std::ranges::binary_search(m_membres, static_cast<AcDbStub*>(id), std::less<>());
}

std::optional<bande> bandeDe(const AcDbEntity& entite) {
  const auto entre = [](double a, double b) { return bande{std::min(a, b), std::max(a, b), false}; };
  if (const auto* t = AcDbText::cast(&entite)) {
    const double milieu = milieuDe(*t);
    return bande{milieu, milieu, true};
  }
  if (const auto* ligne = AcDbLine::cast(&entite)) return entre(ligne->startPoint().y, ligne->endPoint().y);
  if (const auto* bloc = AcDbBlockReference::cast(&entite)) return entre(bloc->position().y, bloc->position().y);
  if (const auto* arc = AcDbArc::cast(&entite))
    return entre(arc->center().y + arc->radius() * std::sin(arc->startAngle()),
                 arc->center().y + arc->radius() * std::sin(arc->endAngle()));
  return {};
}

bool contient(const rangee& r, const bande& b) {
  return b.texte ? b.bas <= r.haut && b.bas > r.bas : b.bas >= r.bas - kBord && b.haut <= r.haut + kBord;
}

std::vector<note> lireNotes(const rangee& r, const ensemble& membres) {
  std::vector<note> notes;
  plv::listeRb lue(plv::lireXrecord(r.porteur, r.cle.c_str()));
  bool sien = false;
  for (const resbuf* g = lue.tete(); g; g = g->rbnext) {
    AcDbObjectId id;
    if (g->restype == plv::kGroupePointeur) {
      sien = acdbGetObjectId(id, g->resval.rlname) == Acad::eOk && membres.contains(id);
      if (sien) notes.push_back({id, {}});
    } else if (g->restype == plv::kGroupePoint && sien) {
      notes.back().lieu = place{g->resval.rpoint[0] + r.x, g->resval.rpoint[1] + r.haut, g->resval.rpoint[2]};
    }
  }
  return notes;
}

void ecrireNotes(const rangee& r, const std::vector<note>& notes) {
  plv::listeRb chaine;
  for (const note& n : notes) {
    chaine.ajouterPointeur(n.id);
    if (!n.lieu) continue;
    const ads_point p{n.lieu->x - r.x, n.lieu->y - r.haut, n.lieu->mots};
    chaine.ajouter(acutBuildList(plv::kGroupePoint, p, 0));
  }
  plv::ecrireXrecord(r.porteur, r.cle.c_str(), chaine.tete());
}

note noterEntite(const AcDbEntity& entite, AcDbObjectId id) {
  const auto* t = AcDbText::cast(&entite);
  return t ? note{id, lireTexte(*t).lieu} : note{id, {}};
}

}  // namespace etu::suivi
