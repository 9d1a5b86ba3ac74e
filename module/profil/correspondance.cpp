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

// The scan counts the starts that lie above the distance, so that it gives section 0 for any distance above
// the tolerance and the last section for the others. Existing drawings rely on it; the bounds serve
// elsewhere.
std::size_t profilLong::sectionBalayage(double d) const {
  std::size_t i = 0;
  while (i < distPc.size() && kToleranceStation + distPc[i] > d) ++i;
  return i == 0 ? 0 : i - 1;
}

double profilLong::altitudeSection(std::size_t section) const { return section < altPc.size() ? altPc[section] : 0.0; }

bool profilLong::versDessin(double s, double z, double& x, double& y) const {
  const double d = s - dcumDeb;
  if (d < -kToleranceStation || d > kToleranceStation + longueurTn() || altPc.empty()) return false;
  x = position.x + d;
  y = (z - altitudeSection(sectionBalayage(d))) * echelleV + position.y;
  return true;
}

double profilLong::pcEnStation(double s) const { return altitudeSection(sectionBalayage(s - dcumDeb)); }
double profilLong::pcEnX(double x) const { return altitudeSection(sectionBalayage(x - position.x)); }

double profilLong::ordonneeDessin(double d, double z) const {
  const auto ordonnee = [&](double pc) { return (z - pc) * echelleV + position.y; };
  if (distPc.empty() || altPc.empty()) return ordonnee(0.0);
  if (d <= distPc.front()) return ordonnee(altPc.front());
  if (d >= distPc.back()) return ordonnee(altPc.back());
  const std::size_t i = sectionParBornes(distPc, d);
  const bool plusBas =
      i >= 1 && std::abs(d - distPc[i]) < kAuChangement && altitudeSection(i - 1) <= altitudeSection(i);
  return ordonnee(altitudeSection(plusBas ? i - 1 : i));
}

bool profilLong::altitudeDePoint(const AcGePoint3d& point, double& z, bool relatif) const {
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
  z = v / echelleV + altitudeSection(section - 1);
  return true;
}

double profilLong::altitudeDeY(double y, double pc) const { return (y - position.y) / echelleV + pc; }

void profilLong::versProfil(std::size_t section, const AcGePoint3d& point, double& s, double& z) const {
  s = point.x - position.x + dcumDeb;
  z = altitudeDeY(point.y, altitudeSection(section));
}

std::size_t profilLong::indexPc(double x) const {
  const double d = x - position.x;
  if (d <= 0.0 || distPc.empty()) return 0;
  return d >= distPc.back() ? distPc.size() - 1 : sectionParBornes(distPc, d);
}

double profilLong::altitudeTn(double x) const {
  const double d = x - position.x;
  const std::size_t n = std::min(distTn.size(), altTn.size());
  if (n == 0) return 0.0;
  if (n == 1) return altTn.front();
  std::size_t i = 0;
  if (d >= distTn[n - 1]) {
    i = n - 2;
  } else if (d > distTn.front()) {
    const auto encadre = [&](std::size_t k) {
      return d >= distTn[k] - kToleranceStation && d <= distTn[k + 1] + kToleranceStation;
    };
    while (i + 1 < n && !encadre(i)) ++i;
    if (i + 1 == n) return 0.0;
  }
  const double ecart = distTn[i + 1] - distTn[i];
  if (std::abs(ecart) < kPointsConfondus) return (altTn[i] + altTn[i + 1]) / 2;
  return (d - distTn[i]) / ecart * (altTn[i + 1] - altTn[i]) + altTn[i];
}

}  // namespace plv
