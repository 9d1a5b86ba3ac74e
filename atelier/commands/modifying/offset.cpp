// OFFSET: parallels.
// The parallel is of the same kind as the curve and lies in the same plane.
#include <algorithm>
#include <cmath>

#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/document/document.h"
#include "atelier/shaping/curve_pieces.h"
#include "atelier/shaping/offset_path.h"
#include "hote/dbpl.h"

namespace atelier {
namespace {

std::unique_ptr<AcDbPolyline> polylineOf(const std::vector<PolylineVertex>& list, const AcDbPolyline& like) {
  auto made = std::make_unique<AcDbPolyline>();
  for (unsigned i = 0; i < list.size(); ++i)
    made->addVertexAt(i, list[i].point, list[i].bulge, list[i].startWidth, list[i].endWidth);
  made->setClosed(like.isClosed());
  made->setElevation(like.elevation());
  if (like.normal().z < 1) made->setNormal(like.normal());
  double width = 0;
  if (like.getConstantWidth(width) == Acad::eOk && width > 0) made->setConstantWidth(width);
  return made;
}

// Whether the point lies to the left of the curve, seen against its normal; at a corner both directions count.
bool liesLeft(const AcDbCurve& curve, const AcGeVector3d& normal, const AcGePoint3d& point) {
  AcGePoint3d foot;
  const auto at = paramNear(curve, point);
  double low = 0, high = 0;
  if (!at || curve.getPointAtParam(*at, foot) != Acad::eOk) return false;
  curve.getStartParam(low);
  curve.getEndParam(high);
  const double hair = 1e-6 * (high - low);
  AcGeVector3d way;
  for (const double aside : {-hair, hair}) {
    double param = *at + aside;
    if (curve.isClosed() && param < low) param += high - low;
    if (curve.isClosed() && param > high) param -= high - low;
    AcGeVector3d along;
    if (curve.getFirstDeriv(std::clamp(param, low, high), along) == Acad::eOk) way = way + along.normal();
  }
  return normal.dotProduct(way.crossProduct(point - foot)) >= 0;
}

double parallelRadius(double radius, const AcGePoint3d& centre, const AcGeVector3d& normal, double distance,
                      const AcGePoint3d& side) {
  const AcGeVector3d v = side - centre, inPlane = v - normal * v.dotProduct(normal);
  return radius + (inPlane.length() < radius ? -distance : distance);
}

// The parallel on the side of the point; null for a curve without a parallel of its kind.
std::unique_ptr<AcDbCurve> parallelOf(const AcDbCurve& curve, double distance, const AcGePoint3d& side) {
  if (const auto* line = AcDbLine::cast(&curve)) {
    const AcGeVector3d d = line->endPoint() - line->startPoint();
    const double length = std::hypot(d.x, d.y);
    if (length == 0) return nullptr;
    const double left = liesLeft(*line, AcGeVector3d::kZAxis, side) ? distance : -distance;
    const AcGeVector3d shift(-d.y / length * left, d.x / length * left, 0);
    return std::make_unique<AcDbLine>(line->startPoint() + shift, line->endPoint() + shift);
  }
  if (const auto* circle = AcDbCircle::cast(&curve)) {
    const double radius = parallelRadius(circle->radius(), circle->center(), circle->normal(), distance, side);
    return radius > 0 ? std::make_unique<AcDbCircle>(circle->center(), circle->normal(), radius) : nullptr;
  }
  if (const auto* arc = AcDbArc::cast(&curve)) {
    const double radius = parallelRadius(arc->radius(), arc->center(), arc->normal(), distance, side);
    return radius > 0
               ? std::make_unique<AcDbArc>(arc->center(), arc->normal(), radius, arc->startAngle(), arc->endAngle())
               : nullptr;
  }
  const auto* polyline = AcDbPolyline::cast(&curve);
  if (!polyline) return nullptr;
  const double left = liesLeft(*polyline, polyline->normal(), side) ? distance : -distance;
  const auto path = offsetPath(verticesOf(polyline).list, polyline->isClosed(), left);
  if (path.empty()) return nullptr;
  return polylineOf(path, *polyline);
}

CommandTask offset(Command& c) {
  const double known = std::abs(c.document.variables().real("OFFSETDIST", 1));
  const std::string prompt = "\nDistance de décalage ou [Par/Effacer/Calque] <" + realText(known) + ">: ";
  bool erases = false, currentLayer = false;
  auto given = co_await c.distanceOrEnter(prompt, {}, "Par Effacer Calque _Through Erase Layer");
  while (given.is("Erase") || given.is("Layer")) {
    if (given.is("Erase")) {
      const auto yes = co_await c.keyword("\nEffacer l'objet d'origine? [Oui/Non] <N>: ", "Oui Non _Yes No");
      erases = yes.is("Yes");
    } else {
      const auto layer =
          co_await c.keyword("\nCalque du décalage [Courant/Source] <S>: ", "Courant Source _Current Source");
      currentLayer = layer.is("Current");
    }
    given = co_await c.distanceOrEnter(prompt, {}, "Par Effacer Calque _Through Erase Layer");
  }
  const bool through = given.is("Through");
  double distance = given.valueOr(known);
  if (!through && !(distance > 0)) c.fail("La distance doit être positive.");
  if (!through) c.document.variables().set("OFFSETDIST", distance);
  for (;;) {
    const auto picked = co_await c.entity("\nObjet à décaler <fin>: ");
    if (!picked.given()) co_return;
    pickedCurve(c.document, picked->id);
    const auto side = co_await c.pointOrEnter(through ? "\nPoint de passage: " : "\nPoint du côté du décalage: ");
    if (!side.given()) co_return;
    const AcDbCurve& curve = pickedCurve(c.document, picked->id);
    AcGePoint3d foot;
    const auto nearest = paramNear(curve, *side);
    if (through && nearest && curve.getPointAtParam(*nearest, foot) == Acad::eOk)
      distance = std::hypot(side->x - foot.x, side->y - foot.y);
    auto parallel = parallelOf(curve, distance, *side);
    if (!parallel) c.fail("L'objet ne se décale pas.");
    parallel->setPropertiesFrom(&curve);
    if (currentLayer) parallel->setLayer(c.document.database().clayer());
    c.addAsIs(std::move(parallel));
    const AcDbEntityPointer source(erases ? picked->id : AcDbObjectId(), AcDb::kForWrite);
    if (source.openStatus() == Acad::eOk) source->erase();
  }
}

constexpr CommandRow kTable[] = {
    {"OFFSET", "O DECALER", offset, "Décale un objet."},
};

}  // namespace

std::span<const CommandRow> offsetCommands() { return kTable; }

}  // namespace atelier
