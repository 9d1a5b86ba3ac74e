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

  // What else of the record every question asks for: looked up once, since its groups stand among those of the vertices.
  AcGeVector3d normal{0, 0, 1};
  double elevation = 0;
  std::optional<double> constantWidth;
  bool closed = false;
  // The geometry of all this, kept for the next question; null until it is asked for, and after a change.
  std::shared_ptr<const Curve> curve;
};

// The decoded vertices of an LWPOLYLINE.
PolylineVertices& verticesOf(const AcDbObject* polyline);
// The same to change them; null when the polyline is not open for write.
PolylineVertices* changedVertices(AcDbObject* polyline);

// Centre and radius of the arc between two points; a bulge of 0 has none.
struct BulgeArc {
  AcGePoint2d centre;
  double radius = 0;
  double startAngle = 0, sweep = 0;  // sweep signed as the bulge
};
BulgeArc bulgeArc(const AcGePoint2d& from, const AcGePoint2d& to, double bulge);

// Of the arc from a to b, ends included, in a plane; of the two points where it is straight.
AcDbExtents bulgeExtents(const AcGePoint2d& from, const AcGePoint2d& to, double bulge, double elevation,
                         const AcGeVector3d& normal);

}  // namespace atelier
