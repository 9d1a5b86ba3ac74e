// Texts as places.
#include "etudes/suivi/places.h"

#include <cmath>
#include <cstdint>
#include <string_view>

namespace etu::suivi {

namespace {

constexpr double kMemePlace = 1e-3;  // drawing units
constexpr int kCouleurDuCalque = 256;

double sommeDe(std::wstring_view mots) {
  std::uint32_t somme = 2166136261U;
  for (const wchar_t lettre : mots) somme = (somme ^ static_cast<std::uint32_t>(lettre)) * 16777619U;
  return somme & 0xFFFFFFU;
}

}  // namespace

double milieuDe(const AcDbText& lu) {
  const double debut = lu.position().y;
  if (!lu.isDefaultAlignment()) return (debut + lu.alignmentPoint().y) / 2;
  return debut + 0.3 * lu.height() * (std::sin(lu.rotation()) + std::cos(lu.rotation()));
}

texte lireTexte(const AcDbText& lu) {
  const AcGePoint3d lieu = lu.isDefaultAlignment() ? lu.position() : lu.alignmentPoint();
  const AcString mots = lu.textString();
  return {.lieu = {lieu.x, lieu.y, sommeDe(mots.kACharPtr())},
          .coloree = lu.colorIndex() != kCouleurDuCalque,
          .mots = mots};
}

bool memeEndroit(const place& a, const place& b) {
  return std::abs(a.x - b.x) <= kMemePlace && std::abs(a.y - b.y) <= kMemePlace;
}

bool intact(const texte& t, const place& p) { return !t.coloree && t.lieu.mots == p.mots && memeEndroit(t.lieu, p); }

}  // namespace etu::suivi
