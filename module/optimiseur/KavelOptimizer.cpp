// KavelOptimizer: the search for a project line of few vertices.
// One pass over the points of a range for each call.
#include "module/optimiseur/KavelOptimizer.h"

#include <span>

namespace plv {

namespace {

constexpr double kPointsConfondus = 1e-6;
constexpr double kScoreDepart = -1e36;

// The points strictly between the ends of a range.
std::span<const AcGePoint2d> interieur(intervalleIndices intervalle, const pointsTerrain& terrain) {
  if (intervalle.dernier - intervalle.premier < 2) return {};
  return {terrain.asArrayPtr() + intervalle.premier + 1, terrain.asArrayPtr() + intervalle.dernier};
}

// B is compared with the chain after A has joined it, or not.
void ajouterCourse(AcGePoint2d a, AcGePoint2d b, chaineTrace& chaine) {
  for (const AcGePoint2d& point : {a, b})
    if (chaine.empty() || point.distanceTo(chaine.back()) > kPointsConfondus) chaine.push_back(point);
}

}  // namespace

KavelOptimizer::KavelOptimizer(double minimum, double maximum) : profondeurMax(maximum), profondeurMin(minimum) {
  recommencerTrace();
}

void KavelOptimizer::optimiser(const pointsTerrain& terrain, AcGePoint2d a, AcGePoint2d b, chaineTrace& chaine) {
  optimiserIntervalle({0, terrain.length() - 1}, terrain, a, b, chaine);
}

void KavelOptimizer::optimiserIntervalle(intervalleIndices intervalle, const pointsTerrain& terrain, AcGePoint2d a,
                                         AcGePoint2d b, chaineTrace& chaine) {
  traiter({intervalle, &terrain, a, b, &chaine});
  if (!m_enCours) viderAttente();
}

void KavelOptimizer::viderAttente() {
  const struct passage {
    KavelOptimizer& optimiseur;
    explicit passage(KavelOptimizer& o) : optimiseur(o) { o.m_enCours = true; }
    ~passage() {
      optimiseur.m_enCours = false;
      optimiseur.m_enAttente.clear();
    }
  } enCours(*this);
  while (!m_enAttente.empty()) {
    const course suite = m_enAttente.back();
    m_enAttente.pop_back();
    optimiserIntervalle(suite.intervalle, *suite.terrain, suite.a, suite.b, *suite.chaine);
  }
}

void KavelOptimizer::traiter(const course& cette) {
  const auto& [intervalle, terrain, a, b, chaine] = cette;
  if (intervalle.dernier == intervalle.premier + 1) {
    chaine->push_back(a);
    chaine->push_back(b);
    return;
  }
  tracerChaine(*chaine);
  tracerSegment(a, b);
  if (intervalleAcceptable(intervalle, a, b, *terrain)) return ajouterCourse(a, b, *chaine);
  AcGePoint2d milieu;
  intervalleIndices gauche{}, droite{};
  decouper(intervalle, a, b, *terrain, milieu, gauche, droite);
  // Depths beyond all measure leave every point below the lowest score, and the run can't be broken.
  if (gauche.dernier <= intervalle.premier) return ajouterCourse(a, b, *chaine);
  m_enAttente.push_back({droite, terrain, milieu, b, chaine});
  m_enAttente.push_back({gauche, terrain, a, milieu, chaine});
}

bool KavelOptimizer::intervalleAcceptable(intervalleIndices intervalle, AcGePoint2d a, AcGePoint2d b,
                                          const pointsTerrain& terrain) {
  const segmentOptimum segment(a, b);
  double y = 0;
  for (const AcGePoint2d& point : interieur(intervalle, terrain)) {
    if (!segment.ordonneeSur(point.x, y)) continue;
    const double profondeur = point.y - y;
    if (profondeur > profondeurMax || profondeurMin > profondeur) return false;
  }
  return true;
}

// The first score is the excess of the depth over the maximum. Kept as it is: the second isn't the shortfall below the
// minimum but minus the depth, minus the minimum, so that a point that is too shallow may score below an acceptable
// one, and the vertex is put elsewhere. The earliest point wins a tie.
void KavelOptimizer::pointLePlusMauvais(intervalleIndices intervalle, AcGePoint2d& point, Adesk::Int32& indice,
                                        AcGePoint2d a, AcGePoint2d b, const pointsTerrain& terrain) {
  const segmentOptimum segment(a, b);
  double meilleur = kScoreDepart, y = 0;
  indice = -1;
  Adesk::Int32 i = intervalle.premier;
  for (const AcGePoint2d& essai : interieur(intervalle, terrain)) {
    ++i;
    if (!segment.ordonneeSur(essai.x, y)) continue;
    for (const double score : {(essai.y - profondeurMax) - y, (y - profondeurMin) - essai.y}) {
      if (!(score > meilleur)) continue;
      meilleur = score;
      indice = i;
    }
  }
  if (indice >= 0) point = terrain[indice];
}

void KavelOptimizer::decouper(intervalleIndices intervalle, AcGePoint2d a, AcGePoint2d b, const pointsTerrain& terrain,
                              AcGePoint2d& milieu, intervalleIndices& gauche, intervalleIndices& droite) {
  AcGePoint2d mauvais;
  Adesk::Int32 indice = -1;
  pointLePlusMauvais(intervalle, mauvais, indice, a, b, terrain);
  milieu = {mauvais.x, (mauvais.y - profondeurMin) - (profondeurMax - profondeurMin) * 0.5};
  gauche = {intervalle.premier, indice};
  droite = {indice, intervalle.dernier};
}

}  // namespace plv
