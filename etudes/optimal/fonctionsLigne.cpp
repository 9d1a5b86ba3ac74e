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

// A constraint is a list of its name and numbers; the first of them are stations.
struct genreContrainte {
  const wchar_t* nom;
  std::size_t stations, nombres;
  void (*ajouter)(demande& d, const std::vector<double>& v);
};
constexpr genreContrainte kGenres[] = {
    {L"profondeur", 2, 4,
     [](demande& d, const std::vector<double>& v) {
       d.bandes.push_back({v[0], v[1], {v[2], v[3]}});
     }},
    {L"point", 1, 3,
     [](demande& d, const std::vector<double>& v) {
       d.points.push_back({v[0], {v[1], v[2]}});
     }},
    {L"croisement", 2, 4,
     [](demande& d, const std::vector<double>& v) {
       d.croisements.push_back({v[0], v[1], {v[2], v[3]}});
     }},
    {L"pente", 0, 2,
     [](demande& d, const std::vector<double>& v) {
       d.pente = pentes{v[0], v[1]};
     }},
    {L"longueur", 0, 1, [](demande& d, const std::vector<double>& v) { d.longueur = v[0]; }},
    {L"arrondi", 0, 2,
     [](demande& d, const std::vector<double>& v) {
       d.pasAltitude = v[0];
       d.pasPente = v[1];
     }},
};

bool contrainte(const resbuf*& noeud, question& q) {
  if (noeud->restype != RTLB || !plv::estChaine(noeud->rbnext)) return false;
  const std::wstring nom = plv::valeurTexte(noeud->rbnext);
  std::vector<double> valeurs;
  for (noeud = noeud->rbnext->rbnext; noeud && noeud->restype != RTLE;)
    if (!nombre(noeud, valeurs.emplace_back())) return false;
  for (const genreContrainte& g : kGenres) {
    if (!noeud || nom != g.nom || valeurs.size() != g.nombres) continue;
    for (std::size_t i = 0; i < g.stations; ++i) valeurs[i] = q.profil.distanceDe(plv::stationPk(valeurs[i])).valeur;
    g.ajouter(q.d, valeurs);
    noeud = noeud->rbnext;
    return true;
  }
  return false;
}

bool contraintes(const resbuf* noeud, question& q) {
  if (!noeud || noeud->restype == RTNIL) return true;
  if (noeud->restype != RTLB) return false;
  for (noeud = noeud->rbnext; noeud && noeud->restype != RTLE;)
    if (!contrainte(noeud, q)) return false;
  return noeud != nullptr;
}

bool lire(const plv::ArgsLisp& args, question& q) {
  const resbuf* noeud = args.nieme(0);
  if (!plv::estNom(noeud) || !q.profil.lireId(plv::valeurId(noeud))) return false;
  noeud = noeud->rbnext;
  if (!nombre(noeud, q.d.profondeurs.moindre) || !nombre(noeud, q.d.profondeurs.plusGrande)) return false;
  q.terrain = terrainDe(q.profil);
  return bout(q.profil, noeud, q.d.debut, q.d.zDebut) && bout(q.profil, noeud, q.d.fin, q.d.zFin) &&
         contraintes(noeud, q);
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
  resultat.ajouter(acutBuildList(trouve->prouve ? RTT : RTNIL, 0));
  ajouter(resultat, q.profil, trouve->pourquoi);
  acedRetList(resultat.tete());
}

void et_couloir() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  question q;
  if (!lire(args, q)) return;
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
