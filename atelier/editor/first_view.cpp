// The header's extents and the active viewport.
// They are written past the undo journal: saving is no step that a user takes back.
#include "atelier/editor/first_view.h"

#include <algorithm>

#include "atelier/dxf/reader.h"
#include "atelier/editor/document.h"

namespace atelier {

void setFirstView(Document& document) {
  AcDbImpDatabase& db = document.imp();
  if (!dxf::beganAsNew(document.database())) return;
  const AcDbExtents box = document.spatialIndex().extents(db.modelSpace());
  AcDbStub* port = db.tableRecord("VPORT", "*Active");
  if (box.isEmpty() || !port) return;
  db.header.setPoint("$EXTMIN", box.minPoint());
  db.header.setPoint("$EXTMAX", box.maxPoint());
  constexpr double kMargin = 1.1;
  constexpr std::string_view kPort = "AcDbViewportTableRecord";
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
