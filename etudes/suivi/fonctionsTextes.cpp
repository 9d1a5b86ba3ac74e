// et_noter_rangees, et_renoter and et_ecarts: what was put in the rows of tables, and what a hand has changed of it, from AutoLISP. Rows
// are those of rangees.h. A list of lists is returned with a bracket pair of its own.
#include <algorithm>

#include "etudes/suivi/fonctions.h"
#include "etudes/suivi/rangees.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/commande/arguments/listeRb.h"

namespace etu {

using namespace suivi;

namespace {

using notesParRangee = std::vector<std::vector<note>>;

// Adds entities to the notes of the row in which they stand.
void repartir(const std::vector<AcDbObjectId>& ids, const ensemble& gardees, const std::vector<rangee>& rangees,
              notesParRangee& notes) {
  for (const AcDbObjectId id : ids) {
    const AcDbEntityPointer entite(id);
    if (entite.openStatus() != Acad::eOk || gardees.contains(id)) continue;
    const auto b = bandeDe(*entite);
    if (!b) continue;
    const auto sienne = std::ranges::find_if(rangees, [&](const rangee& r) { return contient(r, *b); });
    if (sienne != rangees.end())
      notes[static_cast<std::size_t>(sienne - rangees.begin())].push_back(noterEntite(*entite, id));
  }
}

bool presente(const note& n) { return AcDbEntityPointer(n.id).openStatus() == Acad::eOk; }

}  // namespace

void et_noter_rangees() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  const resbuf* noeud = args.nieme(0);
  const std::vector<AcDbObjectId> ids = uniques(lireEntites(noeud)), gardees = lireEntites(noeud);
  const std::vector<rangee> rangees = lireRangees(noeud);
  notesParRangee notes(rangees.size());
  repartir(ids, ensemble(gardees), rangees, notes);
  for (std::size_t i = 0; i < rangees.size(); ++i) ecrireNotes(rangees[i], notes[i]);
  acedRetT();
}

void et_renoter() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  const resbuf* noeud = args.nieme(0);
  const ensemble membres(lireEntites(noeud));
  const std::vector<AcDbObjectId> nouvelles = lireEntites(noeud);
  const std::vector<rangee> rangees = lireRangees(noeud);
  notesParRangee notes(rangees.size());
  repartir(nouvelles, ensemble({}), rangees, notes);
  for (std::size_t i = 0; i < rangees.size(); ++i) {
    const std::vector<note> anciennes = lireNotes(rangees[i], membres);
    std::vector<note> la;
    std::ranges::copy_if(anciennes, std::back_inserter(la), presente);
    if (la.size() == anciennes.size() && notes[i].empty()) continue;
    la.insert(la.end(), notes[i].begin(), notes[i].end());
    ecrireNotes(rangees[i], la);
  }
  acedRetT();
}

void et_ecarts() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  const resbuf* noeud = args.nieme(0);
  const ensemble membres(lireEntites(noeud));
  const std::vector<rangee> rangees = lireRangees(noeud);
  plv::listeRb liste;
  liste.ajouter(acutBuildList(RTLB, 0));
  for (std::size_t i = 0; i < rangees.size(); ++i) {
    const rangee& r = rangees[i];
    for (const note& n : lireNotes(r, membres)) {
      const AcDbObjectPointer<AcDbText> lu(n.id);
      if (lu.openStatus() != Acad::eOk || !n.lieu) continue;
      const texte t = lireTexte(*lu);
      const place& p = *n.lieu;
      if (intact(t, p)) continue;
      const bool la = memeEndroit(t.lieu, p);
      ads_name nom{};
      acdbGetAdsName(nom, n.id);
      liste.ajouter(acutBuildList(RTLB, RTENAME, nom, RTLONG, static_cast<Adesk::Int32>(i), RTREAL, p.x - r.x, RTREAL,
                                  p.y - r.haut, RTREAL, la ? 0.0 : t.lieu.x - p.x, RTREAL, la ? 0.0 : t.lieu.y - p.y,
                                  t.lieu.mots != p.mots ? RTT : RTNIL, RTREAL, p.mots, RTLE, 0));
    }
  }
  if (!liste.tete()->rbnext) return;
  liste.ajouter(acutBuildList(RTLE, 0));
  acedRetList(liste.tete());
}

void et_somme() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  const resbuf* noeud = args.nieme(0);
  if (!plv::estNom(noeud)) return;
  const AcDbObjectPointer<AcDbText> lu(plv::valeurId(noeud));
  if (lu.openStatus() == Acad::eOk) acedRetReal(lireTexte(*lu).lieu.mots);
}

}  // namespace etu
