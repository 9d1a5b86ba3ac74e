// Groups of static elements: their stored form, and how they are found.
// What is drawn or cloned is elsewhere.
#include "module/elements/elemsFixes.h"

#include <cmath>
#include <memory>

#include "hote/acdb.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/elements/listeProjet.h"
#include "module/support/base/lettres.h"
#include "module/support/dessin/kitXrecords.h"

namespace plv {

namespace {

constexpr const ACHAR *kOuvrante = L"{", *kFermante = L"}";

bool estAccolade(const resbuf* rb, const ACHAR* texte) {
  return rb && rb->restype == kGroupeAccolade && rb->resval.rstring && egalSansCasse(rb->resval.rstring, texte);
}

// Takes the ids up to the closing brace, and steps over it. False when the chain ends before.
bool lireIds(AcDbObjectIdArray& ids, const resbuf*& rb) {
  for (; rb && !estAccolade(rb, kFermante); rb = rb->rbnext) {
    AcDbObjectId id;
    if (rb->restype == kGroupePointeur && acdbGetObjectId(id, rb->resval.rlname) == Acad::eOk) ids.append(id);
  }
  if (!rb) return false;
  rb = rb->rbnext;
  return true;
}

void ajouterAccolade(listeRb& chaine, const ACHAR* texte) {
  chaine.ajouter(acutBuildList(kGroupeAccolade, texte, RTNONE));
}

void ajouterIds(listeRb& chaine, const AcDbObjectIdArray& ids) {
  for (const AcDbObjectId& id : ids) chaine.ajouterPointeur(id);
}

// A host call at which the user's interruption arrives.
void laisserInterrompre() {
  ads_name aucun;
  acdbHandEnt(L"0", aucun);
}

}  // namespace

listeElemsFixes::~listeElemsFixes() { viderGroupes(*this); }

bool parserGroupe(elemsFixesKavel& groupe, const resbuf*& curseur, bool avancer) {
  groupe.elements.removeAll();
  groupe.doublons.removeAll();
  const resbuf* rb = curseur;
  if (!estAccolade(rb, kOuvrante)) return false;
  rb = rb->rbnext;
  if (!rb || rb->restype != kGroupePoint) return false;
  groupe.position = distanceProfil(rb->resval.rpoint[0]);
  groupe.ordonnee = yDessin(rb->resval.rpoint[1]);
  rb = rb->rbnext;
  if (!estAccolade(rb, kOuvrante)) return false;
  rb = rb->rbnext;
  if (!lireIds(groupe.elements, rb)) return false;
  if (estAccolade(rb, kOuvrante)) {
    rb = rb->rbnext;
    if (!lireIds(groupe.doublons, rb)) return false;
  }
  if (!estAccolade(rb, kFermante)) return false;
  if (avancer) curseur = rb->rbnext;
  return true;
}

void lireGroupesValeur(std::vector<elemsFixesKavel>& groupes, const resbuf*& curseur) {
  elemsFixesKavel groupe;
  while (curseur && parserGroupe(groupe, curseur, true)) groupes.push_back(groupe);
}

std::ptrdiff_t lireElemsFixes(listeElemsFixes& liste, AcDbObjectId support) {
  const listeRb chaine(lireXrecord(support, kRecordStatiques));
  const resbuf* curseur = chaine.tete();
  while (curseur) {
    auto groupe = std::make_unique<elemsFixesKavel>();
    // Kept as it is: the cursor moves on success alone, so that a damaged record is read again until the user
    // interrupts. Writers keep records whole.
    if (parserGroupe(*groupe, curseur, true)) liste.Add(groupe.release());
    else laisserInterrompre();
  }
  return liste.GetSize();
}

void ouvrirGroupe(listeRb& chaine, const ads_point place) {
  ajouterAccolade(chaine, kOuvrante);
  chaine.ajouter(acutBuildList(kGroupePoint, place, RTNONE));
  ajouterAccolade(chaine, kOuvrante);
}

void fermerGroupe(listeRb& chaine) {
  ajouterAccolade(chaine, kFermante);
  ajouterAccolade(chaine, kFermante);
}

resbuf* enChaine(elemsFixesKavel& groupe) {
  retirerMorts(groupe.elements);
  retirerMorts(groupe.doublons);
  if (groupe.elements.isEmpty()) std::swap(groupe.elements, groupe.doublons);
  if (groupe.elements.isEmpty()) return nullptr;
  listeRb chaine;
  const ads_point place = {groupe.position.valeur, groupe.ordonnee.valeur, 0.0};
  ouvrirGroupe(chaine, place);
  ajouterIds(chaine, groupe.elements);
  if (!groupe.doublons.isEmpty()) {
    ajouterAccolade(chaine, kFermante);
    ajouterAccolade(chaine, kOuvrante);
    ajouterIds(chaine, groupe.doublons);
  }
  fermerGroupe(chaine);
  return chaine.ceder();
}

void ecrireElemsFixes(const listeElemsFixes& liste, AcDbObjectId support) {
  listeRb chaine;
  for (std::ptrdiff_t i = 0; i < liste.GetSize(); ++i) chaine.ajouter(enChaine(*liste.GetAt(i)));
  ecrireXrecord(support, kRecordStatiques, chaine.tete());
}

elemsFixesKavel& chercherGroupe(listeElemsFixes& liste, distanceProfil position, double tolerance) {
  for (std::ptrdiff_t i = 0; i < liste.GetSize(); ++i)
    if (std::abs(liste[i]->position - position) < tolerance) return *liste[i];
  auto groupe = std::make_unique<elemsFixesKavel>();
  groupe->position = position;
  liste.Add(groupe.get());
  return *groupe.release();
}

void viderGroupes(listeElemsFixes& liste) {
  for (std::ptrdiff_t i = 0; i < liste.GetSize(); ++i) delete liste[i];
  liste.SetSize(0);
}

}  // namespace plv
