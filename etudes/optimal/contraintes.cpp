// The band makes the corridor, then everything else narrows it.
#include "etudes/optimal/contraintes.h"

#include <algorithm>

#include "module/profil/profilLong.h"

namespace etu {

namespace {

bool enOrdre(double a, double b) { return b - a > plv::kToleranceStation; }

bool ouverte(const bande& b) { return b.moindre <= b.plusGrande; }

// The part of a stretch between the ends; nothing when it is too short.
std::optional<troncBande> dedans(const troncBande& t, const demande& d) {
  const troncBande ici{std::max(t.debut, d.debut), std::min(t.fin, d.fin), t.profondeurs};
  if (!enOrdre(ici.debut, ici.fin)) return std::nullopt;
  return ici;
}

bool en(double distance, double debut, double fin) {
  return distance >= debut - plv::kToleranceStation && distance <= fin + plv::kToleranceStation;
}

// The lower and the higher side of the ground at a place.
limites terrainEn(const listeSommets& terrain, double distance) {
  const double debut = std::max(terrain.front().distance.valeur, distance - 1e-3);
  const double fin = std::min(terrain.back().distance.valeur, distance + 1e-3);
  couloir c = couloirSous(terrain, debut, fin, {0, 0});
  const std::size_t rang = c.couper(distance);
  const double a = rang > 0 ? c.avant(rang).haut : c.apres(rang).haut;
  const double b = rang + 1 < c.portes.size() ? c.apres(rang).haut : a;
  return {std::min(a, b), std::max(a, b)};
}

// An end may lie a little outside its door: the places of picked ends are known to this.
constexpr double kToleranceBout = 1e-6;

void fixer(couloir& c, double distance, const std::optional<double>& altitude) {
  if (!altitude) return;
  const limites& porte = c.portes[c.rangDe(distance)].passage;
  if (*altitude >= porte.bas - kToleranceBout && *altitude <= porte.haut + kToleranceBout) c.fixer(distance, *altitude);
  else c.percer(distance, {*altitude, *altitude});
}

// Keeps the tightest of the limits that are shown to it.
class plusEtroite {
 public:
  plusEtroite(double distance, bool haut) : m_haut(haut), m_limite{distance, cause::bout, 0} {}
  void voir(double altitude, cause pourquoi, double valeur) {
    if (m_vue && (m_haut ? altitude >= m_altitude : altitude <= m_altitude)) return;
    m_vue = true;
    m_altitude = altitude;
    m_limite.pourquoi = pourquoi;
    m_limite.valeur = valeur;
  }
  void voir(const limites& terrain, const bande& b) {
    if (m_haut) voir(terrain.bas - b.moindre, cause::profondeurMoindre, b.moindre);
    else voir(terrain.haut - b.plusGrande, cause::profondeurPlusGrande, b.plusGrande);
  }
  const limiteNommee& resultat() const { return m_limite; }

 private:
  bool m_haut, m_vue = false;
  double m_altitude = 0;
  limiteNommee m_limite;
};

}  // namespace

bool convient(const listeSommets& terrain, const demande& d) {
  return terrain.size() > 1 && enOrdre(d.debut, d.fin) && ouverte(d.profondeurs) &&
         std::all_of(d.bandes.begin(), d.bandes.end(), [](const troncBande& t) { return ouverte(t.profondeurs); }) &&
         (!d.pente || d.pente->moindre <= d.pente->plusGrande) && d.longueur >= 0 && d.pasAltitude >= 0 &&
         d.pasPente >= 0 && terrain.front().distance.valeur <= d.debut + plv::kToleranceStation &&
         terrain.back().distance.valeur >= d.fin - plv::kToleranceStation &&
         std::is_sorted(terrain.begin(), terrain.end(),
                        [](const sommet& a, const sommet& b) { return a.distance < b.distance; });
}

couloir couloirDe(const listeSommets& terrain, const demande& d, const std::vector<bool>& dessus) {
  couloir c = couloirSous(terrain, d.debut, d.fin, d.profondeurs);
  for (const troncBande& t : d.bandes)
    if (const auto ici = dedans(t, d)) c.remplacer(couloirSous(terrain, ici->debut, ici->fin, ici->profondeurs));
  for (std::size_t i = 0; i < d.croisements.size(); ++i) {
    const croisement& x = d.croisements[i];
    const double debut = std::max(x.debut, d.debut), fin = std::min(x.fin, d.fin);
    if (enOrdre(debut, fin)) c.borner(debut, fin, dessus[i] ? x.interdit.haut : x.interdit.bas, !dessus[i]);
  }
  for (const pointImpose& p : d.points)
    if (en(p.distance, d.debut, d.fin)) c.percer(p.distance, p.altitudes);
  fixer(c, d.debut, d.zDebut);
  fixer(c, d.fin, d.zFin);
  return c;
}

limiteNommee causeDe(const listeSommets& terrain, const demande& d, const std::vector<bool>& dessus, double distance,
                     bool haut) {
  plusEtroite limite(distance, haut);
  const limites sol = terrainEn(terrain, distance);
  bool general = true;
  for (const troncBande& t : d.bandes) {
    if (!en(distance, t.debut, t.fin)) continue;
    limite.voir(sol, t.profondeurs);
    general = general && !(distance > t.debut + plv::kToleranceStation && distance < t.fin - plv::kToleranceStation);
  }
  if (general) limite.voir(sol, d.profondeurs);
  for (std::size_t i = 0; i < d.croisements.size(); ++i) {
    const croisement& x = d.croisements[i];
    if (!en(distance, x.debut, x.fin) || dessus[i] == haut) continue;
    const double z = haut ? x.interdit.bas : x.interdit.haut;
    limite.voir(z, haut ? cause::croisementDessous : cause::croisementDessus, z);
  }
  for (const pointImpose& p : d.points)
    if (en(distance, p.distance, p.distance)) {
      const double z = haut ? p.altitudes.haut : p.altitudes.bas;
      limite.voir(z, cause::point, z);
    }
  for (const auto& [bout, z] : {std::pair(d.debut, d.zDebut), std::pair(d.fin, d.zFin)})
    if (z && en(distance, bout, bout)) limite.voir(*z, cause::bout, *z);
  return limite.resultat();
}

}  // namespace etu
