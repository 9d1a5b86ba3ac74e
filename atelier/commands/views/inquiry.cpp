// DIST ID LIST: measures between points, and lists the data of objects.
// Lengths and angles are printed in the drawing's units.
#include <cmath>

#include "atelier/base/text.h"
#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/document/document.h"
#include "atelier/lisp/text/units.h"
#include "hote/dbsymtb.h"

namespace atelier {
namespace {

std::string lengthText(const Command& c, double length) {
  const auto& variables = c.document.variables();
  return lisp::formatDistance(length, static_cast<lisp::LinearUnits>(variables.integer("LUNITS", 2)),
                              variables.integer("LUPREC", 4), {variables.integer("DIMZIN", 0), 0});
}

std::string angleText(const Command& c, double radians) {
  const auto& variables = c.document.variables();
  return lisp::formatAngle(radians, static_cast<lisp::AngularUnits>(variables.integer("AUNITS", 0)),
                           variables.integer("AUPREC", 0), {variables.integer("DIMZIN", 0), 0});
}

std::string pointText(const Command& c, const AcGePoint3d& p) {
  return "X = " + lengthText(c, p.x) + "   Y = " + lengthText(c, p.y) + "   Z = " + lengthText(c, p.z);
}

CommandTask distance(Command& c) {
  const auto first = co_await c.pointOrEnter("\nPremier point: ");
  if (!first.given()) co_return;
  const auto second = co_await c.pointOrEnter("\nDeuxième point: ", *first);
  if (!second.given()) co_return;
  const AcGeVector3d d = *second - *first;
  const double flat = std::hypot(d.x, d.y);
  c.print("\nDistance = " + lengthText(c, d.length()) + ", en plan = " + lengthText(c, flat) +
          ", direction en plan = " + angleText(c, std::atan2(d.y, d.x)));
  c.print("\nÉcarts: " + pointText(c, AcGePoint3d(d.x, d.y, d.z)));
  if (flat > 0) c.print("   Pente = " + lisp::fixedDecimals(d.z / flat * 100, 2) + " %");
  c.print("\n");
  c.document.variables().set("DISTANCE", d.length());
}

CommandTask identify(Command& c) {
  const auto point = co_await c.pointOrEnter("\nPoint: ");
  if (point.given()) c.print("\n" + pointText(c, *point) + "\n");
}

void describeCurve(const Command& c, const AcDbCurve& curve) {
  double low = 0, high = 0, length = 0, area = 0;
  AcGePoint3d start, end;
  if (curve.getStartParam(low) == Acad::eOk && curve.getEndParam(high) == Acad::eOk && std::isfinite(high) &&
      curve.getDistAtParam(high, length) == Acad::eOk)
    c.print("\n  longueur: " + lengthText(c, length));
  if (curve.isClosed() && curve.getArea(area) == Acad::eOk) c.print("\n  aire: " + lengthText(c, area));
  c.document.variables().set("PERIMETER", length);
  c.document.variables().set("AREA", area);
  if (curve.isClosed() || curve.getStartPoint(start) != Acad::eOk || curve.getEndPoint(end) != Acad::eOk) return;
  c.print("\n  de " + pointText(c, start) + "\n  à  " + pointText(c, end));
}

void describe(const Command& c, const AcDbStub& stub) {
  const AcDbEntityPointer entity(idOf(&stub));
  if (entity.openStatus() != Acad::eOk) return;
  AcDbStub* layer = entity->layerId();
  c.print("\n" + std::string(c.document.imp().typeName(stub)) + "  calque: " +
          (layer ? c.document.imp().recordName(*layer) : "") + "  identificateur: " + handleText(stub.handle));
  if (const auto* curve = AcDbCurve::cast(entity.object())) describeCurve(c, *curve);
  if (const auto* text = AcDbText::cast(entity.object())) c.print("\n  texte: " + toUtf8(text->textString()));
  if (const auto* text = AcDbMText::cast(entity.object())) c.print("\n  texte: " + toUtf8(text->contents()));
  if (const auto* reference = AcDbBlockReference::cast(entity.object())) {
    AcDbStub* block = reference->blockTableRecord();
    if (block) c.print("\n  bloc: " + c.document.imp().recordName(*block));
    c.print("\n  en " + pointText(c, reference->position()));
  }
  AcDbExtents box;
  if (!AcDbCurve::cast(entity.object()) && entity->getGeomExtents(box) == Acad::eOk)
    c.print("\n  de " + pointText(c, box.minPoint()) + "\n  à  " + pointText(c, box.maxPoint()));
}

CommandTask list(Command& c) {
  const auto chosen = co_await c.objects();
  if (!chosen.given()) co_return;
  for (const AcDbStub* stub : (*chosen)->list()) describe(c, *stub);
  c.print("\n");
}

void tellArea(const Command& c, double area, double perimeter) {
  c.print("\nAire = " + lengthText(c, area) + ", périmètre = " + lengthText(c, perimeter) + "\n");
  c.document.variables().set("AREA", area);
  c.document.variables().set("PERIMETER", perimeter);
}

// The area within points, or that of an object; an open one is closed by a straight line, which counts for the area only.
CommandTask areaCommand(Command& c) {
  std::vector<AcGePoint3d> points;
  const auto first = co_await c.pointOrEnter("\nPremier point ou [Objet] <Objet>: ", {}, "Objet _Object");
  if (!first.given()) {
    const auto picked = co_await c.entity("\nObjet: ");
    if (!picked.given()) co_return;
    const AcDbObjectPointer<AcDbCurve> curve(picked->id);
    double area = 0, end = 0, length = 0;
    if (curve.openStatus() != Acad::eOk || curve->getArea(area) != Acad::eOk || curve->getEndParam(end) != Acad::eOk ||
        curve->getDistAtParam(end, length) != Acad::eOk)
      c.fail("L'objet choisi n'a pas d'aire.");
    tellArea(c, area, length);
    co_return;
  }
  points.push_back(*first);
  for (;;) {
    const auto next = co_await c.pointOrEnter("\nPoint suivant <fin>: ", points.back());
    if (!next.given()) break;
    points.push_back(*next);
  }
  if (points.size() < 3) c.fail("Trois points au moins sont attendus.");
  double twice = 0, perimeter = 0;
  for (std::size_t i = 0; i < points.size(); ++i) {
    // Taken from the first point: far from the origin products of coordinates lose their last digits.
    const AcGeVector3d a = points[i] - points[0], b = points[(i + 1) % points.size()] - points[0];
    twice += a.x * b.y - a.y * b.x;
    perimeter += std::hypot(b.x - a.x, b.y - a.y);
  }
  tellArea(c, std::abs(twice) / 2, perimeter);
}

constexpr CommandRow kTable[] = {
    {"AREA", "AA AIRE", areaCommand, "Mesure une aire et son périmètre, par points ou par objet."},
    {"DIST", "DI DISTANCE", distance, "Mesure la distance, la direction et la pente entre deux points.", true},
    {"ID", "COORDONNEES", identify, "Donne les coordonnées d'un point.", true},
    {"LIST", "LI LISTE", list, "Décrit des objets: type, calque, longueur, aire, points."},
};

}  // namespace

std::span<const CommandRow> inquiryCommands() { return kTable; }

}  // namespace atelier
