// OFFSET FILLET CHAMFER: parallels, and corners that are rounded or cut.
// Corners are those of two lines, or all those of a polyline.
#include <cmath>
#include <numbers>

#include "atelier/editor/command_table.h"
#include "atelier/editor/curve_pieces.h"
#include "atelier/editor/document.h"
#include "atelier/editor/offset_path.h"
#include "hote/dbpl.h"

namespace atelier {
namespace {

std::unique_ptr<AcDbPolyline> polylineOf(const std::vector<PolylineVertex>& list, const AcDbPolyline& like) {
  auto made = std::make_unique<AcDbPolyline>();
  for (unsigned i = 0; i < list.size(); ++i)
    made->addVertexAt(i, list[i].point, list[i].bulge, list[i].startWidth, list[i].endWidth);
  made->setClosed(like.isClosed());
  made->setElevation(like.elevation());
  double width = 0;
  if (like.getConstantWidth(width) == Acad::eOk && width > 0) made->setConstantWidth(width);
  return made;
}

// --- parallels

// The parallel on the side of the point; null for a curve that has none of its own kind.
std::unique_ptr<AcDbCurve> parallelOf(const AcDbCurve& curve, double distance, const AcGePoint3d& side) {
  AcGePoint3d foot;
  const auto at = paramNear(curve, side);
  AcGeVector3d along;
  if (!at || curve.getPointAtParam(*at, foot) != Acad::eOk || curve.getFirstDeriv(*at, along) != Acad::eOk)
    return nullptr;
  const AcGeVector3d toSide = side - foot;
  const double left = along.x * toSide.y - along.y * toSide.x >= 0 ? distance : -distance;
  if (const auto* line = AcDbLine::cast(&curve)) {
    const AcGeVector3d d = line->endPoint() - line->startPoint();
    const double length = std::hypot(d.x, d.y);
    if (length == 0) return nullptr;
    const AcGeVector3d shift(-d.y / length * left, d.x / length * left, 0);
    return std::make_unique<AcDbLine>(line->startPoint() + shift, line->endPoint() + shift);
  }
  if (const auto* circle = AcDbCircle::cast(&curve)) {
    const double radius =
        circle->radius() + (side.distanceTo(circle->center()) < circle->radius() ? -distance : distance);
    return radius > 0 ? std::make_unique<AcDbCircle>(circle->center(), circle->normal(), radius) : nullptr;
  }
  if (const auto* arc = AcDbArc::cast(&curve)) {
    const double radius = arc->radius() + (side.distanceTo(arc->center()) < arc->radius() ? -distance : distance);
    return radius > 0
               ? std::make_unique<AcDbArc>(arc->center(), arc->normal(), radius, arc->startAngle(), arc->endAngle())
               : nullptr;
  }
  const auto* polyline = AcDbPolyline::cast(&curve);
  if (!polyline || polyline->normal().z < 1) return nullptr;
  const auto path = offsetPath(verticesOf(polyline).list, polyline->isClosed(), left);
  if (path.empty()) return nullptr;
  return polylineOf(path, *polyline);
}

CommandTask offset(Command& c) {
  const double known = std::abs(c.document.variables().real("OFFSETDIST", 1));
  const std::string prompt = "\nDistance de décalage ou [Par/Effacer/Calque] <" + realText(known) + ">: ";
  bool erases = false, currentLayer = false;
  auto given = co_await c.distance(prompt, {}, "Par Effacer Calque _Through Erase Layer");
  while (given.is("Erase") || given.is("Layer")) {
    if (given.is("Erase")) {
      const auto yes = co_await c.keyword("\nEffacer l'objet d'origine? [Oui/Non] <N>: ", "Oui Non _Yes No");
      erases = yes.is("Yes");
    } else {
      const auto layer =
          co_await c.keyword("\nCalque du décalage [Courant/Source] <S>: ", "Courant Source _Current Source");
      currentLayer = layer.is("Current");
    }
    given = co_await c.distance(prompt, {}, "Par Effacer Calque _Through Erase Layer");
  }
  const bool through = given.is("Through");
  double distance = given.valueOr(known);
  if (!through && !(distance > 0)) c.fail("La distance doit être positive.");
  if (!through) c.document.variables().set("OFFSETDIST", distance);
  for (;;) {
    const auto picked = co_await c.entity("\nObjet à décaler <fin>: ");
    if (!picked.given()) co_return;
    pickedCurve(c, picked.value.id);
    const auto side = co_await c.point(through ? "\nPoint de passage: " : "\nPoint du côté du décalage: ");
    if (!side.given()) co_return;
    const AcDbCurve& curve = pickedCurve(c, picked.value.id);
    AcGePoint3d foot;
    if (through && curve.getClosestPointTo(side.value, foot) == Acad::eOk)
      distance = std::hypot(side.value.x - foot.x, side.value.y - foot.y);
    auto parallel = parallelOf(curve, distance, side.value);
    if (!parallel) c.fail("L'objet ne se décale pas.");
    parallel->setPropertiesFrom(&curve);
    if (currentLayer) parallel->setLayer(c.document.database().clayer());
    c.addAsIs(std::move(parallel));
    const AcDbEntityPointer source(erases ? picked.value.id : AcDbObjectId(), AcDb::kForWrite);
    if (source.openStatus() == Acad::eOk) source->erase();
  }
}

// --- corners

// How a corner is replaced: the way from it along each side, and the bulge of what joins the two ends.
struct Cut {
  double first = 0, second = 0;
  bool round = false;
};

Cut cutFor(double radius, const AcGeVector2d& u, const AcGeVector2d& v) {
  const double half = std::acos(std::clamp(u.dotProduct(v), -1.0, 1.0)) / 2;
  return {radius / std::tan(half), radius / std::tan(half), true};
}

// The tangent of a quarter of the turn from the one side into the other.
double cornerBulge(const AcGeVector2d& u, const AcGeVector2d& v) {
  const double between = std::acos(std::clamp(u.dotProduct(v), -1.0, 1.0));
  const double bulge = std::tan((std::numbers::pi - between) / 4);
  return u.x * v.y - u.y * v.x > 0 ? -bulge : bulge;
}

struct PickedLine {
  AcDbObjectId id;
  AcGePoint3d corner;
  AcGeVector3d away;  // from the corner towards the picked part, unit
};

PickedLine pickedLine(const Command& c, const PickedEntity& picked) {
  const AcDbLine* line = AcDbLine::cast(&pickedCurve(c, picked.id));
  if (!line) c.fail("Seules les lignes, et les sommets d'une polyligne, se raccordent.");
  return {picked.id, {}, line->endPoint() - line->startPoint()};
}

// Puts the end of the line that is not picked to the place `back` before the corner.
void shorten(const PickedLine& line, double back) {
  const AcDbObjectPointer<AcDbLine> open(line.id, AcDb::kForWrite);
  if (open.openStatus() != Acad::eOk) return;
  const double start = (open->startPoint() - line.corner).dotProduct(line.away);
  const double end = (open->endPoint() - line.corner).dotProduct(line.away);
  const AcGePoint3d place = line.corner + line.away * back;
  if (start < end) open->setStartPoint(place);
  else open->setEndPoint(place);
}

// Finds the corner of two lines and the directions from it to the picked parts.
void findCorner(const Command& c, PickedLine& a, PickedLine& b, const AcGePoint3d& pickA, const AcGePoint3d& pickB) {
  const AcDbCurve &first = pickedCurve(c, a.id), &second = pickedCurve(c, b.id);
  AcGePoint3dArray points;
  if (a.id == b.id || first.intersectWith(&second, AcDb::kExtendBoth, points) != Acad::eOk || points.isEmpty())
    c.fail("Les lignes sont parallèles.");
  for (auto [line, pick] : {std::pair(&a, pickA), std::pair(&b, pickB)}) {
    line->corner = points[0];
    line->away = line->away.normal();
    if ((pick - points[0]).dotProduct(line->away) < 0) line->away = -line->away;
  }
}

void joinLines(const Command& c, PickedLine a, PickedLine b, const PickedEntity& pickA, const PickedEntity& pickB,
               double radius, Cut cut) {
  findCorner(c, a, b, pickA.point, pickB.point);
  const AcGeVector2d u(a.away.x, a.away.y), v(b.away.x, b.away.y);
  if (cut.round) cut = cutFor(radius, u, v);
  if (c.document.variables().integer("TRIMMODE", 1) != 0) {
    shorten(a, cut.first);
    shorten(b, cut.second);
  }
  if (cut.first == 0 && cut.second == 0) return;
  const AcGePoint3d from = a.corner + a.away * cut.first, to = b.corner + b.away * cut.second;
  if (!cut.round) {
    c.add(std::make_unique<AcDbLine>(from, to));
    return;
  }
  const AcGeVector3d middle = (a.away + b.away).normal();
  const AcGePoint3d centre = a.corner + middle * std::hypot(radius, cut.first);
  const double start = (flat(from) - flat(centre)).angle(), end = (flat(to) - flat(centre)).angle();
  const bool leftTurn = u.x * v.y - u.y * v.x < 0;
  c.add(std::make_unique<AcDbArc>(centre, radius, leftTurn ? start : end, leftTurn ? end : start));
}

// Every corner between two straight pieces that are long enough.
void cutPolyline(const Command& c, AcDbObjectId id, double radius, const Cut& given) {
  const AcDbPolyline* polyline = AcDbPolyline::cast(&pickedCurve(c, id));
  if (!polyline) c.fail("L'objet choisi n'est pas une polyligne.");
  const std::vector<PolylineVertex> list = verticesOf(polyline).list;
  const std::size_t count = list.size();
  std::vector<PolylineVertex> path;
  int made = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const bool end = !polyline->isClosed() && (i == 0 || i + 1 == count);
    const PolylineVertex &before = list[(i + count - 1) % count], &after = list[(i + 1) % count];
    const AcGeVector2d in = before.point - list[i].point, out = after.point - list[i].point;
    const AcGeVector2d u = in.normal(), v = out.normal();
    const bool corner = !end && before.bulge == 0 && list[i].bulge == 0 && std::abs(u.x * v.y - u.y * v.x) > 1e-9;
    const Cut cut = corner && given.round ? cutFor(radius, u, v) : given;
    if (!corner || cut.first > in.length() || cut.second > out.length()) {
      path.push_back(list[i]);
      continue;
    }
    ++made;
    path.push_back({list[i].point + u * cut.first, cut.round ? cornerBulge(u, v) : 0});
    path.push_back({list[i].point + v * cut.second});
  }
  c.print("\n" + std::to_string(made) + " sommet(s) modifié(s).");
  CurvePieces pieces;
  pieces.push_back(polylineOf(path, *polyline));
  replaceByPieces(c, id, std::move(pieces));
}

constexpr const char* kTrimPrompt = "\nLignes au raccord [Ajuster/Garder]: ";
constexpr const char* kTrimWords = "Ajuster Garder _Trim No";

CommandTask fillet(Command& c) {
  for (;;) {
    const double radius = c.document.variables().real("FILLETRAD", 0);
    const std::string prompt = "\nPremière ligne ou [Polyligne/Rayon/Ajuster] <rayon " + realText(radius) + ">: ";
    const auto first = co_await c.entity(prompt, "Polyligne Rayon Ajuster _Polyline Radius Trim");
    if (first.is("Trim")) {
      const auto mode = co_await c.keyword(kTrimPrompt, kTrimWords);
      if (mode.answer == Answer::keyword) c.document.variables().set("TRIMMODE", mode.is("Trim") ? 1 : 0);
      continue;
    }
    if (first.is("Radius")) {
      const auto given = co_await c.distance("\nRayon du raccord: ");
      if (given.value < 0) c.fail("Le rayon ne peut pas être négatif.");
      if (given.given()) c.document.variables().set("FILLETRAD", given.value);
      continue;
    }
    if (first.is("Polyline")) {
      const auto polyline = co_await c.entity("\nPolyligne: ");
      if (polyline.given()) cutPolyline(c, polyline.value.id, radius, {0, 0, true});
      co_return;
    }
    if (!first.given()) co_return;
    const PickedLine a = pickedLine(c, first.value);
    const auto second = co_await c.entity("\nDeuxième ligne: ");
    if (second.given()) joinLines(c, a, pickedLine(c, second.value), first.value, second.value, radius, {0, 0, true});
    co_return;
  }
}

CommandTask chamfer(Command& c) {
  for (;;) {
    const Cut cut{c.document.variables().real("CHAMFERA", 0), c.document.variables().real("CHAMFERB", 0), false};
    const std::string prompt = "\nPremière ligne ou [Polyligne/Ecarts/Ajuster] <" + realText(cut.first) + " et " +
                               realText(cut.second) + ">: ";
    const auto first = co_await c.entity(prompt, "Polyligne Ecarts Ajuster _Polyline Distance Trim");
    if (first.is("Trim")) {
      const auto mode = co_await c.keyword(kTrimPrompt, kTrimWords);
      if (mode.answer == Answer::keyword) c.document.variables().set("TRIMMODE", mode.is("Trim") ? 1 : 0);
      continue;
    }
    if (first.is("Distance")) {
      const auto one = co_await c.distance("\nPremier écart: ");
      if (one.value < 0) c.fail("Un écart ne peut pas être négatif.");
      const auto two = co_await c.distance("\nDeuxième écart <le premier>: ");
      c.document.variables().set("CHAMFERA", one.value);
      c.document.variables().set("CHAMFERB", two.valueOr(one.value));
      continue;
    }
    if (first.is("Polyline")) {
      const auto polyline = co_await c.entity("\nPolyligne: ");
      if (polyline.given()) cutPolyline(c, polyline.value.id, 0, cut);
      co_return;
    }
    if (!first.given()) co_return;
    const PickedLine a = pickedLine(c, first.value);
    const auto second = co_await c.entity("\nDeuxième ligne: ");
    if (second.given()) joinLines(c, a, pickedLine(c, second.value), first.value, second.value, 0, cut);
    co_return;
  }
}

constexpr CommandRow kTable[] = {
    {"OFFSET", "O DECALER", offset, "Décale un objet."},
    {"FILLET", "F RACCORD", fillet, "Raccorde deux lignes, ou les sommets d'une polyligne."},
    {"CHAMFER", "CHA CHANFREIN", chamfer, "Chanfreine deux lignes, ou les sommets d'une polyligne."},
};

}  // namespace

std::span<const CommandRow> cornerCommands() { return kTable; }

}  // namespace atelier
