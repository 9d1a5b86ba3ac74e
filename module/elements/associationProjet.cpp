// pl_assoc_prj and pl_elem_prj: the list of project elements, edited by the user and by LISP.
// Flags are written as the user goes; only the list waits for the end of the loop.
#include "hote/acdb.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/commande/arguments/listeRb.h"
#include "module/elements/fonctionsElements.h"
#include "module/elements/listeProjet.h"
#include "module/profil/profilLong.h"
#include "module/support/dessin/kitSelections.h"
#include "module/support/dessin/kitXrecords.h"

namespace plv {

namespace {

constexpr int kTailleReponse = 133;
constexpr int kCouleurMarque = 3, kCouleurSansMarque = 0;
constexpr double kFacteurX = 1.0, kFacteurY = 1.2;

struct mode {
  const ACHAR* motsCles;
  const ACHAR* prompt;
};
constexpr mode kAjouter = {L"Enlever Voir Redessiner Projet Non",
                           L"\nEnlever  Redessiner Projet Non_projet <element à ajouter>"};
constexpr mode kEnlever = {L"Tout Ajouter Redessiner Projet Non",
                           L"\nAjouter / enlever Tout  / Redessiner / Projet / Non_projet <element a enlever>"};

bool entourer(AcDbObjectId id, int couleur) { return encadrer(id, couleur, kFacteurX, kFacteurY); }

void encadrerProjet(AcDbObjectIdArray& liste) {
  for (int i = 0; i < liste.length();)
    if (estDuProjet(liste[i]) && !entourer(liste[i], kCouleurMarque)) liste.removeAt(i);
    else ++i;
}

// One pick; RTNORM gives the entity.
int pointer(const ACHAR* prompt, AcDbObjectId& id) {
  ads_name nom;
  ads_point point;
  const int resultat = acedEntSel(prompt, nom, point);
  id.setNull();
  if (resultat == RTNORM) acdbGetObjectId(id, nom);
  return resultat;
}

void toutEnlever(AcDbObjectIdArray& liste) {
  for (const AcDbObjectId& id : liste) {
    surligner(id, false);
    demarquerProjet(id);
    entourer(id, kCouleurSansMarque);
  }
  liste.removeAll();
}

void pointerProjet(AcDbObjectIdArray& liste) {
  AcDbObjectId id;
  while (pointer(L"\nElement du projet", id) == RTNORM) {
    if (!estCourbe(id)) continue;
    if (!liste.contains(id)) liste.append(id);
    marquerProjet(id);
    entourer(id, kCouleurMarque);
    surligner(id, true);
  }
}

void pointerNonProjet(const AcDbObjectIdArray& liste) {
  AcDbObjectId id;
  while (pointer(L"\nElement ne faisant pas partie du projet", id) == RTNORM) {
    if (!estCourbe(id) || !liste.contains(id)) continue;
    demarquerProjet(id);
    entourer(id, kCouleurSansMarque);
    surligner(id, true);
  }
}

// Kept as it is: "Voir" is offered when adding, and does nothing.
void suivreMotCle(AcDbObjectIdArray& liste, mode& courant) {
  ACHAR reponse[kTailleReponse] = L"";
  acedGetInput(reponse);
  switch (*reponse) {
    case L'A': courant = kAjouter; break;
    case L'E': courant = kEnlever; break;
    case L'T': toutEnlever(liste); break;
    case L'R':
      acgsRemoveAnonymousGraphics(0);
      encadrerProjet(liste);
      break;
    case L'P': pointerProjet(liste); break;
    case L'N': pointerNonProjet(liste); break;
    default: break;
  }
}

void suivrePointe(AcDbObjectIdArray& liste, bool ajout, AcDbObjectId id) {
  if (!estCourbe(id)) return;
  const int place = liste.find(id);
  if (ajout && place < 0) {
    surligner(id, true);
    liste.append(id);
  } else if (!ajout && place >= 0) {
    demarquerProjet(id);
    surligner(id, false);
    liste.removeAt(place);
  }
}

// False after a cancel: the list is then not to be written.
bool editer(AcDbObjectIdArray& liste) {
  mode courant = kAjouter;
  for (;;) {
    acedInitGet(0, courant.motsCles);
    encadrerProjet(liste);
    AcDbObjectId id;
    switch (pointer(courant.prompt, id)) {
      case RTCAN: return false;
      case RTNORM: suivrePointe(liste, courant.prompt == kAjouter.prompt, id); break;
      case RTKWORD: suivreMotCle(liste, courant); break;
      default: return true;
    }
  }
}

// The candidates of pl_elem_prj, from a selection set or from entity names; the last of the names is also
// given by itself.
void lireCandidats(const ArgsLisp& args, AcDbObjectIdArray& candidats, AcDbObjectId& dernier, bool& marquage) {
  resbuf* rb = args.nieme(2);
  marquage = rb->restype == RTPICKS;
  if (marquage) return idsDeSelection(rb->resval.rlname, candidats);
  for (; rb; rb = rb->rbnext) {
    if (!estNom(rb)) continue;
    dernier = valeurId(rb);
    candidats.append(dernier);
  }
}

}  // namespace

void pl_assoc_prj() {
  ArgsLisp args;
  args.lireArgs();
  if (!conforme(args, "N")) return;
  const AcDbObjectId support = valeurId(args.tete());
  AcDbObjectIdArray liste;
  lireListeProjet(support, liste);
  for (const AcDbObjectId& id : liste) surligner(id, true);
  const bool aEcrire = editer(liste);
  for (const AcDbObjectId& id : liste) surligner(id, false);
  if (aEcrire) ecrireListeProjet(support, liste);
}

void pl_elem_prj() {
  ArgsLisp args;
  args.lireArgs();
  const resbuf* troisieme = args.nombre() < 3 ? nullptr : args.nieme(2);
  if (!troisieme || !conforme(args, "NC") || !(estNom(troisieme) || troisieme->restype == RTPICKS)) return;
  profilLong profil;
  AcDbObjectId support;
  if (!profil.lireNom(args.tete()->resval.rlname) || !profil.idParMotCle(valeurTexte(args.nieme(1)), support)) return;
  AcDbObjectIdArray existants, candidats;
  lireListeProjet(support, existants);
  AcDbObjectId dernier;
  bool marquage = false;
  lireCandidats(args, candidats, dernier, marquage);
  listeRb chaine(lireXrecord(support, kRecordProjet));
  for (const AcDbObjectId& id : candidats) {
    if (marquage) marquerProjet(id);
    // Kept as it is: what is looked for is the last of the given names, not the candidate. So a selection set is never
    // filtered, and names are all added or all left out; front-ends count on it.
    if (!existants.contains(dernier)) chaine.ajouterPointeur(id);
  }
  ecrireXrecord(support, kRecordProjet, chaine.tete());
}

}  // namespace plv
