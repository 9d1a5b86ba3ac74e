// et_ligne and et_couloir: the proposed line between two depths, and the corridor it runs through, without drawing them.
// The result is nil for what can't be, as with the other plug-in's functions.
#include <cmath>

#include "etudes/optimal/fonctions.h"
#include "etudes/optimal/proposition.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/commande/arguments/listeRb.h"
#include "module/profil/profilLong.h"

namespace etu {

namespace {

struct question {
  plv::profilLong profil;
  listeSommets terrain;
  demande d;
};

bool nombre(const resbuf*& noeud, double& valeur) {
  if (!plv::estNombre(noeud)) return false;
  valeur = plv::valeurReelle(noeud);
  noeud = noeud->rbnext;
  return std::isfinite(valeur);
}

// An end: a station, or a list of station and altitude.
bool bout(const plv::profilLong& profil, const resbuf*& noeud, double& distance, std::optional<double>& altitude) {
  double station = 0, z = 0;
  if (!noeud) return false;
  if (!nombre(noeud, station)) {
    if (!lirePaire(noeud, station, z) || !std::isfinite(station) || !std::isfinite(z)) return false;
    altitude = z;
  }
  distance = profil.distanceDe(plv::stationPk(station)).valeur;
  return true;
}

bool lire(const plv::ArgsLisp& args, question& q) {
  const resbuf* noeud = args.nieme(0);
  if (!plv::estNom(noeud) || !q.profil.lireId(plv::valeurId(noeud))) return false;
  noeud = noeud->rbnext;
  if (!nombre(noeud, q.d.profondeurs.moindre) || !nombre(noeud, q.d.profondeurs.plusGrande)) return false;
  q.terrain = terrainDe(q.profil);
  return bout(q.profil, noeud, q.d.debut, q.d.zDebut) && bout(q.profil, noeud, q.d.fin, q.d.zFin);
}

void ouvrir(plv::listeRb& liste) { liste.ajouter(acutBuildList(RTLB, 0)); }
void fermer(plv::listeRb& liste) { liste.ajouter(acutBuildList(RTLE, 0)); }

double station(const plv::profilLong& profil, double distance) {
  return profil.stationDe(plv::distanceProfil(distance)).valeur;
}

void ajouter(plv::listeRb& liste, const plv::profilLong& profil, const pointLigne& p) {
  liste.ajouter(acutBuildList(RTLB, RTREAL, station(profil, p.distance), RTREAL, p.altitude, RTLE, 0));
}

void ajouter(plv::listeRb& liste, const plv::profilLong& profil, const ligneDroite& ligne) {
  ouvrir(liste);
  for (const pointLigne& p : ligne) ajouter(liste, profil, p);
  fermer(liste);
}

}  // namespace

void et_ligne() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  question q;
  if (!lire(args, q)) return;
  const auto trouve = proposer(q.terrain, q.d);
  if (!trouve) return;
  plv::listeRb resultat;
  ouvrir(resultat);
  for (const parcours& partie : trouve->parties) ajouter(resultat, q.profil, partie.ligne);
  fermer(resultat);
  ouvrir(resultat);
  for (const parcours& partie : trouve->parties) {
    ouvrir(resultat);
    for (const fenetre& f : partie.fenetres) ajouter(resultat, q.profil, ligneDroite{f.debut, f.fin});
    fermer(resultat);
  }
  fermer(resultat);
  resultat.ajouter(acutBuildList(RTLB, RTREAL, trouve->aire, RTREAL, trouve->aireMoindre, RTLE, 0));
  acedRetList(resultat.tete());
}

void et_couloir() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  question q;
  if (!lire(args, q)) return;
  const auto c = couloirDe(q.terrain, q.d);
  if (!c) return;
  ligneDroite basse, haute;
  const auto poser = [&](double distance, const limites& l) {
    basse.push_back({distance, l.bas});
    haute.push_back({distance, l.haut});
  };
  for (std::size_t i = 0; i < c->portes.size(); ++i) {
    const limites avant = c->avant(i), apres = c->apres(i);
    poser(c->portes[i].distance, avant);
    if (avant.bas != apres.bas || avant.haut != apres.haut) poser(c->portes[i].distance, apres);
  }
  plv::listeRb resultat;
  ajouter(resultat, q.profil, basse);
  ajouter(resultat, q.profil, haute);
  acedRetList(resultat.tete());
}

}  // namespace etu
