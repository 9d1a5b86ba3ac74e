// A part is straight enough when its middle is carried to within a millimetre of the middle between its carried ends; the unit
// of the other system may be degrees, so that the comparison is made back in metres.
#include "etudes/surfaces/coupeTransformee.h"

namespace etu {

namespace {

constexpr double kDroit = 1e-3;
constexpr int kProfondeurMax = 12;

piedAxe place(const piedAxe& a, const piedAxe& b, double t) {
  return {a.station + t * (b.station - a.station), a.x + t * (b.x - a.x), a.y + t * (b.y - a.y), 0};
}

}  // namespace

void coupeTransformee::couper(const piedAxe& a, const piedAxe& b, std::vector<tranche>& tranches) {
  couperPart(a, b, 0, 1, 0, tranches);
}

void coupeTransformee::couperPart(const piedAxe& a, const piedAxe& b, double t0, double t1, int profondeur,
                                  std::vector<tranche>& tranches) {
  piedAxe p = place(a, b, t0), q = place(a, b, t1);
  const piedAxe milieu = place(a, b, 0.5 * (t0 + t1));
  if (!m_vers(p.x, p.y) || !m_vers(q.x, q.y)) return;
  double x = 0.5 * (p.x + q.x), y = 0.5 * (p.y + q.y);
  if (!m_depuis(x, y)) return;
  if (profondeur < kProfondeurMax && std::hypot(x - milieu.x, y - milieu.y) > kDroit) {
    couperPart(a, b, t0, 0.5 * (t0 + t1), profondeur + 1, tranches);
    couperPart(a, b, 0.5 * (t0 + t1), t1, profondeur + 1, tranches);
    return;
  }
  const std::size_t avant = tranches.size();
  m_surface->couper(p, q, tranches);
  for (std::size_t i = avant; i < tranches.size(); ++i) {
    tranches[i].t0 = t0 + tranches[i].t0 * (t1 - t0);
    tranches[i].t1 = tranches[i].t1 == 1 ? t1 : t0 + tranches[i].t1 * (t1 - t0);
  }
}

etendue coupeTransformee::emprise() const {
  const etendue source = m_surface->emprise();
  etendue e;
  constexpr int kPas = 8;
  for (int i = 0; i <= kPas && !source.vide(); ++i)
    for (int k = 0; k <= kPas; ++k) {
      double x = source.xMin + (source.xMax - source.xMin) * i / kPas,
             y = source.yMin + (source.yMax - source.yMin) * k / kPas;
      if (m_depuis(x, y)) e.prendre(x, y);
    }
  return e;
}

}  // namespace etu
