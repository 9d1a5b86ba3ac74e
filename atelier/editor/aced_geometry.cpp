// Plane geometry that the host offers to handlers.
// Lines count as parallel only when they are so to the last digit: a handler that cuts a long, nearly parallel pair gets
// the best point there is.
#include "atelier/lisp/crossing.h"
#include "hote/acdb.h"

int acdbInters(const ads_point from1, const ads_point to1, const ads_point from2, const ads_point to2, int onSegments,
               ads_point result) {
  const auto parts = atelier::lisp::crossing(from1, to1, from2, to2, 0.0);
  if (!parts) return RTERROR;
  const auto [s, t] = *parts;
  if (onSegments && !(atelier::lisp::onSegment(s) && atelier::lisp::onSegment(t))) return RTERROR;
  for (int i = 0; i < 3; ++i) result[i] = from1[i] + s * (to1[i] - from1[i]);
  return RTNORM;
}
