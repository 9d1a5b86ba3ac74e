// The vertices of a lightweight polyline, decoded from its groups 10, 20, 40, 41, 42 and 91.
// Put back into the record when the polyline is closed.
#pragma once
#include <optional>
#include <vector>

#include "atelier/database/objects/imp_object.h"
#include "atelier/geometry/curve.h"

namespace atelier {

struct PolylineVertex {
  AcGePoint2d point;
  double bulge = 0;
  double startWidth = 0, endWidth = 0;
  std::int64_t identifier = 0;  // group 91, 0 when it is not written
};

struct PolylineVertices : AcDbImpObject::Decoded {
  std::vector<PolylineVertex> list;
  void encode(Record& record) const override;

  // Other values that most operations need. They are looked up once, because a search passes all groups of the vertices.
  AcGeVector3d normal{0, 0, 1};
  double elevation = 0;
  std::optional<double> constantWidth;
  bool closed = false;
  // The geometry of these vertices; null until it is first asked for, and after a change.
  std::shared_ptr<const Curve> curve;
};

// The decoded vertices of an LWPOLYLINE.
PolylineVertices& verticesOf(const AcDbObject* polyline);
// The decoded vertices, to be changed; null when the polyline is not open for write.
PolylineVertices* changedVertices(AcDbObject* polyline);

// The arc between two points; there is none for a bulge of 0.
struct BulgeArc {
  AcGePoint2d centre;
  double radius = 0;
  double startAngle = 0, sweep = 0;  // sweep signed as the bulge
};
BulgeArc bulgeArc(const AcGePoint2d& from, const AcGePoint2d& to, double bulge);

// The box in world coordinates around the piece between two vertices, an arc or, for a bulge of 0, a segment.
AcDbExtents bulgeExtents(const AcGePoint2d& from, const AcGePoint2d& to, double bulge, double elevation,
                         const AcGeVector3d& normal);

}  // namespace atelier
