// et_ligneCout: the line of least cost between manholes, without drawing it. What is built and what it costs are lists of a name
// and numbers, as constraints are.
#include "etudes/cout/fonctions.h"

#include <algorithm>

#include "etudes/cout/moindre.h"
#include "etudes/optimal/question.h"
#include "module/commande/arguments/listeRb.h"

namespace etu {

namespace {

constexpr double kPasCourant = 0.01;  // metres of altitude

struct ouvrages {
  demandeRegards regards;
  tarif prix;
};

struct genreOuvrage {
  const wchar_t* nom;
  std::size_t nombres;
  void (*ajouter)(ouvrages& o, const std::vector<double>& v);
};
constexpr genreOuvrage kGenres[] = {
    {L"station", 1, [](ouvrages& o, const std::vector<double>& v) { o.regards.distances.push_back(v[0]); }},
    {L"espacement", 2,
     [](ouvrages& o, const std::vector<double>& v) {
       o.regards.espacement = v[0];
       o.regards.pas = v[1];
     }},
    {L"fouille", 3,
     [](ouvrages& o, const std::vector<double>& v) {
       o.prix.fouille.push_back({v[0], v[1], v[2]});
     }},
    {L"blindage", 2,
     [](ouvrages& o, const std::vector<double>& v) {
       o.prix.seuilBlindage = v[0];
       o.prix.prixBlindage = v[1];
     }},
    {L"regard", 2,
     [](ouvrages& o, const std::vector<double>& v) {
       o.prix.prixRegard = v[0];
       o.prix.prixMetreRegard = v[1];
     }},
    {L"chute", 2,
     [](ouvrages& o, const std::vector<double>& v) {
       o.prix.chutes = tarif::chute{v[0], v[1]};
     }},
    {L"pompage", 2,
     [](ouvrages& o, const std::vector<double>& v) {
       o.prix.pompages = tarif::pompage{v[0], v[1]};
     }},
};

bool ajouter(ouvrages& o, ligneNommee ligne, const plv::profilLong& profil) {
  for (const genreOuvrage& g : kGenres) {
    if (ligne.nom != g.nom || ligne.valeurs.size() != g.nombres) continue;
    if (&g == &kGenres[0]) ligne.valeurs[0] = profil.distanceDe(plv::stationPk(ligne.valeurs[0])).valeur;
    g.ajouter(o, ligne.valeurs);
    return true;
  }
  return false;
}

bool lire(const plv::ArgsLisp& args, question& q, ouvrages& o) {
  const resbuf* noeud = nullptr;
  std::vector<ligneNommee> lignes;
  if (!lireQuestion(args, q, noeud) || !lireLignes(noeud, lignes)) return false;
  // Slopes are rounded by rounding altitudes: between given manholes both can't be.
  return q.d.pasPente == 0 &&
         std::ranges::all_of(lignes, [&](const ligneNommee& l) { return ajouter(o, l, q.profil); });
}

}  // namespace

void et_ligneCout() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  question q;
  ouvrages o;
  if (!lire(args, q, o)) return;
  const double pas = q.d.pasAltitude > 0 ? q.d.pasAltitude : kPasCourant;
  const auto trouve = moindreCout(q.terrain, q.d, o.regards, o.prix, pas);
  if (!trouve) return;
  const auto station = [&](double distance) { return q.profil.stationDe(plv::distanceProfil(distance)).valeur; };
  plv::listeRb resultat;
  if (!trouve->ligne) {
    resultat.ajouter(acutBuildList(RTNIL, RTLB, RTREAL, station(trouve->ou.atteinte), RTREAL,
                                   station(trouve->ou.suivante), RTLE, 0));
    acedRetList(resultat.tete());
    return;
  }
  const ligneCout& ligne = *trouve->ligne;
  resultat.ajouter(acutBuildList(RTLB, 0));
  for (const regardTrouve& r : ligne.regards)
    resultat.ajouter(
        acutBuildList(RTLB, RTREAL, station(r.distance), RTREAL, r.sol, RTREAL, r.entree, RTREAL, r.sortie, RTLE, 0));
  resultat.ajouter(
      acutBuildList(RTLE, RTLB, RTREAL, ligne.cout, RTREAL, ligne.borne, RTREAL, ligne.coutRond, RTLE, RTLB, RTLB, 0));
  for (const double volume : ligne.quantites.volumes) resultat.ajouter(acutBuildList(RTREAL, volume, 0));
  const releve& r = ligne.quantites;
  resultat.ajouter(acutBuildList(RTLE, RTREAL, r.blindage, RTREAL, r.regards, RTREAL, r.profondeurRegards, RTREAL,
                                 r.chutes, RTREAL, r.pompages, RTREAL, r.releve, RTLE, 0));
  acedRetList(resultat.tete());
}

}  // namespace etu
