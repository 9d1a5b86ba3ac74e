// TRIM EXTEND: cuts and lengthens curves to where they meet others.
// Meetings are found in plan. A curve is cut or extended on the side of the picked point.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "atelier/base/interruption.h"
#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/database/curves/polyline_vertices.h"
#include "atelier/document/document.h"
#include "atelier/selecting/selections.h"
#include "atelier/shaping/curve_pieces.h"
#include "hote/dbpl.h"
#include "hote/gecurve.h"

namespace atelier {
namespace {

constexpr const char* kNoLimit = "\nL'objet ne rencontre aucune limite.";
constexpr const char* kLocked = "\nL'objet est sur un calque verrouillé.";

using Limits = std::vector<AcDbStub*>;

// The possible limits: the selection, or without one all entities of the space.
Limits limits(const Command& c, const SelectionSet* set) {
  const AcDbStub* space = c.document.database().currentSpaceId();
  return set ? Limits(set->list().begin(), set->list().end()) : space && space->children ? *space->children : Limits();
}

// The pieces left when the part between the limits on both sides of the point is removed; none without a limit.
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
  pickedCurve(c.document, id);
  CurvePieces pieces;
  if (const AcDbObjectPointer<AcDbCurve> curve(id); curve.openStatus() == Acad::eOk)
    pieces = trimmed(c, *curve.object(), point, set);
  if (pieces.empty()) c.print(kNoLimit);
  else if (isLocked(c.document, id)) c.print(kLocked);
  else replaceByPieces(c.document, id, std::move(pieces));
}

// Calls `work` with each curve that a stretch of a fence crosses, and where. A curve that the work replaced is met again by the
// next stretch only.
template <class WORK>
void alongFence(const Command& c, const AcGePoint3d& a, const AcGePoint3d& b, WORK work) {
  const AcGePoint3d ends[] = {a, b};
  const auto crossed = selectPolygon(c.document, ends, PolygonMode::fence, SelectionFilter());
  if (!crossed) return;
  const AcDbLine fence(a, b);
  const std::vector<AcDbStub*> list(crossed->list().begin(), crossed->list().end());
  for (AcDbStub* stub : list) {
    AcGePoint3dArray points;
    {
      const AcDbObjectPointer<AcDbCurve> curve{AcDbObjectId(stub)};
      if (curve.openStatus() != Acad::eOk ||
          curve->intersectWith(&fence, AcDb::kOnBothOperands, AcGePlane(AcGePoint3d(), AcGeVector3d::kZAxis), points) !=
              Acad::eOk)
        continue;
    }
    if (!points.isEmpty()) work(AcDbObjectId(stub), points[0]);
  }
}

constexpr const char* kFence = "Trajet _Fence";

// Asks for curves one by one, or by fences, and calls `work` where each was met.
CommandTask onCurves(Command& c, std::string prompt,
                     void (*work)(const Command&, AcDbObjectId, const AcGePoint3d&, const SelectionSet*)) {
  const auto chosen = co_await c.objects();
  const SelectionSet* set = chosen.given() ? chosen->get() : nullptr;
  for (;;) {
    const auto picked = co_await c.entity(prompt, kFence);
    if (!picked.given() && !picked.isKeyword()) co_return;
    if (!picked.isKeyword()) {
      work(c, picked->id, picked->point, set);
      continue;
    }
    auto from = co_await c.pointOrEnter("\nPremier point du trajet: ");
    while (from.given()) {
      const auto to = co_await c.pointOrEnter("\nPoint suivant du trajet <fin>: ", *from);
      if (to.given()) alongFence(c, *from, *to, [&](AcDbObjectId id, const AcGePoint3d& p) { work(c, id, p, set); });
      from = to;
    }
  }
}

CommandTask trim(Command& c) { return onCurves(c, "\nPartie à ajuster ou [Trajet] <fin>: ", trimAt); }

// --- extending

// The least value above 0 that `beyond` gives for the places where the lengthened part meets a limit, seen along the
// normal of the plane. Nothing when there is none.
template <class BEYOND>
std::optional<double> reach(const AcDbCurve& part, const AcGeVector3d& normal, const Limits& others,
                            const AcDbCurve* own, BEYOND beyond) {
  std::optional<double> least;
  for (AcDbStub* stub : others) {
    checkInterruption();
    const AcDbObjectPointer<AcDbCurve> limit{AcDbObjectId(stub)};
    AcGePoint3dArray points;
    if (limit.openStatus() != Acad::eOk || limit.object() == own ||
        part.intersectWith(limit.object(), AcDb::kExtendThis, AcGePlane(AcGePoint3d(), normal), points) != Acad::eOk)
      continue;
    for (int i = 0; i < points.length(); ++i)
      if (const double way = beyond(points[i]); way > 1e-9 && (!least || way < *least)) least = way;
  }
  return least;
}

// The new end of a line; its slope continues.
std::optional<AcGePoint3d> lengthened(const AcDbLine& line, bool atEnd, const Limits& others, const AcDbCurve* own) {
  const AcGePoint3d end = atEnd ? line.endPoint() : line.startPoint();
  const AcGeVector3d along = end - (atEnd ? line.startPoint() : line.endPoint());
  const AcGeVector2d way(along.x, along.y);
  const double length = way.length();
  if (!(length > 0)) return std::nullopt;
  const auto beyond = reach(line, AcGeVector3d::kZAxis, others, own, [&](const AcGePoint3d& p) {
    return AcGeVector2d(p.x - end.x, p.y - end.y).dotProduct(way) / length;
  });
  return beyond ? std::optional(end + along * (*beyond / length)) : std::nullopt;
}

// The new end angle of an arc, in its own plane; the arc doesn't overlap itself.
std::optional<double> lengthened(const AcDbArc& arc, bool atEnd, const Limits& others, const AcDbCurve* own) {
  const AcGeMatrix3d plane = AcGeMatrix3d().setToWorldToPlane(arc.normal());
  const AcGePoint3d centre = plane * arc.center();
  constexpr double kTurn = 2 * std::numbers::pi;
  const auto beyond = reach(arc, arc.normal(), others, own, [&](const AcGePoint3d& world) {
    const AcGePoint3d p = plane * world;
    const double angle = std::atan2(p.y - centre.y, p.x - centre.x);
    double way = atEnd ? angle - arc.endAngle() : arc.startAngle() - angle;
    way -= std::floor(way / kTurn) * kTurn;
    return way < kTurn - arc.totalAngle() - 1e-9 ? way : 0;
  });
  if (!beyond) return std::nullopt;
  return atEnd ? arc.endAngle() + *beyond : arc.startAngle() - *beyond;
}

bool extendPolyline(AcDbPolyline& polyline, bool atEnd, const Limits& others) {
  const unsigned count = polyline.numVerts();
  if (polyline.isClosed() || count < 2) return false;
  const unsigned segment = atEnd ? count - 2 : 0, end = atEnd ? count - 1 : 0;
  AcGePoint2d a, b;
  double bulge = 0;
  polyline.getPointAt(segment, a);
  polyline.getPointAt(segment + 1, b);
  polyline.getBulgeAt(segment, bulge);
  const AcGeMatrix3d plane = AcGeMatrix3d().setToPlaneToWorld(polyline.normal());
  const auto world = [&](const AcGePoint2d& p) { return plane * AcGePoint3d(p.x, p.y, polyline.elevation()); };
  const BulgeArc round = bulgeArc(a, b, bulge);
  if (!(round.radius > 0)) {
    const auto to = lengthened(AcDbLine(world(a), world(b)), atEnd, others, &polyline);
    if (!to) return false;
    const AcGePoint3d own = plane.inverse() * *to;
    return polyline.setPointAt(end, AcGePoint2d(own.x, own.y)) == Acad::eOk;
  }
  const double last = round.startAngle + round.sweep;
  const AcDbArc arc(world(round.centre), polyline.normal(), round.radius, std::min(round.startAngle, last),
                    std::max(round.startAngle, last));
  const bool atArcEnd = atEnd == (bulge > 0);
  const auto to = lengthened(arc, atArcEnd, others, &polyline);
  if (!to) return false;
  const double sweep = atArcEnd ? *to - arc.startAngle() : arc.endAngle() - *to;
  const double turned = sweep - std::floor(sweep / (2 * std::numbers::pi)) * 2 * std::numbers::pi;
  polyline.setBulgeAt(segment, std::copysign(std::tan(turned / 4), bulge));
  return polyline.setPointAt(end, round.centre + AcGeVector2d(std::cos(*to), std::sin(*to)) * round.radius) ==
         Acad::eOk;
}

bool nearerToEnd(const AcDbCurve& curve, const AcGePoint3d& point) {
  const auto at = paramNear(curve, point);
  double low = 0, high = 0;
  return at && curve.getStartParam(low) == Acad::eOk && curve.getEndParam(high) == Acad::eOk && *at > (low + high) / 2;
}

// False when the curve meets no limit.
bool extendCurve(AcDbCurve& curve, const AcGePoint3d& point, const Limits& others) {
  const bool atEnd = nearerToEnd(curve, point);
  if (AcDbLine* line = AcDbLine::cast(&curve)) {
    const auto to = lengthened(*line, atEnd, others, line);
    return to && (atEnd ? line->setEndPoint(*to) : line->setStartPoint(*to)) == Acad::eOk;
  }
  if (AcDbArc* arc = AcDbArc::cast(&curve)) {
    const auto to = lengthened(*arc, atEnd, others, arc);
    return to && (atEnd ? arc->setEndAngle(*to) : arc->setStartAngle(*to)) == Acad::eOk;
  }
  AcDbPolyline* polyline = AcDbPolyline::cast(&curve);
  return polyline && extendPolyline(*polyline, atEnd, others);
}

void extendAt(const Command& c, AcDbObjectId id, const AcGePoint3d& point, const SelectionSet* set) {
  pickedCurve(c.document, id);
  if (isLocked(c.document, id)) {
    c.print(kLocked);
    return;
  }
  const Limits others = limits(c, set);
  const AcDbObjectPointer<AcDbCurve> curve(id, AcDb::kForWrite);
  if (curve.openStatus() != Acad::eOk || !extendCurve(*curve, point, others)) c.print(kNoLimit);
}

CommandTask extend(Command& c) { return onCurves(c, "\nObjet à prolonger ou [Trajet] <fin>: ", extendAt); }

constexpr CommandRow kTable[] = {
    {"TRIM", "TR AJUSTER", trim, "Ajuste des objets à des limites."},
    {"EXTEND", "EX PROLONGE", extend, "Prolonge des objets jusqu'à des limites."},
};

}  // namespace

std::span<const CommandRow> trimCommands() { return kTable; }

}  // namespace atelier
