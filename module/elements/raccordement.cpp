// The fillet: the problem is turned so that the bisector of the two lines is the x axis, and solved there.
// With y = m x and y = -m x the lines, the centre stands on the axis.
#include "module/elements/raccordement.h"

#include <cmath>
#include <numbers>

#include "hote/aced.h"
#include "hote/acut.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/elements/fonctionsElements.h"

namespace plv {

namespace {

constexpr double kNul = 1e-8;
constexpr double kTour = 2 * std::numbers::pi;

double dansLeTour(double angle) {
  angle = std::fmod(angle, kTour);
  return angle < 0 ? angle + kTour : angle;
}

double angleDe(const AcGePoint2d& de, const AcGePoint2d& vers) {
  const ads_point a = {de.x, de.y, 0.0}, b = {vers.x, vers.y, 0.0};
  return acutAngle(a, b);
}

AcGePoint2d tourne(const AcGePoint2d& p, double angle) {
  return {p.x * std::cos(angle) - p.y * std::sin(angle), p.x * std::sin(angle) + p.y * std::cos(angle)};
}

// A quarter of the whole part of the sum: near the middle of the four.
double recentrage(double a, double b, double c, double d) { return std::floor(a + b + c + d) / 4; }

const AcGePoint2d& plusLoin(const AcGePoint2d& de, const AcGePoint2d& a, const AcGePoint2d& b) {
  return de.distanceTo(b) > de.distanceTo(a) ? b : a;
}

// The signed place of the centre on the axis, and the radius, from the slope of the line and the point.
void resoudre(double m, const AcGePoint2d& p, double& rayon, double& centre) {
  const double c = std::sqrt(m * m + 1);
  const double e = std::sqrt(m * m * p.x * p.x - p.y * p.y) * m;
  const double f = c * m * p.x;
  const double r1 = std::abs(-e - f), r2 = std::abs(e - f);
  const double d1 = c * r1 / m, d2 = c * r2 / m;
  const bool second = std::abs(d2) > std::abs(d1);
  rayon = second ? r2 : r1;
  centre = -(second ? d2 : d1);
}

}  // namespace

bool intersectionDroites(const AcGePoint2d& a, const AcGePoint2d& b, const AcGePoint2d& c, const AcGePoint2d& d,
                         bool sansBornes, AcGePoint2d& point, std::array<double, 2>& rapports) {
  const AcGeVector2d origine(recentrage(a.x, b.x, c.x, d.x), recentrage(a.y, b.y, c.y, d.y));
  const AcGePoint2d a0 = a - origine, c0 = c - origine;
  const AcGeVector2d u = (b - origine) - a0, v = (d - origine) - c0, w = c0 - a0;
  const double det = u.x * v.y - v.x * u.y;
  if (std::abs(det) < kNul) return false;
  rapports = {(w.x * v.y - v.x * w.y) / det, (w.x * u.y - u.x * w.y) / det};
  for (const double rapport : rapports)
    if (!sansBornes && (rapport < -kNul || rapport > 1 + kNul)) return false;
  point = a0 + u * rapports[0] + origine;
  return true;
}

double angleEntre(const AcGePoint2d& i, const AcGePoint2d& a, const AcGePoint2d& b) {
  const auto direction = [&](const AcGePoint2d& p) { return dansLeTour(std::atan2(p.y - i.y, p.x - i.x)); };
  return dansLeTour(direction(b) - direction(a));
}

bool rayonRaccordant(const std::array<AcGePoint2d, 5>& points, raccordement& resultat) {
  AcGePoint2d sommet;
  std::array<double, 2> rapports;
  if (!intersectionDroites(points[0], points[1], points[2], points[3], true, sommet, rapports)) return false;
  std::array<AcGePoint2d, 5> p;
  const AcGePoint2d origine;
  const AcGeVector2d versSommet = sommet - origine;
  for (std::size_t i = 0; i < p.size(); ++i) p[i] = points[i] - versSommet;
  const double ouverture = angleEntre(origine, plusLoin(origine, p[0], p[1]), plusLoin(origine, p[2], p[3]));
  const double rotation = -angleDe(origine, p[0]) - ouverture * 0.5;
  for (AcGePoint2d& q : p) q = tourne(q, rotation);
  const double m = std::abs(p[0].x) > kNul ? p[0].y / p[0].x : p[1].y / p[1].x;
  double k = 0;
  resoudre(m, p[4], resultat.rayon, k);
  const double r = resultat.rayon;
  const double t = -((std::sqrt(std::abs(-(m * m * k * k) - (-m * m - 1) * r * r)) - k) / (m * m + 1));
  const auto ramene = [&](const AcGePoint2d& q) { return tourne(q, -rotation) + versSommet; };
  resultat.centre = ramene({k, 0.0});
  resultat.angleDebut = angleDe(resultat.centre, ramene({t, m * t}));
  resultat.angleFin = angleDe(resultat.centre, ramene({t, -m * t}));
  if (dansLeTour(resultat.angleFin - resultat.angleDebut) > std::numbers::pi)
    std::swap(resultat.angleDebut, resultat.angleFin);
  return true;
}

void pl_rayraccpt() {
  ArgsLisp args;
  commencerAppel(args);
  if (!conforme(args, "PPPPPR")) return;
  std::array<AcGePoint2d, 5> points;
  double bas = kReelAbsent;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const AcGePoint3d p = valeurPoint(args.nieme(static_cast<Adesk::Int32>(i)));
    points[i] = {p.x, p.y};
    bas = std::min(bas, p.y);
  }
  const double echelle = valeurReelle(args.nieme(5));
  for (AcGePoint2d& p : points) p.y = (p.y - bas) / echelle;
  raccordement resultat;
  if (rayonRaccordant(points, resultat)) acedRetReal(resultat.rayon);
}

}  // namespace plv
