// Labels with the fewest free places choose first; one that finds none may push a single other label to a place that is free.
#include "etudes/habillage/placement.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>

namespace etu {

namespace {

// Boxes by the columns that they stand in, as wide as a usual label.
class casier {
 public:
  explicit casier(double largeur) : m_largeur(largeur > 0 ? largeur : 1) {}
  void ajouter(const boite& b, int numero) {
    chaque(b, [&](auto& colonne) { colonne.push_back({b, numero}); });
  }
  void oter(const boite& b, int numero) {
    chaque(b, [&](auto& colonne) { std::erase_if(colonne, [&](const auto& p) { return p.second == numero; }); });
  }
  // The numbers of the boxes that touch one, each once.
  std::vector<int> touchees(const boite& b) {
    std::vector<int> trouvees;
    chaque(b, [&](const auto& colonne) {
      for (const auto& [autre, numero] : colonne)
        if (seTouchent(b, autre) && std::ranges::find(trouvees, numero) == trouvees.end()) trouvees.push_back(numero);
    });
    return trouvees;
  }

 private:
  template <typename F>
  void chaque(const boite& b, F fonction) {
    const auto colonne = [&](double x) { return static_cast<long>(std::floor(x / m_largeur)); };
    for (long c = colonne(b.x - b.demiX()); c <= colonne(b.x + b.demiX()); ++c) fonction(m_colonnes[c]);
  }
  double m_largeur;
  std::map<long, std::vector<std::pair<boite, int>>> m_colonnes;
};

constexpr int kObstacle = -1;

class placement {
 public:
  placement(const std::vector<boite>& obstacles, const std::vector<std::vector<boite>>& etiquettes)
      : m_etiquettes(etiquettes), m_choix(etiquettes.size(), -1), m_casier(usuelle(etiquettes)) {
    for (const boite& b : obstacles) m_casier.ajouter(b, kObstacle);
  }

  std::vector<int> resoudre() {
    std::vector<std::size_t> ordre(m_etiquettes.size()), libres(m_etiquettes.size());
    std::iota(ordre.begin(), ordre.end(), std::size_t{0});
    for (std::size_t i = 0; i < libres.size(); ++i)
      libres[i] = static_cast<std::size_t>(
          std::ranges::count_if(m_etiquettes[i], [&](const boite& b) { return m_casier.touchees(b).empty(); }));
    std::ranges::stable_sort(ordre, {}, [&](std::size_t i) { return libres[i]; });
    for (const std::size_t i : ordre)
      if (!poser(i)) pousser(i);
    return m_choix;
  }

 private:
  static double usuelle(const std::vector<std::vector<boite>>& etiquettes) {
    double plusLarge = 0;
    for (const auto& places : etiquettes)
      for (const boite& b : places) plusLarge = std::max(plusLarge, 2 * b.demiX());
    return plusLarge;
  }

  bool poser(std::size_t i) {
    for (std::size_t k = 0; k < m_etiquettes[i].size(); ++k) {
      if (!m_casier.touchees(m_etiquettes[i][k]).empty()) continue;
      prendre(i, static_cast<int>(k));
      return true;
    }
    return false;
  }

  void prendre(std::size_t i, int k) {
    m_choix[i] = k;
    m_casier.ajouter(m_etiquettes[i][static_cast<std::size_t>(k)], static_cast<int>(i));
  }

  void laisser(std::size_t i) {
    m_casier.oter(m_etiquettes[i][static_cast<std::size_t>(m_choix[i])], static_cast<int>(i));
    m_choix[i] = -1;
  }

  void pousser(std::size_t i) {
    for (std::size_t k = 0; k < m_etiquettes[i].size(); ++k) {
      const std::vector<int> genantes = m_casier.touchees(m_etiquettes[i][k]);
      if (genantes.size() != 1 || genantes[0] == kObstacle) continue;
      const auto autre = static_cast<std::size_t>(genantes[0]);
      const int place = m_choix[autre];
      laisser(autre);
      prendre(i, static_cast<int>(k));
      if (poser(autre)) return;
      laisser(i);
      prendre(autre, place);
    }
  }

  const std::vector<std::vector<boite>>& m_etiquettes;
  std::vector<int> m_choix;
  casier m_casier;
};

}  // namespace

std::vector<int> placer(const std::vector<boite>& obstacles, const std::vector<std::vector<boite>>& etiquettes) {
  return placement(obstacles, etiquettes).resoudre();
}

}  // namespace etu
