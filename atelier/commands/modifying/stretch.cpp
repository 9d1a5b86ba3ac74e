// STRETCH LENGTHEN.
#include <cmath>
#include <numbers>

#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/commands/modifying/displacement.h"
#include "atelier/document/document.h"
#include "atelier/selecting/flat_path.h"
#include "atelier/shaping/curve_pieces.h"
#include "atelier/shaping/stretching.h"
#include "hote/dbpl.h"

namespace atelier {
namespace {

CommandTask stretchCommand(Command& c) {
  const auto chosen = co_await c.objects();
  if (!chosen.given()) co_return;
  const std::vector<AcGePoint3d> area = (*chosen)->crossed;
  if (area.empty()) c.fail("Une fenêtre ou un polygone de capture est attendu.");
  AcGeVector3d by;
  co_await askDisplacement(c, by);
  const Moves moves = [&](const AcGePoint3d& place) { return insidePolygon(place, area); };
  c.change(**chosen, [&](AcDbEntity& entity) { stretch(entity, moves, by); });
}

// --- LENGTHEN

struct Lengthening {
  enum class Mode { delta, percent, total } mode = Mode::delta;
  double value = 0;
  double lengthOf(double now) const {
    if (mode == Mode::delta) return now + value;
    return mode == Mode::percent ? now * value / 100 : value;
  }
};

// Gives an open line, arc or light polyline another length at one end. False when it can't have it.
bool setLength(AcDbCurve& curve, double length, bool atStart) {
  double now = 0, last = 0;
  if (curve.isClosed() || !(length > 0) || curve.getEndParam(last) != Acad::eOk ||
      curve.getDistAtParam(last, now) != Acad::eOk || !(now > 0))
    return false;
  if (auto* line = AcDbLine::cast(&curve)) {
    const AcGePoint3d fixed = atStart ? line->endPoint() : line->startPoint();
    const AcGePoint3d moved = fixed + ((atStart ? line->startPoint() : line->endPoint()) - fixed) * (length / now);
    return (atStart ? line->setStartPoint(moved) : line->setEndPoint(moved)) == Acad::eOk;
  }
  if (auto* arc = AcDbArc::cast(&curve)) {
    const double angle = length / arc->radius();
    if (angle >= 2 * std::numbers::pi) return false;
    return (atStart ? arc->setStartAngle(arc->endAngle() - angle) : arc->setEndAngle(arc->startAngle() + angle)) ==
           Acad::eOk;
  }
  auto* polyline = AcDbPolyline::cast(&curve);
  if (!polyline || polyline->numVerts() < 2) return false;
  // The last segment takes it all; one that would be used up is refused.
  const unsigned end = atStart ? 0 : polyline->numVerts() - 1, before = atStart ? 1 : end - 1;
  AcGePoint2d a, b;
  double bulge = 0;
  polyline->getPointAt(before, a);
  polyline->getPointAt(end, b);
  polyline->getBulgeAt(std::min(end, before), bulge);
  const double segment = a.distanceTo(b), wanted = segment + length - now;
  if (bulge != 0 || !(segment > 0) || !(wanted > 0)) return false;
  return polyline->setPointAt(end, a + (b - a) * (wanted / segment)) == Acad::eOk;
}

bool isNearStart(const AcDbCurve& curve, const PickedEntity& picked) {
  AcGePoint3d start, end;
  return picked.byPoint && curve.getStartPoint(start) == Acad::eOk && curve.getEndPoint(end) == Acad::eOk &&
         picked.point.distanceTo(start) < picked.point.distanceTo(end);
}

CommandTask lengthen(Command& c) {
  constexpr const char* kModes = "DElta Pourcentage Total _DElta Percent Total";
  const auto mode = co_await c.entity("\nObjet à mesurer ou [DElta/Pourcentage/Total]: ", kModes);
  if (mode.given()) {
    const AcDbObjectPointer<AcDbCurve> curve(mode->id);
    double end = 0, length = 0;
    if (curve.openStatus() != Acad::eOk || curve->getEndParam(end) != Acad::eOk ||
        curve->getDistAtParam(end, length) != Acad::eOk)
      c.fail("L'objet choisi n'est pas une courbe qui a une longueur.");
    c.print("\nLongueur: " + realText(length));
    co_return;
  }
  if (!mode.isKeyword()) co_return;
  Lengthening change;
  if (mode.is("Percent")) {
    const auto value = co_await c.real("\nPourcentage de la longueur: ");
    change = {Lengthening::Mode::percent, value.value};
  } else if (mode.is("Total")) {
    const auto value = co_await c.distance("\nLongueur totale: ");
    change = {Lengthening::Mode::total, value.value};
  } else {
    const auto value = co_await c.distance("\nLongueur à ajouter: ");
    change = {Lengthening::Mode::delta, value.value};
  }
  for (;;) {
    const auto picked = co_await c.entity("\nObjet à modifier <fin>: ");
    if (!picked.given()) co_return;
    refuseLocked(c.document, picked->id);
    const AcDbObjectPointer<AcDbCurve> curve(picked->id, AcDb::kForWrite);
    double end = 0, now = 0;
    if (curve.openStatus() != Acad::eOk || curve->getEndParam(end) != Acad::eOk ||
        curve->getDistAtParam(end, now) != Acad::eOk ||
        !setLength(*curve, change.lengthOf(now), isNearStart(*curve, *picked)))
      c.print("\nCet objet ne peut pas avoir cette longueur.");
  }
}

constexpr CommandRow kTable[] = {
    {"STRETCH", "S ETIRER", stretchCommand, "Déplace ce qui est dans une fenêtre de capture; le reste suit."},
    {"LENGTHEN", "LEN MODIFLONG", lengthen, "Change la longueur de lignes, d'arcs et de polylignes."},
};

}  // namespace

std::span<const CommandRow> stretchCommands() { return kTable; }

}  // namespace atelier
