// Places are collected from the few entities within the aperture; of polylines only from segments near the cursor.
#include "atelier/desktop/view/snaps.h"

#include <cmath>

#include "atelier/document/layer_states.h"
#include "hote/dbents.h"
#include "hote/dbpl.h"

namespace atelier::desktop {
namespace {

constexpr std::size_t kMostEntities = 200, kMostCrossed = 12;

class Search {
 public:
  Search(const AcGePoint3d& cursor, double aperture, unsigned modes, const std::optional<AcGePoint3d>& base)
      : cursor_(cursor), aperture_(aperture), modes_(modes), base_(base) {}

  void entity(const AcDbEntity& entity) {
    if (const auto* curve = AcDbCurve::cast(&entity)) this->curve(*curve);
    else if (const auto* text = AcDbText::cast(&entity)) offer(kEnd, text->position());
    else if (const auto* insert = AcDbBlockReference::cast(&entity)) offer(kEnd, insert->position());
    else if (const auto* point = AcDbPoint::cast(&entity)) offer(kEnd, point->position());
  }

  void crossings(const AcDbCurve& a, const AcDbCurve& b) {
    AcGePoint3dArray points;
    if (a.intersectWith(&b, AcDb::kOnBothOperands, points) != Acad::eOk) return;
    for (int i = 0; i < points.length(); ++i) offer(kIntersection, points[i]);
  }

  std::optional<Snap> best() const { return exact_ ? exact_ : nearest_; }

 private:
  double distance(const AcGePoint3d& p) const { return std::hypot(p.x - cursor_.x, p.y - cursor_.y); }

  void offer(SnapMode mode, const AcGePoint3d& point) { offer(mode, point, distance(point)); }
  void offer(SnapMode mode, const AcGePoint3d& point, double d) {
    if (!(modes_ & mode) || d > aperture_) return;
    if (mode == kNearest) {
      if (!nearest_ || d < distance(nearest_->point)) nearest_ = Snap{mode, point};
    } else if (!exact_ || d < reach_) {
      exact_ = Snap{mode, point};
      reach_ = d;
    }
  }
  // A centre is found with the cursor on the curve as well as at the centre.
  void centre(const AcGePoint3d& point, const AcGePoint3d& foot) {
    offer(kCentre, point, std::min(distance(point), distance(foot)));
  }

  void curve(const AcDbCurve& curve) {
    AcGePoint3d foot;
    if (curve.getClosestPointTo(cursor_, foot) != Acad::eOk) return;
    offer(kNearest, foot);
    if (const auto* arc = AcDbArc::cast(&curve)) centre(arc->center(), foot);
    if (const auto* circle = AcDbCircle::cast(&curve)) centre(circle->center(), foot);
    if (const auto* ellipse = AcDbEllipse::cast(&curve)) centre(ellipse->center(), foot);
    if (base_ && curve.getClosestPointTo(*base_, foot, true) == Acad::eOk) offer(kPerpendicular, foot);
    if (isPolyline(curve)) segment(curve, foot);
    else whole(curve);
  }

  static bool isPolyline(const AcDbCurve& curve) {
    return AcDbPolyline::cast(&curve) || AcDb2dPolyline::cast(&curve) || AcDb3dPolyline::cast(&curve);
  }

  void at(SnapMode mode, const AcDbCurve& curve, double param) {
    AcGePoint3d point;
    if (curve.getPointAtParam(param, point) == Acad::eOk) offer(mode, point);
  }

  // The ends and the middle of the segment under the cursor.
  void segment(const AcDbCurve& curve, AcGePoint3d foot) {
    double param = 0;
    if (curve.getClosestPointTo(cursor_, foot) != Acad::eOk || curve.getParamAtPoint(foot, param) != Acad::eOk) return;
    const double from = std::floor(param);
    for (const double index : {from - 1, from, from + 1}) {
      at(kEnd, curve, index);
      at(kMiddle, curve, index + 0.5);
    }
  }

  void whole(const AcDbCurve& curve) {
    AcGePoint3d start, end;
    double first = 0, last = 0, before = 0, after = 0, middle = 0;
    if (curve.getStartPoint(start) == Acad::eOk && !curve.isClosed()) offer(kEnd, start);
    if (curve.getEndPoint(end) == Acad::eOk && !curve.isClosed()) offer(kEnd, end);
    if (curve.getStartParam(first) == Acad::eOk && curve.getEndParam(last) == Acad::eOk &&
        curve.getDistAtParam(first, before) == Acad::eOk && curve.getDistAtParam(last, after) == Acad::eOk &&
        curve.getParamAtDist((before + after) / 2, middle) == Acad::eOk)
      at(kMiddle, curve, middle);
  }

  const AcGePoint3d cursor_;
  const double aperture_;
  const unsigned modes_;
  const std::optional<AcGePoint3d> base_;
  std::optional<Snap> exact_, nearest_;
  double reach_ = 0;  // distance to the exact place
};

}  // namespace

std::optional<Snap> findSnap(Document& document, const AcGePoint3d& cursor, double aperture, unsigned modes,
                             const std::optional<AcGePoint3d>& base) {
  if (modes == 0) return std::nullopt;
  AcDbExtents box;
  box.set({cursor.x - aperture, cursor.y - aperture, 0}, {cursor.x + aperture, cursor.y + aperture, 0});
  const std::vector<AcDbStub*> near = document.spatialIndex().query(document.database().currentSpaceId(), box);
  if (near.size() > kMostEntities) return std::nullopt;  // zoomed out too far for a choice
  Search search(cursor, aperture, modes, base);
  LayerStates layers(document.imp());
  std::vector<std::unique_ptr<AcDbEntityPointer>> open;
  for (AcDbStub* stub : near) {
    if (!layers.shows(*stub)) continue;
    auto entity = std::make_unique<AcDbEntityPointer>(idOf(stub));
    if (entity->openStatus() != Acad::eOk) continue;
    search.entity(**entity);
    if (AcDbCurve::cast(*entity) && open.size() < kMostCrossed) open.push_back(std::move(entity));
  }
  if (modes & kIntersection)
    for (std::size_t i = 0; i < open.size(); ++i)
      for (std::size_t j = 0; j < i; ++j) search.crossings(*AcDbCurve::cast(*open[i]), *AcDbCurve::cast(*open[j]));
  return search.best();
}

const char* snapName(SnapMode mode) {
  switch (mode) {
    case kEnd: return "Extrémité";
    case kMiddle: return "Milieu";
    case kCentre: return "Centre";
    case kIntersection: return "Intersection";
    case kPerpendicular: return "Perpendiculaire";
    case kNearest: return "Proche";
  }
  return "";
}

}  // namespace atelier::desktop
