// CIRCLE ARC: circles and their parts.
// All is drawn in the world's xy plane; arcs run counter-clockwise unless an angle or a radius says otherwise.
#include <cmath>
#include <numbers>

#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/commands/drawing/tangent_circle.h"
#include "atelier/database/curves/polyline_vertices.h"
#include "atelier/document/document.h"

namespace atelier {
namespace {

void addCircle(const Command& c, const AcGePoint3d& centre, double radius) {
  if (!(radius > 0)) c.fail("Le rayon doit être positif.");
  c.add(std::make_unique<AcDbCircle>(centre, AcGeVector3d(0, 0, 1), radius));
  c.document.variables().set("CIRCLERAD", radius);
}

Touched touched(const Command& c, const PickedEntity& picked) {
  const AcDbObjectPointer<AcDbCurve> curve(picked.id);
  const auto found = curve.openStatus() == Acad::eOk ? touchedAt(*curve.object(), picked.point) : std::nullopt;
  if (!found) c.fail("Une ligne, un arc, un cercle ou une polyligne est attendu.");
  return *found;
}

// Touching two curves.
CommandTask tangentCircle(Command& c) {
  const auto first = co_await c.entity("\nPoint sur la première tangente: ");
  if (!first.given()) co_return;
  const Touched a = touched(c, *first);
  const auto second = co_await c.entity("\nPoint sur la seconde tangente: ");
  if (!second.given()) co_return;
  const Touched b = touched(c, *second);
  const double known = c.document.variables().real("CIRCLERAD", 0);
  const std::string prompt = "\nRayon du cercle" + (known > 0 ? " <" + realText(known) + ">" : std::string()) + ": ";
  const auto given = co_await c.distanceOrEnter(prompt);
  const double radius = given.valueOr(known);
  const auto centre = radius > 0 ? tangentCentre(a, flat(first->point), b, flat(second->point), radius) : std::nullopt;
  if (!centre) c.fail("Aucun cercle de ce rayon ne touche les deux objets.");
  addCircle(c, {centre->x, centre->y, 0}, radius);
}

CommandTask circle(Command& c) {
  const auto centre = co_await c.pointOrEnter("\nCentre du cercle ou [3P/2P/Ttr]: ", {}, "3P 2P Ttr _3P 2P Ttr");
  if (centre.is("Ttr")) {
    co_await tangentCircle(c);
    co_return;
  }
  if (centre.is("2P") || centre.is("3P")) {
    const auto a = co_await c.point("\nPremier point: ");
    const auto b = co_await c.point("\nDeuxième point: ", a.value);
    if (centre.is("2P")) {
      addCircle(c, a.value + (b.value - a.value) * 0.5, a.value.distanceTo(b.value) / 2);
      co_return;
    }
    const auto d = co_await c.point("\nTroisième point: ", b.value);
    const AcGeCircArc2d through(flat(a.value), flat(b.value), flat(d.value));
    addCircle(c, {through.center().x, through.center().y, a.value.z}, through.radius());
    co_return;
  }
  if (!centre.given()) co_return;
  // The last radius is offered once there is one.
  const double known = c.document.variables().real("CIRCLERAD", 0);
  const std::string prompt =
      "\nRayon du cercle ou [Diamètre]" + (known > 0 ? " <" + realText(known) + ">" : std::string()) + ": ";
  double length = known;
  bool diameter = false;
  if (known > 0) {
    const auto radius = co_await c.distanceOrEnter(prompt, *centre, "Diamètre _Diameter");
    diameter = radius.is("Diameter");
    length = radius.valueOr(known);
  } else {
    const auto radius = co_await c.distance(prompt, *centre, "Diamètre _Diameter");
    diameter = radius.is("Diameter");
    length = radius.value;
  }
  if (diameter) {
    const auto across = co_await c.distance("\nDiamètre: ", *centre);
    length = across.value / 2;
  }
  addCircle(c, *centre, length);
}

double directionTo(const AcGePoint3d& from, const AcGePoint3d& to) {
  return AcGeVector2d(to.x - from.x, to.y - from.y).angle();
}

void addArc(const Command& c, const AcGePoint3d& centre, double radius, double from, double to) {
  if (!(radius > 0)) c.fail("Les points de l'arc sont alignés ou confondus.");
  c.add(std::make_unique<AcDbArc>(centre, radius, from, to));
}

// Through three points: counter-clockwise from the start when the middle one lies to the right of the chord.
void addArcThrough(const Command& c, const AcGePoint3d& a, const AcGePoint3d& b, const AcGePoint3d& d) {
  const AcGeCircArc2d through(flat(a), flat(b), flat(d));
  const AcGePoint3d centre(through.center().x, through.center().y, a.z);
  const bool counterClockwise = (b.x - a.x) * (d.y - a.y) - (b.y - a.y) * (d.x - a.x) > 0;
  const double from = directionTo(centre, a), to = directionTo(centre, d);
  addArc(c, centre, through.radius(), counterClockwise ? from : to, counterClockwise ? to : from);
}

// The arc from a to b of that bulge.
void addBulgeArc(const Command& c, const AcGePoint3d& a, const AcGePoint3d& b, double bulge) {
  const BulgeArc arc = bulgeArc(flat(a), flat(b), bulge);
  const double end = arc.startAngle + arc.sweep;
  addArc(c, {arc.centre.x, arc.centre.y, a.z}, bulge == 0 ? 0 : arc.radius, arc.sweep > 0 ? arc.startAngle : end,
         arc.sweep > 0 ? end : arc.startAngle);
}

// The bulge of the arc of that radius between the points, counter-clockwise; a negative radius is that of the longer arc.
double bulgeOfRadius(const Command& c, double chord, double radius) {
  const double part = chord / (2 * std::abs(radius));
  if (!(part <= 1)) c.fail("Le rayon est trop petit pour ces extrémités.");
  const double half = std::asin(part);
  return std::tan((radius > 0 ? half : std::numbers::pi - half) / 2);
}

CommandTask arcCommand(Command& c) {
  const auto first = co_await c.point("\nPoint de départ de l'arc ou [Centre]: ", {}, "Centre _Center");
  AcGePoint3d start = first.value, centre;
  if (first.is("Center")) {
    const auto given = co_await c.point("\nCentre de l'arc: ");
    centre = given.value;
    const auto begins = co_await c.point("\nPoint de départ de l'arc: ", centre);
    start = begins.value;
  } else {
    const auto second =
        co_await c.point("\nDeuxième point de l'arc ou [Centre/Extrémité]: ", start, "Centre Extrémité _Center End");
    if (!second.isKeyword()) {
      const auto end = co_await c.point("\nExtrémité de l'arc: ", second.value);
      addArcThrough(c, start, second.value, end.value);
      co_return;
    }
    if (second.is("End")) {
      const auto end = co_await c.point("\nExtrémité de l'arc: ", start);
      const auto how = co_await c.point("\nCentre de l'arc ou [Angle/Direction/Rayon]: ", start,
                                        "Angle Direction Rayon _Angle Direction Radius");
      const AcGePoint3d to = end.value;
      if (how.is("Angle")) {
        const auto turn = co_await c.angle("\nAngle décrit: ");
        addBulgeArc(c, start, to, std::tan(turn.value / 4));
      } else if (how.is("Direction")) {
        const auto tangent = co_await c.angle("\nDirection de la tangente au départ: ", start);
        addBulgeArc(c, start, to,
                    std::tan(std::remainder(directionTo(start, to) - tangent.value, 2 * std::numbers::pi) / 2));
      } else if (how.is("Radius")) {
        const auto radius = co_await c.distance("\nRayon de l'arc: ", to);
        addBulgeArc(c, start, to, bulgeOfRadius(c, start.distanceTo(to), radius.value));
      } else {
        const AcGePoint3d middle = how.value;
        addArc(c, middle, std::hypot(start.x - middle.x, start.y - middle.y), directionTo(middle, start),
               directionTo(middle, to));
      }
      co_return;
    }
    const auto given = co_await c.point("\nCentre de l'arc: ", start);
    centre = given.value;
  }
  const double radius = std::hypot(start.x - centre.x, start.y - centre.y), from = directionTo(centre, start);
  const auto end = co_await c.point("\nExtrémité de l'arc ou [Angle/longueur de Corde]: ", centre,
                                    "Angle Corde _Angle chord-Length");
  if (end.is("Angle")) {
    const auto turn = co_await c.angle("\nAngle décrit: ");
    addArc(c, centre, radius, turn.value < 0 ? from + turn.value : from, turn.value < 0 ? from : from + turn.value);
  } else if (!end.isKeyword()) {
    addArc(c, centre, radius, from, directionTo(centre, end.value));
  } else {
    const auto chord = co_await c.distance("\nLongueur de la corde: ", start);
    addArc(c, centre, radius, from, from + 2 * std::asin(std::min(1.0, chord.value / (2 * radius))));
  }
}

constexpr CommandRow kTable[] = {
    {"CIRCLE", "C CERCLE", circle, "Dessine un cercle."},
    {"ARC", "A", arcCommand, "Dessine un arc."},
};

}  // namespace

std::span<const CommandRow> arcCommands() { return kTable; }

}  // namespace atelier
