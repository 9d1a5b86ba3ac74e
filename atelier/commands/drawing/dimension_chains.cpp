// DIMCONTINUE DIMBASELINE DIMANGULAR DIMORDINATE: dimensions that go on from another one, of angles and of ordinates.
#include <cmath>
#include <numbers>

#include "atelier/commands/command_table.h"
#include "atelier/commands/drawing/dimensions.h"
#include "atelier/database/dimensions/dimension_style.h"
#include "atelier/database/records/groups.h"
#include "atelier/document/document.h"

namespace atelier {
namespace {

// A linear dimension that others go on from.
struct Chain {
  Measured points;
  AcGePoint3d place;  // on the dimension line
  double angle = 0, step = 0;
  AcGeVector3d up() const { return {-std::sin(angle), std::cos(angle), 0}; }
};

std::optional<Chain> chainOf(Document& document, AcDbStub* stub) {
  if (!stub || stub->is(AcDbStub::kErased)) return std::nullopt;
  const auto* dimension = AcDbDimension::cast(&document.imp().object(*stub));
  if (!dimension) return std::nullopt;
  const Record& record = AcDbImpObject::of(dimension).record;
  const Groups groups(record);
  const int kind = static_cast<int>(groups.integer(70)) & 7;
  if (kind != kRotated && kind != kAligned) return std::nullopt;
  Chain chain{{groups.point(13), groups.point(14)}, groups.point(10)};
  const AcGeVector3d along = chain.points.second - chain.points.first;
  chain.angle = kind == kAligned ? std::atan2(along.y, along.x) : groups.real(50) * std::numbers::pi / 180;
  chain.step = DimensionStyle(document.imp(), record).size("DIMDLI");
  return chain;
}

// The last one that was drawn in the current space.
std::optional<Chain> lastChain(Document& document) {
  AcDbStub* space = document.database().currentSpaceId();
  if (!space || !space->children) return std::nullopt;
  for (auto it = space->children->rbegin(); it != space->children->rend(); ++it)
    if (auto chain = chainOf(document, *it)) return chain;
  return std::nullopt;
}

// The next one lies a step farther from what is measured than the last one.
void stepOut(Chain& chain) {
  const AcGeVector3d up = chain.up();
  const double side = (chain.place - chain.points.second).dotProduct(up) < 0 ? -1 : 1;
  chain.place = chain.place + up * (side * chain.step);
}

CommandTask chained(Command& c, bool fromBase) {
  std::optional<Chain> chain = lastChain(c.document);
  for (;;) {
    if (!chain) {
      const auto picked = co_await c.entity("\nCote linéaire de départ: ");
      if (!picked.given()) co_return;
      chain = chainOf(c.document, picked->id);
      if (!chain) c.fail("Une cote linéaire ou alignée est attendue.");
    }
    const auto next =
        co_await c.pointOrEnter("\nOrigine de l'attache suivante ou [Choisir] <choisir>: ", {}, "Choisir _Select");
    if (!next.given()) {
      chain.reset();
      continue;
    }
    if (fromBase) stepOut(*chain);
    else chain->points.first = chain->points.second;
    chain->points.second = *next;
    addLinear(c, chain->points, chain->angle, chain->place, {});
  }
}

CommandTask continued(Command& c) { return chained(c, false); }
CommandTask fromBaseline(Command& c) { return chained(c, true); }

// Of two lines the vertex is where they meet, and the arms run to their ends that are farther from it.
struct Arms {
  AcGePoint3d vertex, first, second;
};

AcGePoint3d farther(const AcGePoint3d& from, const AcGePoint3d& a, const AcGePoint3d& b) {
  return from.distanceTo(a) > from.distanceTo(b) ? a : b;
}

Arms betweenLines(const Command& c, const Measured& a, const Measured& b) {
  const AcGeVector3d u = a.second - a.first, v = b.second - b.first, w = b.first - a.first;
  const double cross = u.x * v.y - u.y * v.x;
  if (std::abs(cross) <= 1e-9 * u.length() * v.length()) c.fail("Les lignes sont parallèles.");
  const AcGePoint3d vertex = a.first + u * ((w.x * v.y - w.y * v.x) / cross);
  return {vertex, farther(vertex, a.first, a.second), farther(vertex, b.first, b.second)};
}

Measured lineOf(const Command& c, AcDbObjectId id) {
  const AcDbObjectPointer<AcDbLine> line(id);
  if (line.openStatus() != Acad::eOk) c.fail("Une ligne est attendue.");
  return {line->startPoint(), line->endPoint()};
}

CommandTask angular(Command& c) {
  const auto first = co_await c.entity("\nArc, première ligne ou [Sommet] <sommet>: ", "Sommet _Vertex");
  Arms arms;
  if (!first.given()) {
    const auto vertex = co_await c.point("\nSommet de l'angle: ");
    const auto one = co_await c.point("\nPremière extrémité: ", vertex.value);
    const auto other = co_await c.point("\nSeconde extrémité: ", vertex.value);
    arms = {vertex.value, one.value, other.value};
  } else if (const AcDbObjectPointer<AcDbArc> arc(first->id); arc.openStatus() == Acad::eOk) {
    arms.vertex = arc->center();
    arc->getStartPoint(arms.first);
    arc->getEndPoint(arms.second);
  } else {
    const Measured a = lineOf(c, first->id);
    const auto second = co_await c.entity("\nSeconde ligne: ");
    if (!second.given()) co_return;
    arms = betweenLines(c, a, lineOf(c, second->id));
  }
  if (arms.vertex.isEqualTo(arms.first) || arms.vertex.isEqualTo(arms.second)) c.fail("Les points sont confondus.");
  const auto place = co_await c.point("\nEmplacement de l'arc de cote: ");
  addDimension(c, kAngular, place.value,
               {{Group::text(100, "AcDb3PointAngularDimension")},
                ordinates(13, arms.first),
                ordinates(14, arms.second),
                ordinates(15, arms.vertex)},
               {});
}

CommandTask ordinate(Command& c) {
  const auto feature = co_await c.point("\nPoint à coter: ");
  std::optional<bool> alongX;
  for (;;) {
    const auto end = co_await c.point("\nExtrémité de la ligne de repère ou [Xabscisse/Yordonnée]: ", feature.value,
                                      "Xabscisse Yordonnée _Xdatum Ydatum");
    if (end.isKeyword()) {
      alongX = end.is("Xdatum");
      continue;
    }
    const AcGeVector3d leader = end.value - feature.value;
    const bool x = alongX.value_or(std::abs(leader.y) > std::abs(leader.x));
    addDimension(c, kOrdinate | (x ? kAlongX : 0), {},
                 {{Group::text(100, "AcDbOrdinateDimension")}, ordinates(13, feature.value), ordinates(14, end.value)},
                 {});
    co_return;
  }
}

constexpr CommandRow kTable[] = {
    {"DIMCONTINUE", "DCO COTCONT", continued, "Cote à la suite de la dernière cote."},
    {"DIMBASELINE", "DBA COTLIGN", fromBaseline, "Cote depuis l'origine de la dernière cote."},
    {"DIMANGULAR", "DAN COTANG", angular, "Cote un angle."},
    {"DIMORDINATE", "DOR COTORD", ordinate, "Cote l'abscisse ou l'ordonnée d'un point."},
};

}  // namespace

std::span<const CommandRow> dimensionChainCommands() { return kTable; }

}  // namespace atelier
