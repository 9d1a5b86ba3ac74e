// LINE PLINE CIRCLE ARC POINT RECTANG: drawing with points.
// Geometry is made in the plane of the world.
#include <numbers>

#include "atelier/database/polyline_vertices.h"
#include "atelier/editor/command_prompts.h"
#include "atelier/editor/command_table.h"
#include "atelier/editor/document.h"
#include "hote/dbpl.h"

namespace atelier {
namespace {

AcGePoint2d flat(const AcGePoint3d& p) {
  return {p.x, p.y};
}

CommandTask line(Command& c) {
  std::vector<AcGePoint3d> points;
  std::vector<AcDbObjectId> drawn;
  const auto first = co_await c.point("\nPremier point: ");
  points.push_back(first.given() ? first.value : c.document.prompter().lastPoint);
  for (;;) {
    const auto next =
        co_await c.point("\nPoint suivant ou [Clore/annUler]: ", points.back(), "Clore annUler _Close Undo");
    if (next.is("Undo")) {
      if (points.size() < 2) continue;
      const AcDbEntityPointer last(drawn.back(), AcDb::kForWrite);
      if (last.openStatus() == Acad::eOk) last->erase();
      drawn.pop_back();
      points.pop_back();
      continue;
    }
    if (next.is("Close")) {
      if (points.size() > 2) c.add(std::make_unique<AcDbLine>(points.back(), points.front()));
      co_return;
    }
    if (!next.given()) co_return;
    drawn.push_back(c.add(std::make_unique<AcDbLine>(points.back(), next.value)));
    points.push_back(next.value);
  }
}

// --- polyline

struct Drawn {
  std::vector<PolylineVertex> vertices;
  double elevation = 0;
  double startWidth = 0, endWidth = 0;
};

// Direction in which the last segment ends: that of its chord, turned by its bulge.
double endDirection(const Drawn& p) {
  const std::size_t n = p.vertices.size();
  if (n < 2) return 0;
  const PolylineVertex& from = p.vertices[n - 2];
  return (p.vertices[n - 1].point - from.point).angle() + 2 * std::atan(from.bulge);
}

// The bulge of the arc that leaves in a direction and ends at a point: half the angle to the chord gives it.
double tangentBulge(const Drawn& p, const AcGePoint2d& to) {
  double turn = (to - p.vertices.back().point).angle() - endDirection(p);
  turn = std::remainder(turn, 2 * std::numbers::pi);
  return std::tan(turn / 2);
}

void append(Drawn& p, const AcGePoint3d& point, double bulge) {
  p.vertices.back().bulge = bulge;
  p.vertices.back().startWidth = p.startWidth;
  p.vertices.back().endWidth = p.endWidth;
  p.startWidth = p.endWidth;
  p.vertices.push_back({flat(point)});
}

void finish(const Command& c, const Drawn& p, bool closed) {
  if (p.vertices.size() < 2) return;
  auto polyline = std::make_unique<AcDbPolyline>();
  for (unsigned i = 0; i < p.vertices.size(); ++i) {
    const PolylineVertex& v = p.vertices[i];
    polyline->addVertexAt(i, v.point, v.bulge, v.startWidth, v.endWidth);
  }
  polyline->setClosed(closed);
  polyline->setElevation(p.elevation);
  c.add(std::move(polyline));
}

CommandTask pline(Command& c) {
  Drawn p;
  p.startWidth = p.endWidth = c.document.variables().real("PLINEWID", 0);
  const auto first = co_await c.point("\nPoint de départ: ");
  const AcGePoint3d start = first.given() ? first.value : c.document.prompter().lastPoint;
  p.vertices.push_back({flat(start)});
  p.elevation = start.z;
  bool arcs = false;
  for (;;) {
    const AcGePoint3d last(p.vertices.back().point.x, p.vertices.back().point.y, p.elevation);
    const std::string prompt = arcs ? "\nExtrémité de l'arc ou [CLore/LIgne/annUler/LARgeur]: "
                                    : "\nPoint suivant ou [Arc/Clore/annUler/LArgeur]: ";
    const std::string words = arcs ? "CLore LIgne annUler LARgeur _CLose Line Undo Width"
                                   : "Arc Clore annUler LArgeur _Arc Close Undo Width";
    const auto next = co_await c.point(prompt, last, words);
    if (next.given()) {
      append(p, next.value, arcs ? tangentBulge(p, flat(next.value)) : 0);
    } else if (next.is("Arc") || next.is("Line")) {
      arcs = next.is("Arc");
    } else if (next.is("Undo")) {
      if (p.vertices.size() > 1) p.vertices.pop_back();
    } else if (next.is("Width")) {
      const auto from = co_await c.distance("\nLargeur de départ: ", last);
      p.startWidth = from.valueOr(p.startWidth);
      const auto to = co_await c.distance("\nLargeur de fin: ", last);
      p.endWidth = to.valueOr(p.startWidth);
      c.document.variables().set("PLINEWID", p.endWidth);
    } else {
      const bool closed = next.is("Close") || next.is("CLose");
      if (closed) {
        p.vertices.back().bulge = arcs ? tangentBulge(p, p.vertices.front().point) : 0;
        p.vertices.back().startWidth = p.startWidth;
        p.vertices.back().endWidth = p.endWidth;
      }
      finish(c, p, closed);
      co_return;
    }
  }
}

// --- circles and arcs

void addCircle(const Command& c, const AcGePoint3d& centre, double radius) {
  if (!(radius > 0)) c.fail("Le rayon doit être positif.");
  c.add(std::make_unique<AcDbCircle>(centre, AcGeVector3d(0, 0, 1), radius));
  c.document.variables().set("CIRCLERAD", radius);
}

CommandTask circle(Command& c) {
  const auto centre = co_await c.point("\nCentre du cercle ou [3P/2P]: ", {}, "3P 2P _3P 2P");
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
  const auto radius =
      co_await c.distance("\nRayon du cercle ou [Diamètre]: ", centre.value, "Diamètre _Diameter");
  if (radius.is("Diameter")) {
    const auto diameter = co_await c.distance("\nDiamètre: ", centre.value);
    addCircle(c, centre.value, diameter.value / 2);
    co_return;
  }
  addCircle(c, centre.value, radius.valueOr(c.document.variables().real("CIRCLERAD", 0)));
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

CommandTask arc(Command& c) {
  auto first = co_await c.point("\nPoint de départ de l'arc ou [Centre]: ", {}, "Centre _Center");
  const bool centreFirst = first.is("Center");
  AcGePoint3d start = first.value, centre;
  if (centreFirst) {
    const auto given = co_await c.point("\nCentre de l'arc: ");
    centre = given.value;
    const auto begins = co_await c.point("\nPoint de départ de l'arc: ", centre);
    start = begins.value;
  } else {
    const auto second = co_await c.point("\nDeuxième point de l'arc ou [Centre/Extrémité]: ", start,
                                         "Centre Extrémité _Center End");
    if (second.is("End"))
      c.fail("ARC: l'option Extrémité n'est pas offerte; donner le centre ou trois points.");
    if (second.given()) {
      const auto end = co_await c.point("\nExtrémité de l'arc: ", second.value);
      addArcThrough(c, start, second.value, end.value);
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
    addArc(c, centre, radius, turn.value < 0 ? from + turn.value : from,
           turn.value < 0 ? from : from + turn.value);
  } else if (end.given()) {
    addArc(c, centre, radius, from, directionTo(centre, end.value));
  } else {
    const auto chord = co_await c.distance("\nLongueur de la corde: ", start);
    addArc(c, centre, radius, from, from + 2 * std::asin(std::min(1.0, chord.value / (2 * radius))));
  }
}

CommandTask point(Command& c) {
  const auto place = co_await c.point("\nPoint: ");
  if (place.given()) c.add(std::make_unique<AcDbPoint>(place.value));
}

CommandTask rectangle(Command& c) {
  const auto a = co_await c.point("\nPremier coin: ");
  const auto b = co_await c.corner("\nCoin opposé: ", a.value);
  if (!a.given() || !b.given()) co_return;
  Drawn p;
  p.elevation = a.value.z;
  for (const AcGePoint2d corner :
       {flat(a.value), AcGePoint2d(b.value.x, a.value.y), flat(b.value), AcGePoint2d(a.value.x, b.value.y)})
    p.vertices.push_back({corner});
  finish(c, p, true);
}

constexpr CommandRow kTable[] = {
    {"LINE", "L LIGNE", line, "Dessine des segments."},
    {"PLINE", "PL POLYLIGN POLYLIGNE", pline, "Dessine une polyligne de segments et d'arcs."},
    {"CIRCLE", "C CERCLE", circle, "Dessine un cercle."},
    {"ARC", "A", arc, "Dessine un arc."},
    {"POINT", "PO", point, "Dessine un point."},
    {"RECTANG", "REC RECTANGLE", rectangle, "Dessine un rectangle."},
};

}  // namespace

std::span<const CommandRow> drawingCommands() {
  return kTable;
}

}  // namespace atelier
