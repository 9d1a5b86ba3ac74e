// et_a_corriger: what isn't right in rows of tables. What was put in them is known: a table of twenty rows holds tens of thousands of
// entities, of which a change concerns few.
#include <algorithm>

#include "etudes/suivi/contenu.h"
#include "etudes/suivi/fonctions.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/commande/arguments/listeRb.h"

namespace etu {

using namespace suivi;

namespace {

// What the row's record names; false without any.
bool lireNotee(const ensemble& membres, contenu& c) {
  const std::vector<note> notes = lireNotes(c.ligne(), membres);
  for (const note& n : notes) {
    const AcDbEntityPointer entite(n.id);
    if (entite.openStatus() == Acad::eOk) c.prendre(*entite, n.id, n.lieu);
  }
  return !notes.empty();
}

// What stands in rows of which nothing is kept: tables of another program, or whose records are gone.
void chercher(const std::vector<AcDbObjectId>& ids, const ensemble& gardees, const std::vector<contenu*>& contenus) {
  for (const AcDbObjectId id : ids) {
    const AcDbEntityPointer entite(id);
    if (entite.openStatus() != Acad::eOk || gardees.contains(id)) continue;
    const auto b = bandeDe(*entite);
    for (contenu* c : contenus)
      if (b && contient(c->ligne(), *b)) c->prendre(*entite, id, {});
  }
}

void ajouterNom(plv::listeRb& liste, AcDbObjectId id) {
  ads_name nom{};
  if (acdbGetAdsName(nom, id) == Acad::eOk) liste.ajouter(acutBuildList(RTENAME, nom, 0));
}

// (touched T entity ...) for a row to be filled as a whole, else (touched nil (number-or-nil entity-or-nil) ...).
void ajouterContenu(plv::listeRb& liste, contenu& c) {
  plv::listeRb fautes;
  const bool parCases = c.comparer([&](std::optional<int> numero, std::optional<AcDbObjectId> id) {
    fautes.ajouter(acutBuildList(RTLB, 0));
    if (numero) fautes.ajouter(acutBuildList(RTLONG, static_cast<Adesk::Int32>(*numero), 0));
    else fautes.ajouter(acutBuildList(RTNIL, 0));
    if (id) ajouterNom(fautes, *id);
    else fautes.ajouter(acutBuildList(RTNIL, 0));
    fautes.ajouter(acutBuildList(RTLE, 0));
  });
  liste.ajouter(acutBuildList(RTLB, c.touchee() ? RTT : RTNIL, parCases ? RTNIL : RTT, 0));
  if (parCases) liste.ajouter(fautes.ceder());
  else
    for (const AcDbObjectId id : c.entites()) ajouterNom(liste, id);
  liste.ajouter(acutBuildList(RTLE, 0));
}

}  // namespace

void et_a_corriger() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  const resbuf* noeud = args.nieme(0);
  const std::vector<AcDbObjectId> ids = lireEntites(noeud);
  const bool sansChercher = noeud && noeud->restype == RTT;
  const std::vector<AcDbObjectId> gardees = lireEntites(noeud);
  std::vector<contenu> contenus;
  for (rangee& r : lireRangees(noeud)) contenus.emplace_back(std::move(r));
  if (contenus.empty()) return;
  const ensemble membres(ids);
  std::vector<contenu*> inconnus;
  for (contenu& c : contenus) {
    if (lireNotee(membres, c)) continue;
    c.inconnue();
    inconnus.push_back(&c);
  }
  if (!inconnus.empty() && sansChercher) return;
  if (!inconnus.empty()) chercher(uniques(ids), ensemble(gardees), inconnus);
  plv::listeRb liste;
  liste.ajouter(acutBuildList(RTLB, 0));
  for (contenu& c : contenus) ajouterContenu(liste, c);
  liste.ajouter(acutBuildList(RTLE, 0));
  acedRetList(liste.tete());
}

}  // namespace etu
