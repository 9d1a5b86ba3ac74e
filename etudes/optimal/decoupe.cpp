// Narrowing a corridor: further doors, steps, limits of stretches. Each takes time for the whole corridor, and there are few.
#include <algorithm>

#include "etudes/optimal/couloir.h"
#include "module/profil/profilLong.h"

namespace etu {

marche& couloir::marcheEn(std::size_t rang) {
  const auto m =
      std::lower_bound(marches.begin(), marches.end(), rang, [](const marche& a, std::size_t r) { return a.rang < r; });
  if (m != marches.end() && m->rang == rang) return *m;
  const limites l = portes[rang].passage;
  return *marches.insert(m, {rang, l, l, false});
}

std::size_t couloir::couper(double distance) {
  const std::size_t rang = rangDe(distance);
  if (distance - portes[rang].distance <= plv::kToleranceStation) return rang;
  if (rang + 1 < portes.size() && portes[rang + 1].distance - distance <= plv::kToleranceStation) return rang + 1;
  portes.insert(portes.begin() + static_cast<std::ptrdiff_t>(rang) + 1, {distance, entre(rang, distance)});
  for (marche& m : marches)
    if (m.rang > rang) ++m.rang;
  return rang + 1;
}

void couloir::remplacer(const couloir& piece) {
  const std::size_t de = couper(piece.debut()), a = couper(piece.fin());
  couloir neuf;
  const auto garder = [&](std::size_t rang, const limites& avantElle, const limites& apresElle, bool mur) {
    neuf.marches.push_back({neuf.portes.size(), avantElle, apresElle, mur});
    neuf.portes.push_back({portes[rang].distance, communes(avantElle, apresElle)});
  };
  const auto copier = [&](const couloir& c, std::size_t rang) {
    if (const marche* m = c.marcheDe(rang)) neuf.marches.push_back({neuf.portes.size(), m->avant, m->apres, m->mur});
    neuf.portes.push_back(c.portes[rang]);
  };
  for (std::size_t i = 0; i < de; ++i) copier(*this, i);
  const bool premier = de == 0, dernier = a + 1 == portes.size();
  const marche *murDe = marcheDe(de), *murA = marcheDe(a);
  garder(de, premier ? piece.apres(0) : avant(de), piece.apres(0), murDe && murDe->mur);
  for (std::size_t i = 1; i + 1 < piece.portes.size(); ++i) copier(piece, i);
  const limites fini = piece.avant(piece.portes.size() - 1);
  garder(a, fini, dernier ? fini : apres(a), murA && murA->mur);
  for (std::size_t i = a + 1; i < portes.size(); ++i) copier(*this, i);
  *this = std::move(neuf);
}

void couloir::borner(double debutIci, double finIci, double altitude, bool haut) {
  const auto cote = [haut](limites& l) -> double& { return haut ? l.haut : l.bas; };
  const auto limiter = [&](limites& l) { cote(l) = haut ? std::min(l.haut, altitude) : std::max(l.bas, altitude); };
  const std::size_t de = couper(debutIci);
  couper(finIci);
  for (std::size_t i = de; i + 1 < portes.size() && portes[i + 1].distance <= finIci + plv::kToleranceStation; ++i) {
    limites a = apres(i), b = avant(i + 1);
    const double za = cote(a), zb = cote(b), t = za == zb ? 0 : (altitude - za) / (zb - za);
    if (t > 0 && t < 1) couper(portes[i].distance + t * (portes[i + 1].distance - portes[i].distance));
  }
  const std::size_t a = couper(finIci);
  for (std::size_t i = de; i <= a; ++i) {
    if (i == de || i == a || marcheDe(i)) {
      marche& m = marcheEn(i);
      if (i > de) limiter(m.avant);
      if (i < a) limiter(m.apres);
    }
    limiter(portes[i].passage);
  }
}

void couloir::fixer(double distance, double altitude) {
  const std::size_t rang = couper(distance);
  marcheEn(rang);
  portes[rang].passage = {altitude, altitude};
}

void couloir::percer(double distance, const limites& l) {
  const std::size_t rang = couper(distance);
  marche& m = marcheEn(rang);
  // Beside a wall the point holds on both sides.
  if (m.mur) m.avant = communes(m.avant, l), m.apres = communes(m.apres, l);
  portes[rang].passage = communes(portes[rang].passage, l);
}

}  // namespace etu
