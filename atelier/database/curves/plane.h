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

// How a matrix acts on the plane of an entity: the new normal, the turn of the plane's x axis and the scale in it.
struct PlaneChange {
  PlaneChange(const AcGeMatrix3d& matrix, const AcGeVector3d& before);
  AcGeVector3d normal;
  double turn = 0;        // radians, to add to angles measured in the plane
  double scale = 1;       // of lengths in the plane
  bool mirrored = false;  // angles run the other way round
  // For a line of text at an angle of the plane, when the matrix stretches the plane more in one direction than across:
  // sets turn and scale to those of the line and of its height, and gives what its width changes by beyond them.
  double stretchAlong(const AcGeMatrix3d& matrix, const AcGeVector3d& before, double angle);
};

// The angle of a line of text after the change. Letters are not mirrored: the line turns about its anchor, and by half a
// turn more where one that could be read from below or from the right would stand on its head.
double textAngle(const PlaneChange& change, double before);

// Extents of the part of an ellipse c + u cos t + v sin t with t from a to b.
AcDbExtents ellipseExtents(const AcGePoint3d& c, const AcGeVector3d& u, const AcGeVector3d& v, double a, double b);

}  // namespace atelier
