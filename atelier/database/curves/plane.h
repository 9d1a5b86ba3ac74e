// Entities that live in a plane of their own: their normal, and points between that plane and the world.
// Inner header of the room.
#pragma once
#include "atelier/database/objects/imp_object.h"

namespace atelier {

inline AcGeVector3d normalOf(const Record& record, std::string_view subclass) {
  const AcGePoint3d n = record.point(normalField(subclass));
  return n.asVector().isZeroLength() ? AcGeVector3d(0, 0, 1) : n.asVector();
}
inline bool isWorldPlane(const AcGeVector3d& normal) { return normal.x == 0 && normal.y == 0 && normal.z > 0; }
inline AcGePoint3d toWorld(const AcGePoint3d& point, const AcGeVector3d& normal) {
  return isWorldPlane(normal) ? point : AcGeMatrix3d().setToPlaneToWorld(normal) * point;
}
inline AcGePoint3d toPlane(const AcGePoint3d& point, const AcGeVector3d& normal) {
  return isWorldPlane(normal) ? point : AcGeMatrix3d().setToWorldToPlane(normal) * point;
}

// How a matrix changes the plane of an entity: the new normal, the turn of the plane's x axis and the scale in it.
struct PlaneChange {
  PlaneChange(const AcGeMatrix3d& matrix, const AcGeVector3d& before);
  AcGeVector3d normal;
  double turn = 0;        // radians, to add to angles measured in the plane
  double scale = 1;       // of lengths in the plane
  bool mirrored = false;  // angles run the other way round
  // For a line of text at this angle in the plane, when the matrix scales directions differently: sets `turn` to that of
  // the line and `scale` to that of the text height, and gives the factor by which the width changes beyond that.
  double stretchAlong(const AcGeMatrix3d& matrix, const AcGeVector3d& before, double angle);
};

// The angle of a line of text after the change. Letters are not mirrored: the line turns about its anchor, by another
// half turn if a text readable from below or from the right would otherwise be upside down.
double textAngle(const PlaneChange& change, double before);

// Extents of the part of an ellipse c + u cos t + v sin t with t from a to b.
AcDbExtents ellipseExtents(const AcGePoint3d& c, const AcGeVector3d& u, const AcGeVector3d& v, double a, double b);

}  // namespace atelier
