// et_profondeurs: measures a line against the ground of a profile, without drawing it.
// The result is nil for what it can't measure, as with the other plug-in's functions.
#include "etudes/optimal/fonctions.h"

#include "etudes/base/sommets.h"
#include "etudes/optimal/profondeurs.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/commande/arguments/listeRb.h"
#include "module/profil/profilLong.h"

namespace etu {

namespace {

resbuf* paire(const plv::profilLong& profil, const mesure& m) {
  return acutBuildList(RTLB, RTREAL, profil.stationDe(m.distance).valeur, RTREAL, m.profondeur.valeur, RTLE, 0);
}

}  // namespace

void et_profondeurs() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  plv::profilLong profil;
  listeSommets ligne;
  if (!plv::estNom(args.nieme(0)) || !profil.lireId(plv::valeurId(args.nieme(0))) ||
      !lireSommets(args.nieme(0)->rbnext, profil, ligne))
    return;
  const auto trouve = profondeursExtremes(terrainDe(profil), ligne);
  if (!trouve) return;
  plv::listeRb resultat(paire(profil, trouve->moindre));
  resultat.ajouter(paire(profil, trouve->plusGrande));
  acedRetList(resultat.tete());
}

}  // namespace etu
