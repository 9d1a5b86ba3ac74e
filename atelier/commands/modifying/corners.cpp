// FILLET CHAMFER: rounds or cuts the corner of two objects, or all corners of a polyline.
// Only the questions are here; corner.h finds the corner and corner_sides.h puts it into the drawing.
#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/document/document.h"
#include "atelier/shaping/corner_sides.h"
#include "atelier/shaping/curve_pieces.h"
#include "atelier/shaping/polyline_corners.h"
#include "hote/dbpl.h"

namespace atelier {
namespace {

bool trims(const Command& c) { return c.document.variables().integer("TRIMMODE", 1) != 0; }

void joinRounded(const Command& c, const PickedEntity& first, const PickedEntity& second, double radius) {
  checkSide(c.document, second);
  const CornerSides sides = cornerSides(c.document, first, second);
  const auto corner = roundedCorner(sides.first.side, sides.second.side, radius);
  if (!corner && areParallel(sides.first.side, sides.second.side))
    c.fail("Les lignes parallèles ne se raccordent pas à cet endroit.");
  if (!corner && radius > 0) c.fail("Aucun raccord de ce rayon n'est possible.");
  if (!corner) c.fail("Les objets ne se rencontrent pas.");
  applyCorner(c.document, sides, *corner, trims(c));
}

void joinCut(const Command& c, const PickedEntity& first, const PickedEntity& second, double before, double after) {
  checkSide(c.document, second);
  const CornerSides sides = cornerSides(c.document, first, second);
  for (const PickedSide* picked : {&sides.first, &sides.second})
    if (picked->side.track.isRound()) c.fail("Seuls des segments droits se chanfreinent.");
  if (areParallel(sides.first.side, sides.second.side)) c.fail("Les lignes sont parallèles.");
  const auto corner = cutCorner(sides.first.side, sides.second.side, before, after);
  if (!corner) c.fail("Les écarts sont trop grands.");
  applyCorner(c.document, sides, *corner, trims(c));
}

// PATH: gives the new path of the vertices and whether they are closed.
template <class PATH>
void changeWhole(const Command& c, AcDbObjectId id, PATH path) {
  pickedCurve(c.document, id);
  refuseLocked(c.document, id);
  const bool light = makeLight(c.document, id);
  const AcDbPolyline* polyline = light ? AcDbPolyline::cast(&pickedCurve(c.document, id)) : nullptr;
  if (!polyline) c.fail("L'objet choisi n'est pas une polyligne.");
  const CorneredPath cornered = path(verticesOf(polyline).list, polyline->isClosed());
  if (cornered.made > 0) {
    const AcDbObjectPointer<AcDbPolyline> open(id, AcDb::kForWrite);
    PolylineVertices* vertices = open.openStatus() == Acad::eOk ? changedVertices(open.object()) : nullptr;
    if (!vertices) c.fail("L'objet ne peut pas être modifié.");
    vertices->list = cornered.list;
  }
  c.print("\n" + std::to_string(cornered.made) + " sommet(s) modifié(s).");
  if (cornered.tooShort > 0)
    c.print("\n" + std::to_string(cornered.tooShort) + " sommet(s) entre des segments trop courts.");
}

// Sets whether the lines are trimmed, from the answer.
void setTrimming(const Command& c, const MaybeReply<int>& mode) {
  if (mode.isKeyword()) c.document.variables().set("TRIMMODE", mode.is("Trim") ? 1 : 0);
}

constexpr const char* kTrimPrompt = "\nLignes au raccord [Ajuster/Garder]: ";
constexpr const char* kTrimWords = "Ajuster Garder _Trim No";

CommandTask fillet(Command& c) {
  for (bool many = false;;) {
    const double radius = c.document.variables().real("FILLETRAD", 0);
    const std::string prompt =
        "\nPremier objet ou [Polyligne/Rayon/Ajuster/Multiple] <rayon " + realText(radius) + ">: ";
    const auto first = co_await c.entity(prompt, "Polyligne Rayon Ajuster Multiple _Polyline Radius Trim Multiple");
    if (first.is("Multiple")) {
      many = true;
    } else if (first.is("Trim")) {
      const auto mode = co_await c.keyword(kTrimPrompt, kTrimWords);
      setTrimming(c, mode);
    } else if (first.is("Radius")) {
      const auto given = co_await c.distanceOrEnter("\nRayon du raccord: ");
      if (given.valueOr(0) < 0) c.fail("Le rayon ne peut pas être négatif.");
      if (given.given()) c.document.variables().set("FILLETRAD", *given);
    } else if (first.is("Polyline")) {
      const auto whole = co_await c.entity("\nPolyligne: ");
      if (whole.given())
        changeWhole(c, whole->id, [&](const auto& list, bool closed) { return roundedPath(list, closed, radius); });
      if (!many) co_return;
    } else {
      if (!first.given()) co_return;
      checkSide(c.document, *first);
      const auto second = co_await c.entity("\nDeuxième objet: ");
      if (second.given()) joinRounded(c, *first, *second, radius);
      if (!many || !second.given()) co_return;
    }
  }
}

CommandTask chamfer(Command& c) {
  for (bool many = false;;) {
    const double before = c.document.variables().real("CHAMFERA", 0),
                 after = c.document.variables().real("CHAMFERB", 0);
    const std::string prompt = "\nPremière ligne ou [Polyligne/Ecarts/Ajuster/Multiple] <" + realText(before) + " et " +
                               realText(after) + ">: ";
    const auto first = co_await c.entity(prompt, "Polyligne Ecarts Ajuster Multiple _Polyline Distance Trim Multiple");
    if (first.is("Multiple")) {
      many = true;
    } else if (first.is("Trim")) {
      const auto mode = co_await c.keyword(kTrimPrompt, kTrimWords);
      setTrimming(c, mode);
    } else if (first.is("Distance")) {
      const auto one = co_await c.distance("\nPremier écart: ");
      const auto two = co_await c.distanceOrEnter("\nDeuxième écart <le premier>: ");
      if (one.value < 0 || two.valueOr(0) < 0) c.fail("Un écart ne peut pas être négatif.");
      c.document.variables().set("CHAMFERA", one.value);
      c.document.variables().set("CHAMFERB", two.valueOr(one.value));
    } else if (first.is("Polyline")) {
      const auto whole = co_await c.entity("\nPolyligne: ");
      if (whole.given())
        changeWhole(c, whole->id, [&](const auto& list, bool closed) { return cutPath(list, closed, before, after); });
      if (!many) co_return;
    } else {
      if (!first.given()) co_return;
      checkSide(c.document, *first);
      const auto second = co_await c.entity("\nDeuxième ligne: ");
      if (second.given()) joinCut(c, *first, *second, before, after);
      if (!many || !second.given()) co_return;
    }
  }
}

constexpr CommandRow kTable[] = {
    {"FILLET", "F RACCORD", fillet, "Raccorde deux objets par un arc, ou les sommets d'une polyligne."},
    {"CHAMFER", "CHA CHANFREIN", chamfer, "Chanfreine deux lignes, ou les sommets d'une polyligne."},
};

}  // namespace

std::span<const CommandRow> cornerCommands() { return kTable; }

}  // namespace atelier
