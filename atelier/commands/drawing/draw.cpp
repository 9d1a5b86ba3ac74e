// LINE POINT RECTANG 3DPOLY: drawing with points.
// Geometry is made in the plane of the world.
#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/database/records/flags.h"
#include "atelier/document/document.h"
#include "hote/dbpl.h"

namespace atelier {
namespace {

CommandTask line(Command& c) {
  std::vector<AcGePoint3d> points;
  std::vector<AcDbObjectId> drawn;
  const auto first = co_await c.pointOrEnter("\nPremier point: ");
  points.push_back(first.given() ? *first : c.document.prompter().lastPoint);
  for (;;) {
    const auto next = co_await c.pointOrEnter("\nPoint suivant ou [Clore/annUler] <fin>: ", points.back(),
                                              "Clore annUler _Close Undo");
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
    drawn.push_back(c.add(std::make_unique<AcDbLine>(points.back(), *next)));
    points.push_back(*next);
  }
}

CommandTask point(Command& c) {
  const auto place = co_await c.pointOrEnter("\nPoint: ");
  if (place.given()) c.add(std::make_unique<AcDbPoint>(*place));
}

CommandTask rectangle(Command& c) {
  const auto a = co_await c.pointOrEnter("\nPremier coin: ");
  if (!a.given()) co_return;
  const auto b = co_await c.corner("\nCoin opposé: ", *a);
  const AcGePoint2d corners[] = {flat(*a), {b.value.x, a->y}, flat(b.value), {a->x, b.value.y}};
  auto polyline = std::make_unique<AcDbPolyline>();
  for (unsigned i = 0; i < 4; ++i) polyline->addVertexAt(i, corners[i]);
  polyline->setClosed(true);
  polyline->setElevation(a->z);
  c.add(std::move(polyline));
}

CommandTask polylineInSpace(Command& c) {
  AcGePoint3dArray points;
  bool closed = false;
  for (;;) {
    const std::string prompt = points.isEmpty() ? "\nPremier point: " : "\nPoint suivant ou [Clore/annUler] <fin>: ";
    const auto next = co_await c.pointOrEnter(prompt, {}, "Clore annUler _Close Undo");
    if (next.is("Undo")) {
      if (points.length() > 1) points.removeAt(points.length() - 1);
      continue;
    }
    closed = next.is("Close");
    if (!next.given()) break;
    points.append(*next);
  }
  if (points.length() < 2) co_return;
  const AcDbObjectPointer<AcDb3dPolyline> polyline(c.add(std::make_unique<AcDb3dPolyline>()), AcDb::kForWrite);
  if (polyline.openStatus() != Acad::eOk) co_return;
  for (int i = 0; i < points.length(); ++i) {
    auto vertex = std::make_unique<AcDb3dPolylineVertex>();
    vertex->setPosition(points[i]);
    if (polyline->appendVertex(vertex.get()) == Acad::eOk) vertex.release()->close();
  }
  constexpr Field kFlags = integerField("AcDb3dPolyline", 70);
  AcDbImpObject& imp = AcDbImpObject::of(polyline.object());
  if (closed) imp.setInteger(kFlags, imp.record.integer(kFlags) | PolylineFlags::kClosed);
}

constexpr CommandRow kTable[] = {
    {"LINE", "L LIGNE", line, "Dessine des segments."},
    {"POINT", "PO", point, "Dessine un point."},
    {"RECTANG", "REC RECTANGLE", rectangle, "Dessine un rectangle."},
    {"3DPOLY", "POLY3D", polylineInSpace, "Dessine une polyligne dans l'espace."},
};

}  // namespace

std::span<const CommandRow> drawingCommands() { return kTable; }

}  // namespace atelier
