// et_empreinte: the fingerprint of a list, from AutoLISP.
// (et_empreinte valeurs [origine [aspect]])
#include "etudes/suivi/fonctions.h"

#include "etudes/suivi/empreinte.h"
#include "module/commande/arguments/argsLisp.h"

namespace etu {

namespace {

// The arguments after the value that begins at this node.
const resbuf* suivant(const resbuf* noeud) {
  int profondeur = 0;
  do {
    if (noeud->restype == RTLB) ++profondeur;
    if (noeud->restype == RTLE || noeud->restype == RTDOTE) --profondeur;
    noeud = noeud->rbnext;
  } while (noeud && profondeur > 0);
  return noeud;
}

void ajouter(empreinte& e, const resbuf* noeud) {
  if (plv::estChaine(noeud)) {
    e.ajouterTexte(plv::valeurTexte(noeud));
  } else if (plv::estNombre(noeud)) {
    // An integer and the real of its value are one number.
    e.ajouterReel(plv::estEntier(noeud) ? plv::valeurEntiere(noeud) : plv::valeurReelle(noeud));
  } else if (plv::estPoint(noeud)) {
    // A list of two or three numbers reaches a function as a point, or as a list: its numbers count alike.
    e.ajouterEntier(RTLB);
    e.ajouterReel(noeud->resval.rpoint[0]);
    e.ajouterReel(noeud->resval.rpoint[1]);
    if (noeud->restype == RT3DPOINT) e.ajouterReel(noeud->resval.rpoint[2]);
    e.ajouterEntier(RTLE);
  } else if (plv::estNom(noeud)) {
    e.ajouterEntite(noeud->resval.rlname);
  } else {
    e.ajouterEntier(noeud->restype);
  }
}

}  // namespace

void et_empreinte() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  const resbuf* noeud = args.nieme(0);
  if (!noeud) return;
  const resbuf* fin = suivant(noeud);
  const bool place = plv::estPoint(fin);
  const resbuf* aspect = fin ? fin->rbnext : nullptr;
  empreinte e(place ? plv::valeurPoint(fin) : AcGePoint3d(), aspect && aspect->restype != RTNIL);
  for (; noeud != fin; noeud = noeud->rbnext) ajouter(e, noeud);
  acedRetStr(e.texte().c_str());
}

}  // namespace etu
