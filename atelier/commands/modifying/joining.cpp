// Each pass over what is left joins one curve, since a joined end may touch what didn't touch before.
#include "atelier/commands/modifying/joining.h"

#include "atelier/base/interruption.h"
#include "atelier/document/document.h"
#include "atelier/document/layer_states.h"
#include "atelier/shaping/curve_pieces.h"

namespace atelier {

int joinTo(AcDbPolyline& polyline, const SelectionSet& set, AcDbImpDatabase& database, double reach) {
  std::vector<AcDbStub*> left;
  LayerStates layers(database);
  for (AcDbStub* stub : set.list())
    if (!stub->is(AcDbStub::kErased) && stub != stubOf(&polyline) && !layers.isLocked(*stub)) left.push_back(stub);
  int joined = 0;
  for (bool again = true; again;) {
    again = false;
    for (auto it = left.begin(); it != left.end() && !polyline.isClosed(); ++it) {
      checkInterruption();
      const AcDbCurve* curve = AcDbCurve::cast(&database.object(**it));
      if (!curve || polyline.joinWith(curve, reach) != Acad::eOk) continue;
      const AcDbEntityPointer used(AcDbObjectId(*it), AcDb::kForWrite);
      if (used.openStatus() == Acad::eOk) used->erase();
      left.erase(it);
      ++joined;
      again = true;
      break;
    }
  }
  return joined;
}

int joinAmong(const Command& c, std::vector<AcDbObjectId>& ids, double reach) {
  int joined = 0;
  for (const AcDbObjectId id : ids) {
    checkInterruption();
    SelectionSet others;
    for (const AcDbObjectId other : ids)
      if (other != id && !other.isErased()) others.add(other);
    if (id.isErased()) continue;
    const AcDbObjectPointer<AcDbPolyline> polyline(id, AcDb::kForWrite);
    if (polyline.openStatus() == Acad::eOk) joined += joinTo(*polyline, others, c.document.imp(), reach);
  }
  std::erase_if(ids, [](AcDbObjectId id) { return id.isErased(); });
  return joined;
}

namespace {

constexpr double kReach = 1e-6;

struct Ends {
  AcGePoint3d first, second;
  bool touches(const Ends& other) const {
    return first.distanceTo(other.first) <= kReach || first.distanceTo(other.second) <= kReach ||
           second.distanceTo(other.first) <= kReach || second.distanceTo(other.second) <= kReach;
  }
};

}  // namespace

int joinTouching(const Command& c, const std::vector<AcDbObjectId>& ids) {
  std::vector<std::pair<AcDbObjectId, Ends>> open;
  for (const AcDbObjectId id : ids) {
    const AcDbObjectPointer<AcDbCurve> curve(id);
    Ends ends;
    if (curve.openStatus() == Acad::eOk && !curve->isClosed() && curve->getStartPoint(ends.first) == Acad::eOk &&
        curve->getEndPoint(ends.second) == Acad::eOk)
      open.emplace_back(id, ends);
  }
  std::vector<AcDbObjectId> touching;
  for (const auto& one : open) {
    checkInterruption();
    const auto meets = [&](const auto& other) { return other.first != one.first && one.second.touches(other.second); };
    if (std::any_of(open.begin(), open.end(), meets) && makeLight(c.document, one.first)) touching.push_back(one.first);
  }
  return joinAmong(c, touching, kReach);
}

}  // namespace atelier
