// Reads the arguments one after the other; the names of constraints and how many numbers they take stand in one table.
#include "etudes/optimal/question.h"

#include <algorithm>
#include <cmath>

namespace etu {

bool lireNombre(const resbuf*& noeud, double& valeur) {
  if (!plv::estNombre(noeud)) return false;
  valeur = plv::valeurReelle(noeud);
  noeud = noeud->rbnext;
  return std::isfinite(valeur);
}

namespace {

bool ligneDe(const resbuf*& noeud, ligneNommee& ligne) {
  if (noeud->restype != RTLB || !plv::estChaine(noeud->rbnext)) return false;
  ligne.nom = plv::valeurTexte(noeud->rbnext);
  for (noeud = noeud->rbnext->rbnext; noeud && noeud->restype != RTLE;)
    if (!lireNombre(noeud, ligne.valeurs.emplace_back())) return false;
  if (!noeud) return false;
  noeud = noeud->rbnext;
  return true;
}

}  // namespace

bool lireLignes(const resbuf*& noeud, std::vector<ligneNommee>& lignes) {
  if (!noeud) return true;
  if (noeud->restype != RTNIL) {
    if (noeud->restype != RTLB) return false;
    for (noeud = noeud->rbnext; noeud && noeud->restype != RTLE;)
      if (!ligneDe(noeud, lignes.emplace_back())) return false;
    if (!noeud) return false;
  }
  noeud = noeud->rbnext;
  return true;
}

namespace {

// An end: a station, or a list of station and altitude.
bool bout(const plv::profilLong& profil, const resbuf*& noeud, double& distance, std::optional<double>& altitude) {
  double station = 0, z = 0;
  if (!noeud) return false;
  if (!lireNombre(noeud, station)) {
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

bool contrainte(const ligneNommee& ligne, question& q) {
  for (const genreContrainte& g : kGenres) {
    if (ligne.nom != g.nom || ligne.valeurs.size() != g.nombres) continue;
    std::vector<double> valeurs = ligne.valeurs;
    for (std::size_t i = 0; i < g.stations; ++i) valeurs[i] = q.profil.distanceDe(plv::stationPk(valeurs[i])).valeur;
    g.ajouter(q.d, valeurs);
    return true;
  }
  return false;
}

}  // namespace

bool lireQuestion(const plv::ArgsLisp& args, question& q, const resbuf*& noeud) {
  noeud = args.nieme(0);
  if (!plv::estNom(noeud) || !q.profil.lireId(plv::valeurId(noeud))) return false;
  noeud = noeud->rbnext;
  if (!lireNombre(noeud, q.d.profondeurs.moindre) || !lireNombre(noeud, q.d.profondeurs.plusGrande)) return false;
  q.terrain = terrainDe(q.profil);
  std::vector<ligneNommee> contraintes;
  return bout(q.profil, noeud, q.d.debut, q.d.zDebut) && bout(q.profil, noeud, q.d.fin, q.d.zFin) &&
         lireLignes(noeud, contraintes) &&
         std::all_of(contraintes.begin(), contraintes.end(), [&](const ligneNommee& c) { return contrainte(c, q); });
}

}  // namespace etu
