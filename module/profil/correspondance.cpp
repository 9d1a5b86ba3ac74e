// profilLong: the mapping between drawing, distance and station, and altitude.
// A profile without PC answers as one whose only plane is at 0.
#include <algorithm>

#include "module/profil/profilLong.h"

namespace plv {

namespace {

constexpr double kAuChangement = 1e-5;      // a distance counts as a change of section
constexpr double kPointsConfondus = 1e-10;  // neighbours of the ground at one distance

// The first section i whose end, the start of the next one, is at or beyond d; the last one without such an
// end.
std::size_t sectionParBornes(const std::vector<double>& debuts, double d) {
  std::size_t i = 0;
  while (i + 1 < debuts.size() && !(debuts[i] < d && d <= debuts[i + 1])) ++i;
  return i;
}

}  // namespace

// Kept as it is: the scan gives section 0 for any distance above the tolerance, and the last section for all others.
// Drawings were made with it. Elsewhere the section is found by its bounds.
std::size_t profilLong::sectionBalayage(distanceProfil d) const {
  std::size_t i = 0;
  while (i < distPc.size() && kToleranceStation + distPc[i] > d.valeur) ++i;
  return i == 0 ? 0 : i - 1;
}

altitudeVraie profilLong::altitudeSection(std::size_t section) const {
  return altitudeVraie(section < altPc.size() ? altPc[section] : 0.0);
}

bool profilLong::versDessin(stationPk s, altitudeVraie z, xDessin& x, yDessin& y) const {
  const distanceProfil d = distanceDe(s);
  if (d.valeur < -kToleranceStation || d.valeur > kToleranceStation + longueurTn() || altPc.empty()) return false;
  x = xDe(d);
  y = yDe(z, altitudeSection(sectionBalayage(d)));
  return true;
}

altitudeVraie profilLong::pcEnStation(stationPk s) const { return altitudeSection(sectionBalayage(distanceDe(s))); }
altitudeVraie profilLong::pcEnX(xDessin x) const { return altitudeSection(sectionBalayage(distanceDe(x))); }

yDessin profilLong::ordonneeDessin(distanceProfil distance, altitudeVraie z) const {
  const double d = distance.valeur;
  if (distPc.empty() || altPc.empty()) return yDe(z, altitudeVraie(0.0));
  if (d <= distPc.front()) return yDe(z, altitudeVraie(altPc.front()));
  if (d >= distPc.back()) return yDe(z, altitudeVraie(altPc.back()));
  const std::size_t i = sectionParBornes(distPc, d);
  const bool plusBas =
      i >= 1 && std::abs(d - distPc[i]) < kAuChangement && altitudeSection(i - 1) <= altitudeSection(i);
  return yDe(z, altitudeSection(plusBas ? i - 1 : i));
}

yDessin profilLong::yDe(altitudeVraie z, altitudeVraie pc) const { return yDessin((z - pc) * echelleV + position.y); }

altitudeVraie profilLong::altitudeDeY(yDessin y, altitudeVraie pc) const {
  return altitudeVraie((y.valeur - position.y) / echelleV + pc.valeur);
}

bool profilLong::altitudeDePoint(const AcGePoint3d& point, altitudeVraie& z, bool relatif) const {
  if (distPc.empty() || altPc.empty()) return false;
  const double d = relatif ? point.x - position.x : point.x;
  const double v = relatif ? point.y - position.y : point.y;
  std::size_t section = 1;
  if (d >= distPc.back() && d > distPc.front()) {
    section = std::min(distPc.size(), altPc.size());
  } else if (d > distPc.front()) {
    while (d > distPc[section]) ++section;
    if (d == distPc[section]) return false;
  }
  z = altitudeVraie(v / echelleV + altitudeSection(section - 1).valeur);
  return true;
}

void profilLong::versProfil(std::size_t section, const AcGePoint3d& point, stationPk& s, altitudeVraie& z) const {
  s = stationDe(distanceDe(xDessin(point.x)));
  z = altitudeDeY(yDessin(point.y), altitudeSection(section));
}

std::size_t profilLong::indexPc(xDessin x) const {
  const double d = distanceDe(x).valeur;
  if (d <= 0.0 || distPc.empty()) return 0;
  return d >= distPc.back() ? distPc.size() - 1 : sectionParBornes(distPc, d);
}

altitudeVraie profilLong::altitudeTn(xDessin x) const {
  const double d = distanceDe(x).valeur;
  const std::size_t n = std::min(distTn.size(), altTn.size());
  if (n == 0) return {};
  if (n == 1) return altitudeVraie(altTn.front());
  std::size_t i = 0;
  if (d >= distTn[n - 1]) {
    i = n - 2;
  } else if (d > distTn.front()) {
    const auto encadre = [&](std::size_t k) {
      return d >= distTn[k] - kToleranceStation && d <= distTn[k + 1] + kToleranceStation;
    };
    while (i + 1 < n && !encadre(i)) ++i;
    if (i + 1 == n) return {};
  }
  const double ecart = distTn[i + 1] - distTn[i];
  if (std::abs(ecart) < kPointsConfondus) return altitudeVraie((altTn[i] + altTn[i + 1]) / 2);
  return altitudeVraie((d - distTn[i]) / ecart * (altTn[i + 1] - altTn[i]) + altTn[i]);
}

}  // namespace plv
