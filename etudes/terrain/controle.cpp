// Extents compared as they are, exchanged, and in other units.
#include "etudes/terrain/controle.h"

#include "module/support/base/nombres.h"

namespace etu {

namespace {

constexpr double kPied = 0.3048;

std::wstring dire(const etendue& e) {
  const auto n = [](double v) { return plv::texteFixe(v, std::abs(v) < 1000 ? 3 : 0); };
  return L"x de " + n(e.xMin) + L" à " + n(e.xMax) + L", y de " + n(e.yMin) + L" à " + n(e.yMax);
}

bool enDegres(const etendue& e) {
  return e.diagonale() < 10 && std::max(std::abs(e.xMin), std::abs(e.xMax)) <= 180 &&
         std::max(std::abs(e.yMin), std::abs(e.yMax)) <= 90;
}

// Coordinates of a system, and not of a drawing about its origin: only these tell a unit.
bool loinDeLOrigine(const etendue& e) { return std::hypot(e.xMin + e.xMax, e.yMin + e.yMax) > 4 * e.diagonale(); }

etendue multipliee(const etendue& e, double facteur) {
  return {e.xMin * facteur, e.yMin * facteur, e.xMax * facteur, e.yMax * facteur};
}

}  // namespace

std::wstring pourquoiHors(const etendue& axe, const etendue& surface) {
  const std::wstring ou = L" (axe: " + dire(axe) + L"; surface: " + dire(surface) + L")";
  if (axe.touche({surface.yMin, surface.xMin, surface.yMax, surface.xMax}))
    return L"x et y sont échangés dans la source: prenez-la par ses colonnes YX" + ou;
  if (enDegres(surface) && loinDeLOrigine(axe))
    return L"la source est en degrés (longitude et latitude), le dessin en mètres: indiquez son système de "
           L"coordonnées" +
           ou;
  const bool situees = loinDeLOrigine(axe) && loinDeLOrigine(surface);
  if (situees && (axe.touche(multipliee(surface, kPied)) || axe.touche(multipliee(surface, 1200.0 / 3937.0))))
    return L"la source est en pieds, le dessin en mètres: convertissez-la (1 pied = 0,3048 m)" + ou;
  if (situees && (axe.touche(multipliee(surface, 1000)) || axe.touche(multipliee(surface, 0.001))))
    return L"la source et le dessin ne sont pas dans la même unité (mètres, millimètres ou kilomètres)" + ou;
  return L"il n'y a pas de surface sous l'axe" + ou;
}

}  // namespace etu
