// PLINE: a polyline of segments and arcs.
// An arc leaves in the direction in which the last piece ends, unless an option says otherwise.
#include <cmath>
#include <numbers>

#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/database/curves/polyline_vertices.h"
#include "atelier/document/document.h"
#include "hote/dbpl.h"

namespace atelier {
namespace {

struct Drawn {
  std::vector<PolylineVertex> vertices;
  double elevation = 0;
  double startWidth = 0, endWidth = 0;
  AcGePoint2d last() const { return vertices.back().point; }
};

// Direction in which the last segment ends: that of its chord, turned by its bulge.
double endDirection(const Drawn& p) {
  const std::size_t n = p.vertices.size();
  if (n < 2) return 0;
  const PolylineVertex& from = p.vertices[n - 2];
  return (p.vertices[n - 1].point - from.point).angle() + 2 * std::atan(from.bulge);
}

// The bulge of the arc that leaves in a direction and ends at a point: half the angle to the chord gives it.
double tangentBulge(const Drawn& p, double direction, const AcGePoint2d& to) {
  return std::tan(std::remainder((to - p.last()).angle() - direction, 2 * std::numbers::pi) / 2);
}

void append(Drawn& p, const AcGePoint2d& point, double bulge) {
  p.vertices.back().bulge = bulge;
  p.vertices.back().startWidth = p.startWidth;
  p.vertices.back().endWidth = p.endWidth;
  p.startWidth = p.endWidth;
  p.vertices.push_back({point});
}

// Counter-clockwise about the centre, as far as the direction to the point.
void appendAbout(const Command& c, Drawn& p, const AcGePoint2d& centre, double endAngle) {
  const AcGeVector2d from = p.last() - centre;
  const double turn = 2 * std::numbers::pi;
  double sweep = std::remainder(endAngle - from.angle(), turn);
  if (sweep <= 0) sweep += turn;
  if (!(from.length() > 0) || sweep >= turn) c.fail("L'arc n'est pas défini par ce centre.");
  append(p, centre + AcGeVector2d(std::cos(endAngle), std::sin(endAngle)) * from.length(), std::tan(sweep / 4));
}

// The shorter arc of that radius, on the side to which the polyline turns.
void appendOfRadius(const Command& c, Drawn& p, double radius, const AcGePoint2d& to) {
  const double part = (to - p.last()).length() / (2 * radius);
  if (!(part <= 1)) c.fail("Le rayon est trop petit pour cette extrémité.");
  append(p, to, std::copysign(std::tan(std::asin(part) / 2), tangentBulge(p, endDirection(p), to)));
}

void appendThrough(const Command& c, Drawn& p, const AcGePoint2d& middle, const AcGePoint2d& to) {
  // The angles at the middle point over both halves of the chord make up half the arc's turn.
  const double turn = std::remainder((to - middle).angle() - (middle - p.last()).angle(), 2 * std::numbers::pi);
  if (!(std::abs(turn) < std::numbers::pi)) c.fail("Les points de l'arc sont confondus.");
  append(p, to, std::tan(turn / 2));
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

constexpr const char* kSegmentPrompt = "\nPoint suivant ou [Arc/Clore/DEmi-largeur/LOngueur/annUler/LArgeur] <fin>: ";
constexpr const char* kSegmentWords =
    "Arc Clore DEmi-largeur LOngueur annUler LArgeur _Arc Close Halfwidth Length Undo Width";
constexpr const char* kArcPrompt =
    "\nExtrémité de l'arc ou [Angle/CEntre/CLore/Direction/DEmi-largeur/LIgne/Rayon/Second/annUler/LARgeur] <fin>: ";
constexpr const char* kArcWords =
    "Angle CEntre CLore Direction DEmi-largeur LIgne Rayon Second annUler LARgeur "
    "_Angle CEnter CLose Direction Halfwidth Line Radius Second Undo Width";

CommandTask pline(Command& c) {
  Drawn p;
  p.startWidth = p.endWidth = c.document.variables().real("PLINEWID", 0);
  const auto first = co_await c.pointOrEnter("\nPoint de départ: ");
  const AcGePoint3d start = first.given() ? *first : c.document.prompter().lastPoint;
  p.vertices.push_back({flat(start)});
  p.elevation = start.z;
  bool arcs = false;
  for (;;) {
    const AcGePoint3d last(p.last().x, p.last().y, p.elevation);
    const auto next =
        co_await c.pointOrEnter(arcs ? kArcPrompt : kSegmentPrompt, last, arcs ? kArcWords : kSegmentWords);
    if (next.given()) {
      append(p, flat(*next), arcs ? tangentBulge(p, endDirection(p), flat(*next)) : 0);
    } else if (next.is("Arc") || next.is("Line")) {
      arcs = next.is("Arc");
    } else if (next.is("Undo")) {
      if (p.vertices.size() > 1) p.vertices.pop_back();
    } else if (next.is("Width") || next.is("Halfwidth")) {
      const double times = next.is("Width") ? 1 : 2;
      const auto from = co_await c.distanceOrEnter("\nLargeur de départ: ", last);
      if (from.given()) p.startWidth = times * *from;
      const auto to = co_await c.distanceOrEnter("\nLargeur de fin: ", last);
      p.endWidth = to.given() ? times * *to : p.startWidth;
      c.document.variables().set("PLINEWID", p.endWidth);
    } else if (next.is("Length")) {
      const auto length = co_await c.distanceOrEnter("\nLongueur du segment: ", last);
      const double direction = endDirection(p);
      if (length.given()) append(p, p.last() + AcGeVector2d(std::cos(direction), std::sin(direction)) * *length, 0);
    } else if (next.is("Angle")) {
      const auto turn = co_await c.angle("\nAngle décrit: ");
      const auto end = co_await c.point("\nExtrémité de l'arc: ", last);
      append(p, flat(end.value), std::tan(turn.value / 4));
    } else if (next.is("CEnter")) {
      const auto centre = co_await c.point("\nCentre de l'arc: ", last);
      const auto end = co_await c.point("\nExtrémité de l'arc: ", centre.value);
      appendAbout(c, p, flat(centre.value), (flat(end.value) - flat(centre.value)).angle());
    } else if (next.is("Direction")) {
      const auto tangent = co_await c.angle("\nDirection de la tangente au départ: ", last);
      const auto end = co_await c.point("\nExtrémité de l'arc: ", last);
      append(p, flat(end.value), tangentBulge(p, tangent.value, flat(end.value)));
    } else if (next.is("Radius")) {
      const auto radius = co_await c.distance("\nRayon de l'arc: ", last);
      const auto end = co_await c.point("\nExtrémité de l'arc: ", last);
      appendOfRadius(c, p, radius.value, flat(end.value));
    } else if (next.is("Second")) {
      const auto middle = co_await c.point("\nDeuxième point de l'arc: ", last);
      const auto end = co_await c.point("\nExtrémité de l'arc: ", middle.value);
      appendThrough(c, p, flat(middle.value), flat(end.value));
    } else {
      const bool closed = next.is("Close") || next.is("CLose");
      if (closed) {
        p.vertices.back().bulge = arcs ? tangentBulge(p, endDirection(p), p.vertices.front().point) : 0;
        p.vertices.back().startWidth = p.startWidth;
        p.vertices.back().endWidth = p.endWidth;
      }
      finish(c, p, closed);
      co_return;
    }
  }
}

constexpr CommandRow kTable[] = {
    {"PLINE", "PL POLYLIGN POLYLIGNE", pline, "Dessine une polyligne de segments et d'arcs."},
};

}  // namespace

std::span<const CommandRow> plineCommands() { return kTable; }

}  // namespace atelier
