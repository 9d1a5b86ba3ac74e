// Polylines: the lightweight one, and the two- and three-dimensional ones with vertex entities of their own.
// A bulge is the tangent of a quarter of the arc's angle, positive to the left of the chord.
#pragma once
#include "hote/dbents.h"

class AcDbPolyline : public AcDbCurve {
 public:
  ACRX_DECLARE_MEMBERS(AcDbPolyline)
  AcDbPolyline();
  explicit AcDbPolyline(unsigned int numVerts);  // reserves room only: the polyline has no vertex yet
  unsigned int numVerts() const;
  bool isClosed() const override;
  void setClosed(bool closed);
  double elevation() const;
  void setElevation(double elevation);
  AcGeVector3d normal() const;
  bool hasBulges() const;
  bool hasWidth() const;
  // A width of -1 takes the default, 0. An index outside the vertices: eInvalidIndex.
  Acad::ErrorStatus addVertexAt(unsigned int index, const AcGePoint2d& point, double bulge = 0, double startWidth = -1,
                                double endWidth = -1);
  Acad::ErrorStatus removeVertexAt(unsigned int index);
  Acad::ErrorStatus getPointAt(unsigned int index, AcGePoint2d& point) const;  // in the plane of the polyline
  Acad::ErrorStatus getPointAt(unsigned int index, AcGePoint3d& point) const;  // in the world
  Acad::ErrorStatus setPointAt(unsigned int index, const AcGePoint2d& point);
  Acad::ErrorStatus getBulgeAt(unsigned int index, double& bulge) const;
  Acad::ErrorStatus setBulgeAt(unsigned int index, double bulge);
  Acad::ErrorStatus getWidthsAt(unsigned int index, double& startWidth, double& endWidth) const;
  Acad::ErrorStatus setWidthsAt(unsigned int index, double startWidth, double endWidth);
  Acad::ErrorStatus getConstantWidth(double& width) const;
  Acad::ErrorStatus setConstantWidth(double width);
  Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
  // Takes the vertices, plane and properties of a simple or curve-fit polyline. eNotApplicable for any other entity or
  // type. eNotImplementedYet with transferId: taking the source's place in the drawing is not offered.
  Acad::ErrorStatus convertFrom(AcDbEntity*& source, bool transferId = true);
  // Appends a line, an arc or a polyline of the same plane that begins or ends at an end of this one; it is reversed
  // when needed. eInvalidInput for a curve that doesn't touch, eNotApplicable for another class.
  Acad::ErrorStatus joinWith(const AcDbEntity* other, double tolerance = 1e-8);
  Acad::ErrorStatus getStartPoint(AcGePoint3d& point) const override;
  Acad::ErrorStatus getEndPoint(AcGePoint3d& point) const override;
  Acad::ErrorStatus getArea(double& area) const override;
  Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
  Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;
};

class AcDbVertex : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbVertex)
  AcDbVertex();
  AcGePoint3d position() const;
  Acad::ErrorStatus setPosition(const AcGePoint3d& position);
  double bulge() const;
  double startWidth() const;
  double endWidth() const;
  int flags() const;  // group 70
  AcDb::Vertex2dType vertexType() const;
  Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;
};

// One class serves for the vertices of both kinds.
using AcDb2dVertex = AcDbVertex;
using AcDb3dPolylineVertex = AcDbVertex;

class AcDb2dPolyline : public AcDbCurve {
 public:
  ACRX_DECLARE_MEMBERS(AcDb2dPolyline)
  AcDb2dPolyline();
  AcDb::Poly2dType polyType() const;
  bool isClosed() const override;
  double elevation() const;
  AcGeVector3d normal() const;
  AcDbObjectIterator* vertexIterator() const;
  Acad::ErrorStatus openVertex(AcDbVertex*& vertex, AcDbObjectId id, AcDb::OpenMode mode,
                               bool openErased = false) const;
  Acad::ErrorStatus appendVertex(AcDbVertex* vertex);
  Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
  Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;
};

class AcDb3dPolyline : public AcDbCurve {
 public:
  ACRX_DECLARE_MEMBERS(AcDb3dPolyline)
  AcDb3dPolyline();
  AcDb::Poly3dType polyType() const;
  bool isClosed() const override;
  AcDbObjectIterator* vertexIterator() const;
  Acad::ErrorStatus openVertex(AcDbVertex*& vertex, AcDbObjectId id, AcDb::OpenMode mode,
                               bool openErased = false) const;
  Acad::ErrorStatus appendVertex(AcDbVertex* vertex);
  Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
  Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;
};
