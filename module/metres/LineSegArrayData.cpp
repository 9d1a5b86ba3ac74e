// Pieces of lines: ordinates, crossings, clipping.
// Tolerances here are those that stored reports were made with; they aren't the profile's.
#include "module/metres/LineSegArrayData.h"

#include <cmath>

#include "hote/acdb.h"
#include "hote/aced.h"

namespace plv {

namespace {

constexpr double kSansLongueur = 1e-8;
constexpr double kDejaAuDebut = 1e-6, kDejaALaFin = 1e-8;  // a cut this near an end isn't made
constexpr double kPlusPetitRapport = -1e-12, kPlusGrandRapport = 1.000000000001;

}  // namespace

bool LineSeg::YAt(distanceProfil x, altitudeVraie& y, bool verifierBornes) const {
  if (std::abs(x2 - x1) < kSansLongueur) return false;
  const double t = (x.valeur - x1) / (x2 - x1);
  if (verifierBornes && !(t >= kPlusPetitRapport && t <= kPlusGrandRapport)) return false;
  y = altitudeVraie((y2 - y1) * t + y1);
  return true;
}

bool intersection(const LineSeg& a, const LineSeg& b, distanceProfil& x, altitudeVraie& y, bool tester) {
  const ads_point a1 = {a.x1, a.y1, 0}, a2 = {a.x2, a.y2, 0}, b1 = {b.x1, b.y1, 0}, b2 = {b.x2, b.y2, 0};
  ads_point point;
  if (acdbInters(a1, a2, b1, b2, tester, point) != RTNORM) return false;
  x = distanceProfil(point[0]);
  y = altitudeVraie(point[1]);
  return true;
}

void LineSegArrayData::ajuster(distanceProfil a, distanceProfil b) {
  if (a >= fin() || debut() >= b) {
    RemoveAll();
    return;
  }
  const auto verifier = [](bool coupe) {
    if (!coupe) acedAlert(L"\nErreur 1 dans la procedure ajuster ptrav");
  };
  verifier(couperDebut(a));
  verifier(couperFin(b));
}

// False when the piece under the cut has no ordinate there.
bool LineSegArrayData::couperDebut(distanceProfil a) {
  std::ptrdiff_t k = 0;
  while (k < GetSize() && a.valeur >= GetAt(k).x2) ++k;
  if (k == GetSize() || a.valeur <= GetAt(k).x1) return true;
  RemoveAt(0, k);
  LineSeg& premier = GetAt(0);
  if (std::abs(premier.x1 - a.valeur) < kDejaAuDebut) return true;
  altitudeVraie y;
  if (!premier.YAt(a, y, true)) return false;
  premier.x1 = a.valeur;
  premier.y1 = y.valeur;
  return true;
}

bool LineSegArrayData::couperFin(distanceProfil b) {
  std::ptrdiff_t j = GetSize() - 1;
  while (j >= 0 && GetAt(j).x1 >= b.valeur) --j;
  if (j < 0 || GetAt(j).x2 <= b.valeur) return true;
  RemoveAt(j + 1, GetSize() - j - 1);
  if (std::abs(dernier().x2 - b.valeur) < kDejaALaFin) return true;
  altitudeVraie y;
  if (!dernier().YAt(b, y, true)) return false;
  dernier().x2 = b.valeur;
  dernier().y2 = y.valeur;
  return true;
}

void LineSegArrayData::concatener(const LineSegArrayData& autre) {
  if (&autre == this) throw CInvalidArgException();
  for (std::ptrdiff_t i = 0; i < autre.GetSize(); ++i) Add(autre.GetAt(i));
}

}  // namespace plv
