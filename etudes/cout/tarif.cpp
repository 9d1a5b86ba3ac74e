// A stretch is cut where its depth passes from one class to the next; in between cost is depth times a price.
#include "etudes/cout/tarif.h"

#include <algorithm>
#include <cmath>

namespace etu {

namespace {

constexpr double kMemeProfondeur = 1e-9;  // metres: what rounding may move a depth

// Calls f(rank, length, mean depth) for each part of a stretch in one of the pieces that end at these depths.
template <class F>
void parMorceau(const std::vector<double>& jusque, double longueur, double depart, double arrivee, F f) {
  const double bas = std::min(depart, arrivee), haut = std::max(depart, arrivee);
  double de = bas;
  for (std::size_t k = 0; k < jusque.size(); ++k) {
    if (jusque[k] >= haut - kMemeProfondeur) {
      f(k, haut > bas ? longueur * (haut - de) / (haut - bas) : longueur, 0.5 * (de + haut));
      return;
    }
    if (jusque[k] <= de) continue;
    f(k, longueur * (jusque[k] - de) / (haut - bas), 0.5 * (de + jusque[k]));
    de = jusque[k];
  }
}

std::vector<double> bornesDesClasses(const tarif& t) {
  std::vector<double> bornes{0};
  for (const classeFouille& c : t.fouille) bornes.push_back(c.profondeur);
  bornes.back() = std::numeric_limits<double>::infinity();
  return bornes;
}

}  // namespace

bool convient(const tarif& t) {
  const auto prix = [](double v) { return std::isfinite(v) && v >= 0; };
  double depuis = 0;
  for (const classeFouille& c : t.fouille) {
    if (!(c.profondeur > depuis) || !(c.largeur > 0) || !prix(c.largeur) || !prix(c.prix)) return false;
    depuis = c.profondeur;
  }
  if (t.fouille.empty()) return false;
  const prixParProfondeur p(t);
  return prix(t.prixBlindage) && prix(t.prixRegard) && prix(t.prixMetreRegard) &&
         (!t.chutes || (prix(t.chutes->prix) && prix(t.chutes->hauteur))) &&
         (!t.pompages || (prix(t.pompages->prix) && prix(t.pompages->prixMetre))) && std::ranges::is_sorted(p.parMetre);
}

prixParProfondeur::prixParProfondeur(const tarif& t) : jusque(bornesDesClasses(t)) {
  const double seuil = std::max(0.0, t.seuilBlindage);
  if (std::isfinite(seuil) && std::ranges::find(jusque, seuil) == jusque.end()) jusque.push_back(seuil);
  std::ranges::sort(jusque);
  parMetre.push_back(0);
  std::size_t classe = 0;
  for (std::size_t k = 1; k < jusque.size(); ++k) {
    while (classe + 1 < t.fouille.size() && t.fouille[classe].profondeur < jusque[k]) ++classe;
    const double blindage = jusque[k] > seuil ? 2 * t.prixBlindage : 0;
    parMetre.push_back(t.fouille[classe].largeur * t.fouille[classe].prix + blindage);
  }
}

double prixParProfondeur::de(double longueur, double depart, double arrivee) const {
  double prix = 0;
  parMorceau(jusque, longueur, depart, arrivee,
             [&](std::size_t k, double l, double moyenne) { prix += l * moyenne * parMetre[k]; });
  return prix;
}

void ajouterFouille(releve& r, const tarif& t, double longueur, double depart, double arrivee) {
  r.volumes.resize(t.fouille.size());
  parMorceau(bornesDesClasses(t), longueur, depart, arrivee, [&](std::size_t k, double l, double moyenne) {
    if (k > 0) r.volumes[k - 1] += l * moyenne * t.fouille[k - 1].largeur;
  });
  const std::vector<double> seuil{std::max(0.0, t.seuilBlindage), std::numeric_limits<double>::infinity()};
  parMorceau(seuil, longueur, depart, arrivee, [&](std::size_t k, double l, double moyenne) {
    if (k > 0) r.blindage += 2 * l * moyenne;
  });
}

double montant(const releve& r, const tarif& t) {
  double prix = t.prixBlindage * r.blindage + t.prixRegard * r.regards + t.prixMetreRegard * r.profondeurRegards;
  for (std::size_t k = 0; k < r.volumes.size(); ++k) prix += r.volumes[k] * t.fouille[k].prix;
  if (t.chutes) prix += t.chutes->prix * r.chutes;
  if (t.pompages) prix += t.pompages->prix * r.pompages + t.pompages->prixMetre * r.releve;
  return prix;
}

}  // namespace etu
