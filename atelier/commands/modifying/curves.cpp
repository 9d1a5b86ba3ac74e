// SPLINE BREAK: draws curves through points, and cuts curves at points.
// No piece without length results from a cut.
#include <cmath>

#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/document/document.h"
#include "atelier/shaping/curve_pieces.h"
#include "hote/dbpl.h"

namespace atelier {
namespace {

CommandTask spline(Command& c) {
  AcGePoint3dArray points;
  const auto first = co_await c.pointOrEnter("\nPremier point: ");
  if (!first.given()) co_return;
  points.append(*first);
  bool closed = false;
  for (;;) {
    const std::string prompt =
        points.length() > 2 ? "\nPoint suivant ou [Clore/annUler] <fin>: " : "\nPoint suivant ou [annUler] <fin>: ";
    const auto next = co_await c.pointOrEnter(prompt, points[points.length() - 1], "Clore annUler _Close Undo");
    if (next.is("Undo")) {
      if (points.length() > 1) points.removeAt(points.length() - 1);
      continue;
    }
    closed = next.is("Close") && points.length() > 2;
    if (closed) points.append(*first);
    if (!next.given()) break;
    points.append(*next);
  }
  if (points.length() < 2) c.fail("Une courbe demande au moins deux points.");
  AcGeVector3d tangents[2];
  if (!closed) {
    for (const int side : {0, 1}) {
      const std::string prompt = side == 0 ? "\nTangente de départ <libre>: " : "\nTangente de fin <libre>: ";
      const AcGePoint3d at = side == 0 ? points[0] : points[points.length() - 1];
      const auto to = co_await c.pointOrEnter(prompt, at);
      if (to.given()) tangents[side] = *to - at;
    }
  }
  auto made = tangents[0].length() > 0 && tangents[1].length() > 0
                  ? std::make_unique<AcDbSpline>(points, tangents[0], tangents[1])
                  : std::make_unique<AcDbSpline>(points);
  if (made->isNull()) c.fail("Ces points ne donnent pas de courbe.");
  c.add(std::move(made));
}

// For an object that was named, not picked, the first point is asked for.
CommandTask breakCurve(Command& c) {
  const auto picked = co_await c.entity("\nObjet à couper: ");
  if (!picked.given()) co_return;
  AcGePoint3d first = picked->point;
  if (picked->byPoint) c.document.prompter().lastPoint = first;  // "@" then cuts where it was picked
  const std::string prompt =
      picked->byPoint ? "\nDeuxième point de coupure ou [Premier point]: " : "\nPremier point de coupure: ";
  const auto answer = co_await c.point(prompt, {}, "Premier _First");
  AcGePoint3d second = answer.value;
  if (answer.isKeyword() || !picked->byPoint) {
    first = answer.value;
    if (answer.isKeyword()) {
      const auto given = co_await c.point("\nPremier point de coupure: ");
      first = given.value;
    }
    const auto end = co_await c.pointOrEnter("\nDeuxième point de coupure <le premier>: ", first);
    second = end.valueOr(first);
  }
  const AcDbCurve& curve = pickedCurve(c.document, picked->id);
  refuseLocked(c.document, picked->id);
  const auto nearFirst = paramNear(curve, first), nearSecond = paramNear(curve, second);
  if (!nearFirst || !nearSecond) c.fail("Le point n'est pas sur l'objet.");
  const double from = settledParam(curve, *nearFirst), to = settledParam(curve, *nearSecond);
  const bool one = isOnePlace(curve, from, to);
  if (curve.isClosed() && one) c.fail("Un objet fermé se coupe en deux points.");
  CurvePieces pieces = without(curve, from, to);
  if (pieces.empty() && one) c.fail("Le point est à l'extrémité de l'objet: il n'y a rien à couper.");
  if (pieces.empty()) c.fail("Il ne resterait rien de l'objet.");
  replaceByPieces(c.document, picked->id, std::move(pieces));
}

constexpr CommandRow kTable[] = {
    {"SPLINE", "SPL", spline, "Dessine une courbe par des points."},
    {"BREAK", "BR COUPURE", breakCurve, "Coupe un objet."},
};

}  // namespace

std::span<const CommandRow> curveCommands() { return kTable; }

}  // namespace atelier
