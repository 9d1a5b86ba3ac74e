// A part of the discharge is found by halving the angle that the water covers; below 4/5 of the height the discharge grows with it.
#include "etudes/reseaux/ecoulement.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "module/support/base/lettres.h"

namespace etu {

namespace {

struct rugosite {
  const wchar_t* materiau;
  double strickler;
};
// Usual values of works in service; a network's rows may give others.
constexpr rugosite kRugosites[] = {{L"béton", 70}, {L"beton", 70}, {L"fonte", 80}, {L"grès", 80}, {L"gres", 80},
                                   {L"pvc", 90},   {L"pe", 90},    {L"pp", 90},    {L"prv", 90}};
constexpr double kStricklerCourant = 75;

}  // namespace

double stricklerDe(const tuyau& t) {
  if (t.strickler > 0) return t.strickler;
  const std::wstring nom = plv::enMinuscules(t.materiau);
  const auto trouve = std::ranges::find_if(kRugosites, [&](const rugosite& r) { return nom.starts_with(r.materiau); });
  return trouve == std::end(kRugosites) ? kStricklerCourant : trouve->strickler;
}

ecoulement pleineSection(double diametre, double pente, double strickler) {
  const double vitesse = strickler * std::pow(diametre / 4, 2.0 / 3) * std::sqrt(std::abs(pente));
  return {vitesse, vitesse * std::numbers::pi * diametre * diametre / 4};
}

double vitesseRelative(double partDuDebit) {
  // Area and radius over those of the full pipe, by the angle at the centre that the water's surface spans.
  const auto aire = [](double angle) { return (angle - std::sin(angle)) / (2 * std::numbers::pi); };
  const auto vitesse = [](double angle) { return std::pow(1 - std::sin(angle) / angle, 2.0 / 3); };
  double bas = 0, haut = 1.4 * std::numbers::pi;
  for (int i = 0; i < 60; ++i) {
    const double milieu = (bas + haut) / 2;
    (aire(milieu) * vitesse(milieu) < partDuDebit ? bas : haut) = milieu;
  }
  return vitesse(haut);
}

}  // namespace etu
