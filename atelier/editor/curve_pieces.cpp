// Pieces of curves.
// A piece that begins where a closed curve began is joined to the one that ends there.
#include "atelier/editor/curve_pieces.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "atelier/database/interruption.h"
#include "atelier/editor/document.h"
#include "hote/dbpl.h"

namespace atelier {
namespace {

constexpr double kSameParam = 1e-9;

double middleOf(const AcDbCurve& curve, const AcDbCurve& piece) {
  double low = 0, high = 0, param = 0;
  AcGePoint3d point;
  piece.getStartParam(low);
  piece.getEndParam(high);
  if (piece.getPointAtParam((low + high) / 2, point) == Acad::eOk) curve.getParamAtPoint(point, param);
  return param;
}

}  // namespace

const AcDbCurve& pickedCurve(const Command& command, AcDbObjectId id) {
  AcDbStub* stub = id;
  const AcDbCurve* curve =
      stub && !stub->is(AcDbStub::kErased) ? AcDbCurve::cast(&command.document.imp().object(*stub)) : nullptr;
  if (!curve) command.fail("L'objet choisi n'est pas une courbe.");
  return *curve;
}

std::optional<double> paramNear(const AcDbCurve& curve, const AcGePoint3d& point) {
  AcGePoint3d foot;
  double param = 0;
  if (curve.getClosestPointTo(point, foot) != Acad::eOk || curve.getParamAtPoint(foot, param) != Acad::eOk) return {};
  return param;
}

std::vector<double> paramsOfMeetings(const AcDbCurve& curve, const std::vector<AcDbStub*>& others) {
  std::vector<double> params;
  for (AcDbStub* stub : others) {
    checkInterruption();
    const AcDbObjectPointer<AcDbCurve> other{AcDbObjectId(stub)};
    AcGePoint3dArray points;
    if (other.openStatus() != Acad::eOk || other.object() == &curve ||
        curve.intersectWith(other.object(), AcDb::kOnBothOperands, points) != Acad::eOk)
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

// What goes on from one angle of a round closed curve to the other; the start of its parameters is no place in it.
std::unique_ptr<AcDbCurve> restOfRound(const AcDbCurve& curve, double from, double to) {
  if (const auto* circle = AcDbCircle::cast(&curve))
    return std::make_unique<AcDbArc>(circle->center(), circle->normal(), circle->radius(), from, to);
  if (const auto* e = AcDbEllipse::cast(&curve))
    return std::make_unique<AcDbEllipse>(e->center(), e->normal(), e->majorAxis(), e->radiusRatio(), from,
                                         to > from ? to : to + 2 * std::numbers::pi);
  return nullptr;
}

}  // namespace

CurvePieces without(const AcDbCurve& curve, double from, double to) {
  const bool closed = curve.isClosed(), taken = std::abs(from - to) > kSameParam;
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
  // A closed polyline is cut at its start, too, where nobody asked.
  if (closed && kept.size() > 1 && AcDbPolyline::cast(kept.back().get()) &&
      AcDbPolyline::cast(kept.back().get())->joinWith(kept.front().get()) == Acad::eOk)
    kept.erase(kept.begin());
  return kept;
}

void replaceByPieces(const Command& command, AcDbObjectId id, CurvePieces pieces) {
  AcDbEntity* entity = nullptr;
  if (acdbOpenAcDbEntity(entity, id, AcDb::kForWrite) != Acad::eOk) command.fail("L'objet ne peut pas être modifié.");
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
  for (std::size_t i = 1; i < pieces.size(); ++i) command.addAsIs(std::move(pieces[i]));
}

}  // namespace atelier
