// Pieces of curves.
// A piece that begins where a closed curve began is joined to the one that ends there.
#include "atelier/shaping/curve_pieces.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "atelier/base/interruption.h"
#include "atelier/database/curves/curve_geometry.h"
#include "atelier/document/adding.h"
#include "atelier/document/document.h"
#include "atelier/document/layer_states.h"
#include "hote/dbpl.h"
#include "hote/gecurve.h"

namespace atelier {
namespace {

constexpr double kSameParam = 1e-9;
constexpr double kNoLength = 1e-7;  // units: a shorter piece is left out

double middleOf(const AcDbCurve& curve, const AcDbCurve& piece) {
  double low = 0, high = 0, param = 0;
  AcGePoint3d point;
  piece.getStartParam(low);
  piece.getEndParam(high);
  if (piece.getPointAtParam((low + high) / 2, point) == Acad::eOk) curve.getParamAtPoint(point, param);
  return param;
}

}  // namespace

const AcDbCurve& pickedCurve(Document& document, AcDbObjectId id) {
  AcDbStub* stub = id;
  const AcDbCurve* curve =
      stub && !stub->is(AcDbStub::kErased) ? AcDbCurve::cast(&document.imp().object(*stub)) : nullptr;
  if (!curve) throw Error("L'objet choisi n'est pas une courbe.");
  return *curve;
}

bool isLocked(Document& document, AcDbObjectId id) {
  AcDbStub* stub = id;
  return stub && LayerStates(document.imp()).isLocked(*stub);
}

void refuseLocked(Document& document, AcDbObjectId id) {
  if (isLocked(document, id)) throw Error("L'objet est sur un calque verrouillé.");
}

bool makeLight(Document& document, AcDbObjectId id) {
  checkInterruption();
  const AcDbCurve& curve = pickedCurve(document, id);
  if (AcDbPolyline::cast(&curve)) return true;
  auto made = std::make_unique<AcDbPolyline>();
  if (AcDb2dPolyline::cast(&curve)) {
    AcDbEntity* source = const_cast<AcDbCurve*>(&curve);
    if (made->convertFrom(source, false) != Acad::eOk) return false;
  } else {
    const AcDbArc* arc = AcDbArc::cast(&curve);
    AcGePoint3d start, end;
    if ((!arc && !AcDbLine::cast(&curve)) || curve.getStartPoint(start) != Acad::eOk ||
        curve.getEndPoint(end) != Acad::eOk)
      return false;
    const AcGeVector3d normal = arc ? arc->normal() : AcGeVector3d::kZAxis;
    const AcGeMatrix3d toPlane = AcGeMatrix3d().setToPlaneToWorld(normal).inverse();
    const AcGePoint3d a = toPlane * start, b = toPlane * end;
    made->addVertexAt(0, AcGePoint2d(a.x, a.y), arc ? std::tan(arc->totalAngle() / 4) : 0);
    made->addVertexAt(1, AcGePoint2d(b.x, b.y));
    made->setElevation(a.z);
    if (normal.z < 1) made->setNormal(normal);
  }
  CurvePieces pieces;
  pieces.push_back(std::move(made));
  replaceByPieces(document, id, std::move(pieces));
  return true;
}

std::optional<double> paramNear(const AcDbCurve& curve, const AcGePoint3d& point) {
  const auto shape = curveOf(curve);
  if (!shape || !std::isfinite(point.x + point.y + point.z)) return std::nullopt;
  constexpr double kOnCurve = 1e-6;
  if (const auto on = shape->paramAt(point, kOnCurve)) return on;
  return shape->inPlan().closest({point.x, point.y, 0}).param;
}

std::vector<double> paramsOfMeetings(const AcDbCurve& curve, const std::vector<AcDbStub*>& others) {
  std::vector<double> params;
  for (AcDbStub* stub : others) {
    checkInterruption();
    const AcDbObjectPointer<AcDbCurve> other{AcDbObjectId(stub)};
    AcGePoint3dArray points;
    if (other.openStatus() != Acad::eOk || other.object() == &curve ||
        curve.intersectWith(other.object(), AcDb::kOnBothOperands, AcGePlane::kXYPlane, points) != Acad::eOk)
      continue;
    for (int i = 0; i < points.length(); ++i)
      if (const auto param = paramNear(curve, points[i])) params.push_back(*param);
  }
  std::sort(params.begin(), params.end());
  params.erase(std::unique(params.begin(), params.end(), [](double a, double b) { return b - a < kSameParam; }),
               params.end());
  return params;
}

namespace {

// The part of a round closed curve from one angle on to the other, as one piece even across the start.
std::unique_ptr<AcDbCurve> restOfRound(const AcDbCurve& curve, double from, double to) {
  if (const auto* circle = AcDbCircle::cast(&curve))
    return std::make_unique<AcDbArc>(circle->center(), circle->normal(), circle->radius(), from, to);
  if (const auto* e = AcDbEllipse::cast(&curve))
    return std::make_unique<AcDbEllipse>(e->center(), e->normal(), e->majorAxis(), e->radiusRatio(), from,
                                         to > from ? to : to + 2 * std::numbers::pi);
  return nullptr;
}

}  // namespace

double settledParam(const AcDbCurve& curve, double param) {
  double low = 0, high = 0, along = 0, whole = 0;
  const bool begins = curve.getStartParam(low) == Acad::eOk;
  if (curve.getDistAtParam(param, along) != Acad::eOk) return param;
  if (begins && along <= kNoLength) return low;
  const bool ends = curve.getEndParam(high) == Acad::eOk && curve.getDistAtParam(high, whole) == Acad::eOk;
  if (ends && whole - along <= kNoLength) return curve.isClosed() ? low : high;
  return param;
}

bool isOnePlace(const AcDbCurve& curve, double a, double b) {
  double atA = 0, atB = 0;
  if (curve.getDistAtParam(a, atA) != Acad::eOk || curve.getDistAtParam(b, atB) != Acad::eOk)
    return std::abs(a - b) <= kSameParam;
  return std::abs(atA - atB) <= kNoLength;
}

CurvePieces without(const AcDbCurve& curve, double from, double to) {
  from = settledParam(curve, from);
  to = settledParam(curve, to);
  const bool closed = curve.isClosed(), taken = !isOnePlace(curve, from, to);
  CurvePieces kept;
  if (closed && taken) {
    if (auto rest = restOfRound(curve, to, from)) {
      kept.push_back(std::move(rest));
      return kept;
    }
  }
  if (!closed && from > to) std::swap(from, to);
  AcGeDoubleArray params;
  params.append(from);
  if (taken) params.append(to);
  AcArray<AcDbCurve*> parts;
  if (curve.getSplitCurves(params, parts) != Acad::eOk) return kept;
  for (int i = 0; i < parts.length(); ++i) {
    std::unique_ptr<AcDbCurve> part(parts[i]);
    const double middle = middleOf(curve, *part);
    const bool inside = from <= to ? middle > from && middle < to : middle > from || middle < to;
    if (!taken || !inside) kept.push_back(std::move(part));
  }
  // A closed polyline has also been cut at its start: these two pieces are joined again.
  if (closed && kept.size() > 1 && AcDbPolyline::cast(kept.back().get()) &&
      AcDbPolyline::cast(kept.back().get())->joinWith(kept.front().get()) == Acad::eOk)
    kept.erase(kept.begin());
  return kept;
}

void replaceByPieces(Document& document, AcDbObjectId id, CurvePieces pieces) {
  AcDbEntity* entity = nullptr;
  if (acdbOpenAcDbEntity(entity, id, AcDb::kForWrite) != Acad::eOk) throw Error("L'objet ne peut pas être modifié.");
  if (pieces.empty()) {
    entity->erase();
    entity->close();
    return;
  }
  AcDbCurve* first = pieces.front().release();
  first->setPropertiesFrom(entity);
  for (std::size_t i = 1; i < pieces.size(); ++i) pieces[i]->setPropertiesFrom(entity);
  if (entity->handOverTo(first) == Acad::eObjectToBeDeleted) delete entity;
  first->close();
  for (std::size_t i = 1; i < pieces.size(); ++i) addEntityAsIs(document, std::move(pieces[i]));
}

}  // namespace atelier
