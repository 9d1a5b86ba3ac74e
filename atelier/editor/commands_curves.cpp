// SPLINE BREAK TRIM EXTEND: drawing and cutting curves.
// Curves meet in plan. What is picked at a point is cut or extended on the side of that point.
#include <cmath>

#include "atelier/database/interruption.h"
#include "atelier/editor/command_table.h"
#include "atelier/editor/curve_pieces.h"
#include "atelier/editor/document.h"
#include "hote/dbpl.h"

namespace atelier {
namespace {

CommandTask spline(Command& c) {
  AcGePoint3dArray points;
  const auto first = co_await c.point("\nPremier point: ");
  if (!first.given()) co_return;
  points.append(first.value);
  bool closed = false;
  for (;;) {
    const std::string prompt =
        points.length() > 2 ? "\nPoint suivant ou [Clore/annUler] <fin>: " : "\nPoint suivant ou [annUler] <fin>: ";
    const auto next = co_await c.point(prompt, points[points.length() - 1], "Clore annUler _Close Undo");
    if (next.is("Undo")) {
      if (points.length() > 1) points.removeAt(points.length() - 1);
      continue;
    }
    closed = next.is("Close") && points.length() > 2;
    if (closed) points.append(first.value);
    if (!next.given()) break;
    points.append(next.value);
  }
  if (points.length() < 2) c.fail("Une courbe demande au moins deux points.");
  AcGeVector3d tangents[2];
  if (!closed) {
    for (const int side : {0, 1}) {
      const std::string prompt = side == 0 ? "\nTangente de départ <libre>: " : "\nTangente de fin <libre>: ";
      const AcGePoint3d at = side == 0 ? points[0] : points[points.length() - 1];
      const auto to = co_await c.point(prompt, at);
      if (to.given()) tangents[side] = to.value - at;
    }
  }
  auto made = tangents[0].length() > 0 && tangents[1].length() > 0
                  ? std::make_unique<AcDbSpline>(points, tangents[0], tangents[1])
                  : std::make_unique<AcDbSpline>(points);
  if (made->isNull()) c.fail("Ces points ne donnent pas de courbe.");
  c.add(std::move(made));
}

// An object that is named rather than picked has no first point yet.
CommandTask breakCurve(Command& c) {
  const auto picked = co_await c.entity("\nObjet à couper: ");
  if (!picked.given()) co_return;
  AcGePoint3d first = picked.value.point;
  const std::string prompt =
      picked.value.byPoint ? "\nDeuxième point de coupure ou [Premier point]: " : "\nPremier point de coupure: ";
  auto second = co_await c.point(prompt, {}, "Premier _First");
  if (second.is("First") || !picked.value.byPoint) {
    if (second.given()) {
      first = second.value;
    } else {
      const auto given = co_await c.point("\nPremier point de coupure: ");
      first = given.value;
    }
    second = co_await c.point("\nDeuxième point de coupure <le premier>: ", first);
  }
  const AcDbCurve& curve = pickedCurve(c, picked.value.id);
  const auto from = paramNear(curve, first), to = paramNear(curve, second.valueOr(first));
  if (!from || !to) c.fail("Le point n'est pas sur l'objet.");
  if (curve.isClosed() && *from == *to) c.fail("Un objet fermé se coupe en deux points.");
  CurvePieces pieces = without(curve, *from, *to);
  if (pieces.empty()) c.fail("Il ne resterait rien de l'objet.");
  replaceByPieces(c, picked.value.id, std::move(pieces));
}

using Limits = std::vector<AcDbStub*>;

// What may be a limit: the selection, or without one the whole space.
Limits limits(const Command& c, const SelectionSet* set) {
  const AcDbStub* space = c.document.database().currentSpaceId();
  return set ? Limits(set->list().begin(), set->list().end()) : space && space->children ? *space->children : Limits();
}

// What is left of the curve without the part between the limits at either side of the point; nothing without a limit.
CurvePieces trimmed(const Command& c, const AcDbCurve& curve, const AcGePoint3d& point, const SelectionSet* set) {
  AcDbExtents box;
  Limits others = limits(c, set);
  if (!set && curve.getGeomExtents(box) == Acad::eOk)
    others = c.document.spatialIndex().query(c.document.database().currentSpaceId(), box);
  const std::vector<double> cuts = paramsOfMeetings(curve, others);
  const auto at = paramNear(curve, point);
  double low = 0, high = 0;
  if (!at || cuts.empty() || curve.getStartParam(low) != Acad::eOk || curve.getEndParam(high) != Acad::eOk ||
      (curve.isClosed() && cuts.size() < 2))
    return {};
  const auto above = std::upper_bound(cuts.begin(), cuts.end(), *at);
  if (curve.isClosed()) {
    low = above == cuts.begin() ? cuts.back() : *(above - 1);
    high = above == cuts.end() ? cuts.front() : *above;
  } else {
    if (above != cuts.begin()) low = *(above - 1);
    if (above != cuts.end()) high = *above;
  }
  return without(curve, low, high);
}

void trimAt(const Command& c, AcDbObjectId id, const AcGePoint3d& point, const SelectionSet* set) {
  pickedCurve(c, id);
  CurvePieces pieces;
  if (const AcDbObjectPointer<AcDbCurve> curve(id); curve.openStatus() == Acad::eOk)
    pieces = trimmed(c, *curve.object(), point, set);
  if (pieces.empty()) c.print("\nL'objet ne rencontre aucune limite.");
  else replaceByPieces(c, id, std::move(pieces));
}
CommandTask trim(Command& c) {
  const auto chosen = co_await c.objects();
  for (;;) {
    const auto picked = co_await c.entity("\nPartie à ajuster <fin>: ");
    if (!picked.given()) co_return;
    trimAt(c, picked.value.id, picked.value.point, chosen.given() ? chosen.value.get() : nullptr);
  }
}

// --- extending

// The nearest place beyond the end of a straight or circular part where it meets a limit.
std::optional<AcGePoint3d> reach(const AcDbCurve& part, bool atEnd, const Limits& others, const AcDbCurve* own) {
  AcGePoint3d end, other;
  part.getEndPoint(end);
  part.getStartPoint(other);
  if (!atEnd) std::swap(end, other);
  const AcDbArc* arc = AcDbArc::cast(&part);
  double least = HUGE_VAL;
  std::optional<AcGePoint3d> found;
  for (AcDbStub* stub : others) {
    checkInterruption();
    const AcDbObjectPointer<AcDbCurve> limit{AcDbObjectId(stub)};
    AcGePoint3dArray points;
    if (limit.openStatus() != Acad::eOk || limit.object() == own ||
        part.intersectWith(limit.object(), AcDb::kExtendThis, points) != Acad::eOk)
      continue;
    for (int i = 0; i < points.length(); ++i) {
      double beyond = (points[i] - end).dotProduct((end - other).normal());
      if (arc) {
        const AcGeVector3d v = points[i] - arc->center();
        const double angle = std::atan2(v.y, v.x), turn = 2 * std::numbers::pi;
        beyond = atEnd ? angle - arc->endAngle() : arc->startAngle() - angle;
        beyond -= std::floor(beyond / turn) * turn;
        if (beyond >= turn - arc->totalAngle()) continue;  // on the arc itself
      }
      if (beyond > 1e-9 && beyond < least) least = beyond, found = points[i];
    }
  }
  return found;
}

bool nearerToEnd(const AcDbCurve& curve, const AcGePoint3d& point) {
  const auto at = paramNear(curve, point);
  double low = 0, high = 0;
  return at && curve.getStartParam(low) == Acad::eOk && curve.getEndParam(high) == Acad::eOk && *at > (low + high) / 2;
}

// False when it meets nothing.
bool extendCurve(AcDbCurve& curve, const AcGePoint3d& point, const Limits& others) {
  const bool atEnd = nearerToEnd(curve, point);
  if (AcDbLine* line = AcDbLine::cast(&curve)) {
    const auto to = reach(*line, atEnd, others, &curve);
    return to && (atEnd ? line->setEndPoint(*to) : line->setStartPoint(*to)) == Acad::eOk;
  }
  if (AcDbArc* arc = AcDbArc::cast(&curve)) {
    const auto to = reach(*arc, atEnd, others, &curve);
    if (!to || arc->normal().z < 0) return false;
    const double angle = std::atan2(to->y - arc->center().y, to->x - arc->center().x);
    return (atEnd ? arc->setEndAngle(angle) : arc->setStartAngle(angle)) == Acad::eOk;
  }
  AcDbPolyline* polyline = AcDbPolyline::cast(&curve);
  if (!polyline || polyline->isClosed() || polyline->numVerts() < 2 || polyline->normal().z < 1) return false;
  const unsigned last = polyline->numVerts() - 1, end = atEnd ? last : 0, before = atEnd ? last - 1 : 1;
  double bulge = 0;
  polyline->getBulgeAt(std::min(end, before), bulge);
  if (bulge != 0) return false;
  AcGePoint3d a, b;
  polyline->getPointAt(before, a);
  polyline->getPointAt(end, b);
  const auto to = reach(AcDbLine(a, b), true, others, &curve);
  return to && polyline->setPointAt(end, AcGePoint2d(to->x, to->y)) == Acad::eOk;
}

CommandTask extend(Command& c) {
  const auto chosen = co_await c.objects();
  for (;;) {
    const auto picked = co_await c.entity("\nObjet à prolonger <fin>: ");
    if (!picked.given()) co_return;
    pickedCurve(c, picked.value.id);
    const Limits others = limits(c, chosen.given() ? chosen.value.get() : nullptr);
    const AcDbObjectPointer<AcDbCurve> curve(picked.value.id, AcDb::kForWrite);
    if (curve.openStatus() != Acad::eOk || !extendCurve(*curve, picked.value.point, others))
      c.print("\nL'objet ne rencontre aucune limite.");
  }
}

constexpr CommandRow kTable[] = {
    {"SPLINE", "SPL", spline, "Dessine une courbe par des points."},
    {"BREAK", "BR COUPURE", breakCurve, "Coupe un objet."},
    {"TRIM", "TR AJUSTER", trim, "Ajuste des objets à des limites."},
    {"EXTEND", "EX PROLONGE", extend, "Prolonge des objets jusqu'à des limites."},
};

}  // namespace

std::span<const CommandRow> curveCommands() { return kTable; }

}  // namespace atelier
