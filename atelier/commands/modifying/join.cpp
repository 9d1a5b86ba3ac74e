// JOIN and REVERSE: lines in a row become one line, other curves that touch a polyline; curves that run the other way.
#include <cmath>

#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/commands/modifying/joining.h"
#include "atelier/document/document.h"
#include "atelier/shaping/curve_pieces.h"
#include "hote/dbpl.h"

namespace atelier {
namespace {

// The line that both lie on, from the first to the last of their four ends; none when they aren't in a row.
std::optional<std::pair<AcGePoint3d, AcGePoint3d>> inARow(const AcDbLine& a, const AcDbLine& b) {
  const AcGeVector3d along = a.endPoint() - a.startPoint();
  const double length = along.length();
  if (length <= 0) return std::nullopt;
  const AcGeVector3d unit = along * (1 / length);
  double low = 0, high = length;
  for (const AcGePoint3d& p : {b.startPoint(), b.endPoint()}) {
    const double at = (p - a.startPoint()).dotProduct(unit);
    if ((a.startPoint() + unit * at).distanceTo(p) > 1e-6 * std::max(1.0, length)) return std::nullopt;
    low = std::min(low, at), high = std::max(high, at);
  }
  return std::pair{a.startPoint() + unit * low, a.startPoint() + unit * high};
}

// Takes the lines that lie in a row with one of them into it; gives their number.
int joinTo(AcDbLine& line, AcDbObjectId own, const std::vector<AcDbObjectId>& ids) {
  int joined = 0;
  for (const AcDbObjectId id : ids) {
    if (id == own || id.isErased()) continue;
    const AcDbObjectPointer<AcDbLine> other(id, AcDb::kForWrite);
    const auto whole = other.openStatus() == Acad::eOk ? inARow(line, *other) : std::nullopt;
    if (!whole) continue;
    line.setStartPoint(whole->first);
    line.setEndPoint(whole->second);
    other->erase();
    ++joined;
  }
  return joined;
}

int joinLines(std::vector<AcDbObjectId>& ids) {
  int joined = 0;
  for (const AcDbObjectId id : ids) {
    const AcDbObjectPointer<AcDbLine> line(id, AcDb::kForWrite);
    if (line.openStatus() == Acad::eOk) joined += joinTo(*line, id, ids);
  }
  std::erase_if(ids, [](AcDbObjectId id) { return id.isErased(); });
  return joined;
}

CommandTask join(Command& c) {
  const auto chosen = co_await c.objects();
  if (!chosen.given()) co_return;
  std::vector<AcDbObjectId> ids;
  for (AcDbStub* stub : (*chosen)->list())
    if (AcDbCurve::cast(&c.document.imp().object(*stub)) && !isLocked(c.document, AcDbObjectId(stub)))
      ids.emplace_back(stub);
  if (ids.empty()) c.fail("Des lignes, arcs ou polylignes ouvertes sont attendus.");
  // A source alone: what is joined to it is asked for next.
  if (ids.size() == 1) {
    const auto more = co_await c.objects();
    if (!more.given()) co_return;
    for (AcDbStub* stub : (*more)->list())
      if (AcDbObjectId(stub) != ids.front() && AcDbCurve::cast(&c.document.imp().object(*stub)) &&
          !isLocked(c.document, AcDbObjectId(stub)))
        ids.emplace_back(stub);
  }
  int joined = joinLines(ids);
  if (ids.size() > 1) joined += joinTouching(c, ids);
  c.print("\n" + std::to_string(joined) + " objet(s) joint(s).");
}

CommandTask reverse(Command& c) {
  const auto chosen = co_await c.objects();
  if (!chosen.given()) co_return;
  c.change(**chosen, [](AcDbEntity& entity) {
    if (auto* curve = AcDbCurve::cast(&entity)) curve->reverseCurve();
  });
}

constexpr CommandRow kTable[] = {
    {"JOIN", "J JOINDRE", join, "Joint des lignes d'une même droite, ou des courbes qui se touchent."},
    {"REVERSE", "INVERSERSENS", reverse, "Inverse le sens de courbes."},
};

}  // namespace

std::span<const CommandRow> joinCommands() { return kTable; }

}  // namespace atelier
