// et_ligne and et_couloir: the proposed line between two depths, and the corridor it runs through, without drawing them.
// The result is nil for what can't be, as with the other plug-in's functions.
#include "etudes/optimal/fonctions.h"
#include "etudes/optimal/proposition.h"
#include "etudes/optimal/question.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/commande/arguments/listeRb.h"
#include "module/profil/profilLong.h"

namespace etu {

namespace {

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

const wchar_t* nomDe(cause c) {
  switch (c) {
    case cause::profondeurMoindre: return L"profondeur moindre";
    case cause::profondeurPlusGrande: return L"profondeur plus grande";
    case cause::point: return L"point";
    case cause::croisementDessus: return L"dessus";
    case cause::croisementDessous: return L"dessous";
    case cause::bout: return L"bout";
  }
  return L"";
}

void ajouter(plv::listeRb& liste, const plv::profilLong& profil, const limiteNommee& l) {
  liste.ajouter(
      acutBuildList(RTLB, RTREAL, station(profil, l.distance), RTSTR, nomDe(l.pourquoi), RTREAL, l.valeur, RTLE, 0));
}

void ajouter(plv::listeRb& liste, const plv::profilLong& profil, const std::optional<impossible>& pourquoi) {
  if (!pourquoi) {
    liste.ajouter(acutBuildList(RTNIL, 0));
    return;
  }
  ouvrir(liste);
  liste.ajouter(acutBuildList(RTREAL, pourquoi->manque, 0));
  ajouter(liste, profil, pourquoi->basse);
  ajouter(liste, profil, pourquoi->haute);
  fermer(liste);
}

}  // namespace

void et_ligne() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  question q;
  if (const resbuf* noeud = nullptr; !lireQuestion(args, q, noeud)) return;
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
  resultat.ajouter(acutBuildList(trouve->prouve ? RTT : RTNIL, 0));
  ajouter(resultat, q.profil, trouve->pourquoi);
  acedRetList(resultat.tete());
}

void et_couloir() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  question q;
  if (const resbuf* noeud = nullptr; !lireQuestion(args, q, noeud)) return;
  const auto c = couloirPropose(q.terrain, q.d);
  if (!c) return;
  ligneDroite basse, haute;
  const auto poser = [&](double distance, const limites& l) {
    if (!basse.empty() && basse.back().distance == distance && basse.back().altitude == l.bas &&
        haute.back().altitude == l.haut)
      return;
    basse.push_back({distance, l.bas});
    haute.push_back({distance, l.haut});
  };
  for (std::size_t i = 0; i < c->portes.size(); ++i) {
    const double d = c->portes[i].distance;
    if (i > 0) poser(d, c->avant(i));
    poser(d, c->portes[i].passage);
    if (i + 1 < c->portes.size()) poser(d, c->apres(i));
  }
  plv::listeRb resultat;
  ajouter(resultat, q.profil, basse);
  ajouter(resultat, q.profil, haute);
  acedRetList(resultat.tete());
}

}  // namespace etu
