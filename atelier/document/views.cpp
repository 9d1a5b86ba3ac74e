// The active viewport and the header's extents.
// They are written without the undo journal: saving is not a step to undo.
#include "atelier/document/views.h"

#include "hote/adaptation.h"

#include <algorithm>

namespace atelier {
namespace {

constexpr std::string_view kPort = "AcDbViewportTableRecord";

}  // namespace

View activeView(AcDbImpDatabase& database) {
  View view;
  AcDbStub* port = database.tableRecord("VPORT", "*Active");
  if (!port) return view;
  const Record& record = AcDbImpObject::of(&database.object(*port)).record;
  view.centre = record.point(point2Field(kPort, 12));
  const double height = record.real(realField(kPort, 40));
  if (height > 0) view.height = height;
  return view;
}

void setFirstView(AcDbImpDatabase& db, const AcDbExtents& box) {
  AcDbStub* port = db.tableRecord("VPORT", "*Active");
  if (adaptation::isEmpty(box) || !port) return;
  db.header.setPoint("$EXTMIN", box.minPoint());
  db.header.setPoint("$EXTMAX", box.maxPoint());
  constexpr double kMargin = 1.1;
  Record& record = AcDbImpObject::of(&db.object(*port)).record;
  const AcGeVector3d size = box.maxPoint() - box.minPoint();
  const double ratio = std::max(record.real(realField(kPort, 41, 1)), 0.1);
  const double height = kMargin * std::max({size.y, size.x / ratio, 1e-6});
  if (!std::isfinite(height)) return;
  record.setPoint(point2Field(kPort, 12), box.minPoint() + size * 0.5);
  record.setReal(realField(kPort, 40), height);
  port->set(AcDbStub::kChanged);
}

}  // namespace atelier
