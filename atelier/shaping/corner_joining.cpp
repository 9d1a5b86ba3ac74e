// Shortens or lengthens the sides of a corner, and adds the joint between them.
// A polyline keeps its own plane: the joint is transformed from the plane of the corner.
#include <cmath>

#include "atelier/database/curves/polyline_vertices.h"
#include "atelier/document/adding.h"
#include "atelier/document/document.h"
#include "atelier/shaping/corner_sides.h"
#include "atelier/shaping/curve_pieces.h"
#include "hote/dbpl.h"

namespace atelier {
namespace {

constexpr double kJoin = 1e-6;  // units that ends worked out in two planes may be apart

using Vertices = std::vector<PolylineVertex>;

std::unique_ptr<AcDbCurve> connector(const CornerPlane& plane, const Corner& corner) {
  const BulgeArc arc = bulgeArc(corner.first.point, corner.second.point, corner.bulge);
  if (!(arc.radius > 0))
    return std::make_unique<AcDbLine>(plane.world(corner.first.point), plane.world(corner.second.point));
  const double end = arc.startAngle + arc.sweep;
  return std::make_unique<AcDbArc>(plane.world(arc.centre), plane.normal, arc.radius, std::min(arc.startAngle, end),
                                   std::max(arc.startAngle, end));
}

// --- one side

// The bulge of what is left of an arc segment.
double bulgeLeft(const PickedSide& picked, const Joint& joint, double before) {
  if (!picked.side.track.isRound()) return 0;
  const double sweep = joint.keepsHigh ? picked.side.high - joint.param : joint.param - picked.side.low;
  return std::copysign(std::tan(sweep / 4), before);
}

bool keepsEnd(const PickedSide& picked, const Joint& joint) { return joint.keepsHigh == picked.runsWithTrack; }

void trimPolyline(AcDbPolyline& polyline, const PickedSide& picked, const Joint& joint, const AcGePoint3d& place) {
  PolylineVertices* vertices = changedVertices(&polyline);
  if (!vertices) return;
  const AcGePoint3d own = AcGeMatrix3d().setToWorldToPlane(polyline.normal()) * place;
  Vertices& list = vertices->list;
  const double bulge = bulgeLeft(picked, joint, list[picked.segment].bulge);
  if (keepsEnd(picked, joint)) {
    list.erase(list.begin(), list.begin() + picked.segment);
    list.front().point = {own.x, own.y};
    list.front().bulge = bulge;
  } else {
    list.resize(picked.segment + 1);
    list.back().bulge = bulge;
    const double width = list.back().endWidth;
    list.push_back({{own.x, own.y}, 0, width, width});
  }
}

void trimArc(AcDbArc& arc, const CornerPlane& plane, const Joint& joint, const AcGePoint3d& place) {
  const AcGeMatrix3d own = AcGeMatrix3d().setToWorldToPlane(arc.normal());
  const AcGePoint3d p = own * place, centre = own * arc.center();
  const double angle = std::atan2(p.y - centre.y, p.x - centre.x);
  const bool sameWay = plane.normal.dotProduct(arc.normal()) > 0;
  if (joint.keepsHigh == sameWay) arc.setStartAngle(angle);
  else arc.setEndAngle(angle);
}

// An endless line becomes a ray, a ray becomes a ray or a line.
void trimEndless(Document& document, const PickedSide& picked, const CornerPlane& plane, const Joint& joint) {
  const AcGePoint3d place = plane.world(joint.point);
  const CornerSide& side = picked.side;
  CurvePieces pieces;
  if (std::isfinite(joint.keepsHigh ? side.high : side.low)) {
    pieces.push_back(std::make_unique<AcDbLine>(plane.world(side.track.pointAt(side.low)), place));
  } else {
    auto ray = std::make_unique<AcDbRay>();
    ray->setBasePoint(place);
    ray->setUnitDir(plane.world(side.track.pointAt(joint.param + (joint.keepsHigh ? 1 : -1))) - place);
    pieces.push_back(std::move(ray));
  }
  replaceByPieces(document, picked.id, std::move(pieces));
}

void trimSide(Document& document, const PickedSide& picked, const CornerPlane& plane, const Joint& joint) {
  if (picked.side.whole) return;
  if (!std::isfinite(picked.side.low) || !std::isfinite(picked.side.high))
    return trimEndless(document, picked, plane, joint);
  const AcDbObjectPointer<AcDbCurve> curve(picked.id, AcDb::kForWrite);
  if (curve.openStatus() != Acad::eOk) throw Error("L'objet ne peut pas être modifié.");
  const AcGePoint3d place = plane.world(joint.point);
  if (AcDbPolyline* polyline = AcDbPolyline::cast(curve.object())) trimPolyline(*polyline, picked, joint, place);
  if (AcDbArc* arc = AcDbArc::cast(curve.object())) trimArc(*arc, plane, joint, place);
  AcDbLine* line = AcDbLine::cast(curve.object());
  if (line && joint.keepsHigh) line->setStartPoint(place);
  else if (line) line->setEndPoint(place);
}

// --- two segments of one polyline

// The segments before and after the corner.
struct Between {
  const PickedSide &before, &after;
  const Joint &leaving, &arriving;
  double bulge;
};

// The vertices with the corner between the two segments; vertices in between are removed. `over`: the polyline's start
// lies between the segments.
Vertices withCorner(const Vertices& list, const Between& b, bool over, bool joins) {
  Vertices kept(list.begin() + (over ? b.after.segment + 1 : 0), list.begin() + b.before.segment + 1);
  PolylineVertex from = list[b.before.segment], to = list[b.after.segment];
  kept.back().bulge = bulgeLeft(b.before, b.leaving, kept.back().bulge);
  from.point = b.leaving.point;
  from.bulge = b.bulge;
  from.startWidth = from.endWidth;
  from.identifier = to.identifier = 0;
  to.point = b.arriving.point;
  to.bulge = bulgeLeft(b.after, b.arriving, to.bulge);
  if (joins) kept.push_back(from);
  if (over) {
    kept.insert(kept.begin(), to);
  } else {
    kept.push_back(to);
    kept.insert(kept.end(), list.begin() + b.after.segment + 1, list.end());
  }
  return kept;
}

void joinSegments(const CornerSides& sides, const Corner& corner) {
  const bool inOrder = sides.first.segment < sides.second.segment;
  const PickedSide &low = inOrder ? sides.first : sides.second, &high = inOrder ? sides.second : sides.first;
  const Joint &atLow = inOrder ? corner.first : corner.second, &atHigh = inOrder ? corner.second : corner.first;
  const double bulge = inOrder ? corner.bulge : -corner.bulge;
  const AcDbObjectPointer<AcDbPolyline> polyline(sides.first.id, AcDb::kForWrite);
  if (polyline.openStatus() != Acad::eOk) throw Error("L'objet ne peut pas être modifié.");
  const unsigned count = polyline->numVerts(), segments = low.closed ? count : count - 1;
  const unsigned apart = high.segment - low.segment, around = segments - apart;
  const bool next = apart == 1 || apart == 2, over = low.closed ? around <= 2 : around == 1;
  if (apart == 0 || (!next && !over)) throw Error("Les deux segments ne se suivent pas.");
  // The parts to keep say which of the two ways round is meant.
  const bool forward = next && !keepsEnd(low, atLow) && keepsEnd(high, atHigh);
  if (!forward && (!over || !keepsEnd(low, atLow) || keepsEnd(high, atHigh)))
    throw Error("Les deux segments ne se raccordent pas ainsi.");
  Vertices& list = changedVertices(polyline.object())->list;
  list = forward ? withCorner(list, {low, high, atLow, atHigh, bulge}, false, corner.joins())
                 : withCorner(list, {high, low, atHigh, atLow, -bulge}, true, corner.joins());
  if (!forward) polyline->setClosed(true);
}

// Adds the joint and the other curve to the polyline. False when they don't touch, within a tolerance.
bool takeIn(const PickedSide& taker, const PickedSide& taken, const AcDbCurve* joint) {
  const AcDbObjectPointer<AcDbPolyline> polyline(taker.id, AcDb::kForWrite);
  const AcDbObjectPointer<AcDbCurve> other(taken.id, AcDb::kForWrite);
  if (polyline.openStatus() != Acad::eOk || other.openStatus() != Acad::eOk) return false;
  const Vertices before = verticesOf(polyline.object()).list;
  if ((joint && polyline->joinWith(joint, kJoin) != Acad::eOk) || polyline->isClosed() ||
      polyline->joinWith(other.object(), kJoin) != Acad::eOk) {
    changedVertices(polyline.object())->list = before;
    polyline->setClosed(false);
    return false;
  }
  other->erase();
  return true;
}

// Adds the joint on the layer of both sides, or on the current one when they differ.
void addJoint(Document& document, const CornerSides& sides, std::unique_ptr<AcDbCurve> joint) {
  const AcDbCurve& first = pickedCurve(document, sides.first.id);
  if (first.layerId() != pickedCurve(document, sides.second.id).layerId()) {
    addEntity(document, std::move(joint));
  } else {
    joint->setPropertiesFrom(&first);
    addEntityAsIs(document, std::move(joint));
  }
}

bool isJoinable(const PickedSide& picked) {
  return !picked.side.whole && std::isfinite(picked.side.low) && std::isfinite(picked.side.high);
}

}  // namespace

void applyCorner(Document& document, const CornerSides& sides, const Corner& corner, bool trims) {
  const PickedSide &a = sides.first, &b = sides.second;
  auto joint = corner.joins() ? connector(sides.plane, corner) : nullptr;
  if (trims && sides.samePolyline()) return joinSegments(sides, corner);
  if (trims) {
    if ((a.polyline && a.closed) || (b.polyline && b.closed))
      throw Error("Une polyligne fermée ne se raccorde qu'avec elle-même.");
    trimSide(document, a, sides.plane, corner.first);
    trimSide(document, b, sides.plane, corner.second);
    const bool joined = (a.polyline || b.polyline) && isJoinable(a) && isJoinable(b) &&
                        takeIn(a.polyline ? a : b, a.polyline ? b : a, joint.get());
    if (joined) return;
  }
  if (joint) addJoint(document, sides, std::move(joint));
}

}  // namespace atelier
