// The widths before a label taken from its place, the places must only not decrease: the least squares of that are found by pooling
// neighbours that contradict themselves, and bounds cut the result without making it worse.
// Reference: R. E. Barlow et al., Statistical Inference under Order Restrictions, 1972.
#include "etudes/habillage/rangee.h"

#include <algorithm>
#include <numeric>

namespace etu {

namespace {

constexpr double kJeu = 1e-9;  // drawing units by which rounding may pass the room

// The means of the blocks into which neighbours are pooled, one for each value.
std::vector<double> croissantes(const std::vector<double>& valeurs) {
  struct bloc {
    double somme;
    std::size_t nombre;
    double moyenne() const { return somme / static_cast<double>(nombre); }
  };
  std::vector<bloc> blocs;
  for (const double valeur : valeurs) {
    blocs.push_back({valeur, 1});
    while (blocs.size() > 1 && blocs[blocs.size() - 2].moyenne() >= blocs.back().moyenne()) {
      const bloc dernier = blocs.back();
      blocs.pop_back();
      blocs.back().somme += dernier.somme;
      blocs.back().nombre += dernier.nombre;
    }
  }
  std::vector<double> resultat;
  for (const bloc& b : blocs) resultat.insert(resultat.end(), b.nombre, b.moyenne());
  return resultat;
}

std::vector<std::size_t> deGaucheADroite(const std::vector<etiquette>& etiquettes) {
  std::vector<std::size_t> ordre(etiquettes.size());
  std::iota(ordre.begin(), ordre.end(), std::size_t{0});
  std::ranges::stable_sort(ordre, {}, [&](std::size_t i) { return etiquettes[i].centre; });
  return ordre;
}

}  // namespace

std::optional<std::vector<double>> ecarter(const std::vector<etiquette>& etiquettes, double gauche, double droite) {
  const std::vector<std::size_t> ordre = deGaucheADroite(etiquettes);
  std::vector<double> avant, voulues;  // the left edge of a label when all of them touch; where that would be
  double total = 0;
  for (const std::size_t i : ordre) {
    avant.push_back(total);
    voulues.push_back(etiquettes[i].centre - etiquettes[i].largeur / 2 - total);
    total += etiquettes[i].largeur;
  }
  if (total > droite - gauche + kJeu) return std::nullopt;
  const std::vector<double> bords = croissantes(voulues);
  const double derniere = std::max(gauche, droite - total);
  std::vector<double> centres(etiquettes.size());
  for (std::size_t k = 0; k < ordre.size(); ++k)
    centres[ordre[k]] = std::clamp(bords[k], gauche, derniere) + avant[k] + etiquettes[ordre[k]].largeur / 2;
  return centres;
}

std::optional<std::vector<placeEnRangee>> ecarterEnRangees(const std::vector<etiquette>& etiquettes, double gauche,
                                                           double droite) {
  const std::vector<std::size_t> ordre = deGaucheADroite(etiquettes);
  for (std::size_t rangees = 1; rangees <= std::max<std::size_t>(etiquettes.size(), 1); ++rangees) {
    std::vector<placeEnRangee> places(etiquettes.size());
    bool tient = true;
    for (std::size_t r = 0; r < rangees && tient; ++r) {
      std::vector<etiquette> siennes;
      std::vector<std::size_t> lesquelles;
      for (std::size_t k = r; k < ordre.size(); k += rangees) {
        siennes.push_back(etiquettes[ordre[k]]);
        lesquelles.push_back(ordre[k]);
      }
      const auto centres = ecarter(siennes, gauche, droite);
      tient = centres.has_value();
      for (std::size_t k = 0; tient && k < lesquelles.size(); ++k)
        places[lesquelles[k]] = {static_cast<int>(r), (*centres)[k]};
    }
    if (tient) return places;
  }
  return std::nullopt;
}

}  // namespace etu
