// The entity classes. Points and vectors are in world coordinates unless the class says otherwise; heights, radii
// and lengths in drawing units, angles in radians. Setters answer eNotOpenForWrite for an object open for reading.
#pragma once
#include <memory>

#include "hote/dbmain.h"

class AcDbSpline;

// What a curve's parameter means depends on its class: on a line the length from its start, on arcs and ellipses an
// angle, on polylines the index of a vertex plus the fraction of the way to the next, on splines a knot value. Every
// operation answers eInvalidInput for a parameter, distance or point that is not on the curve, eDegenerateGeometry for
// a curve without geometry (one vertex, no length, values that aren't finite); its results are then unchanged. Rays
// have a start but no end, construction lines neither; both measure from their base point.
class AcDbCurve : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbCurve)
  virtual bool isClosed() const;
  virtual Acad::ErrorStatus getStartParam(double& param) const;
  virtual Acad::ErrorStatus getEndParam(double& param) const;
  virtual Acad::ErrorStatus getStartPoint(AcGePoint3d& point) const;
  virtual Acad::ErrorStatus getEndPoint(AcGePoint3d& point) const;
  virtual Acad::ErrorStatus getPointAtParam(double param, AcGePoint3d& point) const;
  // The point must lie within 1e-7 drawing units of the curve.
  virtual Acad::ErrorStatus getParamAtPoint(const AcGePoint3d& point, double& param) const;
  // Distances run along the curve, in drawing units, from its start.
  virtual Acad::ErrorStatus getDistAtParam(double param, double& distance) const;
  virtual Acad::ErrorStatus getParamAtDist(double distance, double& param) const;
  virtual Acad::ErrorStatus getDistAtPoint(const AcGePoint3d& point, double& distance) const;
  virtual Acad::ErrorStatus getPointAtDist(double distance, AcGePoint3d& point) const;
  virtual Acad::ErrorStatus getFirstDeriv(double param, AcGeVector3d& derivative) const;
  virtual Acad::ErrorStatus getSecondDeriv(double param, AcGeVector3d& derivative) const;
  virtual Acad::ErrorStatus getClosestPointTo(const AcGePoint3d& point, AcGePoint3d& onCurve,
                                              bool extend = false) const;
  // The area enclosed, in square drawing units; an open curve is closed by a chord. eNotApplicable for straight
  // entities, eInvalidInput for a curve that doesn't lie in a plane.
  virtual Acad::ErrorStatus getArea(double& area) const;
  // A new spline of the same shape, with this curve's properties; the caller owns it.
  virtual Acad::ErrorStatus getSpline(AcDbSpline*& spline) const;
  // Cuts at these parameters or points and appends the pieces, from this curve's start to its end; the caller owns
  // them. They have this curve's properties. A closed curve other than a circle or an ellipse is also cut at its start.
  // Parameters may come in any order and more than once; eInvalidInput, without pieces, when none lies inside.
  virtual Acad::ErrorStatus getSplitCurves(const AcGeDoubleArray& params, AcArray<AcDbCurve*>& curves) const;
  virtual Acad::ErrorStatus getSplitCurves(const AcGePoint3dArray& points, AcArray<AcDbCurve*>& curves) const;
  virtual Acad::ErrorStatus reverseCurve();
  Acad::ErrorStatus intersectWith(const AcDbEntity* entity, AcDb::Intersect mode, AcGePoint3dArray& points,
                                  Adesk::GsMarker thisMarker = 0, Adesk::GsMarker otherMarker = 0) const override;
  Acad::ErrorStatus intersectWith(const AcDbEntity* entity, AcDb::Intersect mode, const AcGePlane& plane,
                                  AcGePoint3dArray& points, Adesk::GsMarker thisMarker = 0,
                                  Adesk::GsMarker otherMarker = 0) const override;

 protected:
  AcDbCurve() = default;
};

class AcDbLine : public AcDbCurve {
 public:
  ACRX_DECLARE_MEMBERS(AcDbLine)
  AcDbLine();
  AcDbLine(const AcGePoint3d& start, const AcGePoint3d& end);
  AcGePoint3d startPoint() const;
  AcGePoint3d endPoint() const;
  Acad::ErrorStatus setStartPoint(const AcGePoint3d& point);
  Acad::ErrorStatus setEndPoint(const AcGePoint3d& point);
  AcGeVector3d normal() const;
  Acad::ErrorStatus getStartPoint(AcGePoint3d& point) const override;
  Acad::ErrorStatus getEndPoint(AcGePoint3d& point) const override;
  Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
  Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;
};

class AcDbRay : public AcDbCurve {
 public:
  ACRX_DECLARE_MEMBERS(AcDbRay)
  AcDbRay();
  AcGePoint3d basePoint() const;
  AcGeVector3d unitDir() const;
  Acad::ErrorStatus setBasePoint(const AcGePoint3d& point);
  Acad::ErrorStatus setUnitDir(const AcGeVector3d& direction);
  Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;
};

class AcDbXline : public AcDbCurve {
 public:
  ACRX_DECLARE_MEMBERS(AcDbXline)
  AcDbXline();
  AcGePoint3d basePoint() const;
  AcGeVector3d unitDir() const;
  Acad::ErrorStatus setBasePoint(const AcGePoint3d& point);
  Acad::ErrorStatus setUnitDir(const AcGeVector3d& direction);
  Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;
};

class AcDbCircle : public AcDbCurve {
 public:
  ACRX_DECLARE_MEMBERS(AcDbCircle)
  AcDbCircle();
  AcDbCircle(const AcGePoint3d& centre, const AcGeVector3d& normal, double radius);
  AcGePoint3d center() const;
  double radius() const;
  AcGeVector3d normal() const;
  Acad::ErrorStatus setCenter(const AcGePoint3d& centre);
  Acad::ErrorStatus setRadius(double radius);
  bool isClosed() const override { return true; }
  Acad::ErrorStatus getArea(double& area) const override;
  Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
  Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;
};

class AcDbArc : public AcDbCurve {
 public:
  ACRX_DECLARE_MEMBERS(AcDbArc)
  AcDbArc();
  // Counter-clockwise from the start angle to the end angle.
  AcDbArc(const AcGePoint3d& centre, double radius, double startAngle, double endAngle);
  AcDbArc(const AcGePoint3d& centre, const AcGeVector3d& normal, double radius, double startAngle, double endAngle);
  AcGePoint3d center() const;
  double radius() const;
  double startAngle() const;
  double endAngle() const;
  double totalAngle() const;  // above 0, at most 2 pi
  AcGeVector3d normal() const;
  Acad::ErrorStatus setCenter(const AcGePoint3d& centre);
  Acad::ErrorStatus setRadius(double radius);
  Acad::ErrorStatus setStartAngle(double angle);
  Acad::ErrorStatus setEndAngle(double angle);
  Acad::ErrorStatus getStartPoint(AcGePoint3d& point) const override;
  Acad::ErrorStatus getEndPoint(AcGePoint3d& point) const override;
  Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
  Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;
};

class AcDbEllipse : public AcDbCurve {
 public:
  ACRX_DECLARE_MEMBERS(AcDbEllipse)
  AcDbEllipse();
  AcDbEllipse(const AcGePoint3d& centre, const AcGeVector3d& normal, const AcGeVector3d& majorAxis, double radiusRatio,
              double startAngle = 0, double endAngle = 6.28318530717958647692);
  AcGePoint3d center() const;
  AcGeVector3d majorAxis() const;
  AcGeVector3d normal() const;
  double radiusRatio() const;
  double startParam() const;
  double endParam() const;
  bool isClosed() const override;
  Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
  Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;
};

class AcDbSpline : public AcDbCurve {
 public:
  ACRX_DECLARE_MEMBERS(AcDbSpline)
  AcDbSpline();
  // The spline isNull when the numbers of points, knots and weights don't match. A rational one has a weight per point.
  AcDbSpline(int degree, bool rational, bool closed, bool periodic, const AcGePoint3dArray& controlPoints,
             const AcGeDoubleArray& knots, const AcGeDoubleArray& weights, double controlPointTolerance = 0,
             double knotTolerance = 0);
  // The smooth cubic through the points, with tangents at its ends when both are given.
  explicit AcDbSpline(const AcGePoint3dArray& fitPoints, int order = 4, double fitTolerance = 0);
  AcDbSpline(const AcGePoint3dArray& fitPoints, const AcGeVector3d& startTangent, const AcGeVector3d& endTangent,
             int order = 4, double fitTolerance = 0);
  bool isNull() const;  // its data don't describe a curve
  int degree() const;
  int numControlPoints() const;
  int numFitPoints() const;
  bool isRational() const;
  bool isClosed() const override;
  Acad::ErrorStatus getControlPointAt(int index, AcGePoint3d& point) const;
  Acad::ErrorStatus setControlPointAt(int index, const AcGePoint3d& point);
  Acad::ErrorStatus getFitPointAt(int index, AcGePoint3d& point) const;
  Acad::ErrorStatus getNurbsData(int& degree, bool& rational, bool& closed, bool& periodic,
                                 AcGePoint3dArray& controlPoints, AcGeDoubleArray& knots, AcGeDoubleArray& weights,
                                 double& controlPointTolerance, double& knotTolerance) const;
  Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
  Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;
};

class AcDbPoint : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbPoint)
  AcDbPoint();
  explicit AcDbPoint(const AcGePoint3d& position);
  AcGePoint3d position() const;
  Acad::ErrorStatus setPosition(const AcGePoint3d& position);
  Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
  Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;
};

class AcDbText : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbText)
  AcDbText();
  AcDbText(const AcGePoint3d& position, const ACHAR* text, AcDbObjectId style = AcDbObjectId::kNull, double height = 0,
           double rotation = 0);
  AcGePoint3d position() const;
  AcGePoint3d alignmentPoint() const;
  AcString textString() const;
  double height() const;
  double rotation() const;
  double widthFactor() const;
  double oblique() const;
  AcDbObjectId textStyle() const;
  AcDb::TextHorzMode horizontalMode() const;
  AcDb::TextVertMode verticalMode() const;
  AcGeVector3d normal() const;
  bool isDefaultAlignment() const;
  Acad::ErrorStatus setPosition(const AcGePoint3d& point);
  // For a text that isn't left aligned on its base line this also moves the position accordingly.
  Acad::ErrorStatus setAlignmentPoint(const AcGePoint3d& point);
  Acad::ErrorStatus setTextString(const ACHAR* text);
  Acad::ErrorStatus setHeight(double height);
  Acad::ErrorStatus setRotation(double rotation);
  Acad::ErrorStatus setWidthFactor(double factor);
  Acad::ErrorStatus setOblique(double angle);
  Acad::ErrorStatus setTextStyle(AcDbObjectId style);
  Acad::ErrorStatus setHorizontalMode(AcDb::TextHorzMode mode);
  Acad::ErrorStatus setVerticalMode(AcDb::TextVertMode mode);
  Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
  // Recomputes the position of an aligned text from its alignment point and its measured width.
  Acad::ErrorStatus adjustAlignment(const AcDbDatabase* database = nullptr);
  Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
  Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;
};

class AcDbAttributeDefinition : public AcDbText {
 public:
  ACRX_DECLARE_MEMBERS(AcDbAttributeDefinition)
  AcDbAttributeDefinition();
  AcString tag() const;
  AcString prompt() const;
  int fieldLength() const;
  bool isInvisible() const;
  bool isConstant() const;
  Acad::ErrorStatus setTag(const ACHAR* tag);
  Acad::ErrorStatus setPrompt(const ACHAR* prompt);
  Acad::ErrorStatus setFieldLength(int length);
  Acad::ErrorStatus setInvisible(bool invisible);
  Acad::ErrorStatus setConstant(bool constant);
};

class AcDbAttribute : public AcDbText {
 public:
  ACRX_DECLARE_MEMBERS(AcDbAttribute)
  AcDbAttribute();
  AcDbAttribute(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag,
                AcDbObjectId style = AcDbObjectId::kNull);
  AcString tag() const;
  int fieldLength() const;
  bool isInvisible() const;
  bool isConstant() const;
  Acad::ErrorStatus setTag(const ACHAR* tag);
  Acad::ErrorStatus setFieldLength(int length);
  Acad::ErrorStatus setInvisible(bool invisible);
  // Takes text, style, height, place and alignment from the definition, transformed as the block reference is.
  Acad::ErrorStatus setAttributeFromBlock(const AcDbAttributeDefinition* definition,
                                          const AcGeMatrix3d& blockTransform);
};

class AcDbMText : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbMText)
  AcDbMText();
  AcGePoint3d location() const;
  AcString contents() const;
  double textHeight() const;
  double width() const;
  double rotation() const;
  int attachment() const;  // 1 top left to 9 bottom right
  AcDbObjectId textStyle() const;
  Acad::ErrorStatus setLocation(const AcGePoint3d& point);
  Acad::ErrorStatus setContents(const ACHAR* text);
  Acad::ErrorStatus setTextHeight(double height);
  Acad::ErrorStatus setWidth(double width);
  Acad::ErrorStatus setRotation(double rotation);
  Acad::ErrorStatus setAttachment(int attachment);
  Acad::ErrorStatus setTextStyle(AcDbObjectId style);
  Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
  Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;
};

// Walks the attributes or vertices that an entity owns. The caller deletes the iterator.
class AcDbObjectIterator {
 public:
  explicit AcDbObjectIterator(AcDbObjectIdArray ids) : mIds(std::move(ids)) {}
  void start() { mIndex = 0; }
  bool done() const { return mIndex >= mIds.length(); }
  void step() { ++mIndex; }
  AcDbObjectId objectId() const { return mIds[mIndex]; }

 private:
  AcDbObjectIdArray mIds;
  int mIndex = 0;
};

class AcDbBlockReference : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbBlockReference)
  AcDbBlockReference();
  AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId block);
  AcDbObjectId blockTableRecord() const;
  AcGePoint3d position() const;
  AcGeScale3d scaleFactors() const;
  double rotation() const;
  AcGeVector3d normal() const;
  AcGeMatrix3d blockTransform() const;
  Acad::ErrorStatus setBlockTableRecord(AcDbObjectId block);
  Acad::ErrorStatus setPosition(const AcGePoint3d& position);
  Acad::ErrorStatus setScaleFactors(const AcGeScale3d& scale);
  Acad::ErrorStatus setRotation(double rotation);
  // The reference must be in the drawing. The attribute stays open; the caller closes it.
  Acad::ErrorStatus appendAttribute(AcDbObjectId& id, AcDbAttribute* attribute);
  Acad::ErrorStatus appendAttribute(AcDbAttribute* attribute);
  Acad::ErrorStatus openAttribute(AcDbAttribute*& attribute, AcDbObjectId id, AcDb::OpenMode mode,
                                  bool openErased = false) const;
  AcDbObjectIterator* attributeIterator() const;
  Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
  Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;
  Acad::ErrorStatus explode(AcArray<AcRxObject*>& parts) const override;
};

class AcDbSolid : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbSolid)
  AcDbSolid();
  Acad::ErrorStatus getPointAt(int index, AcGePoint3d& point) const;  // 0 to 3, world coordinates
  Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
  Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;
};

class AcDbFace : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbFace)
  AcDbFace();
  Acad::ErrorStatus getVertexAt(int index, AcGePoint3d& point) const;  // 0 to 3
  Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
  Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;
};

class AcDbDimension : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbDimension)
  AcDbObjectId dimBlockId() const;
  Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;

 protected:
  friend class AcDbImpObject;
  AcDbDimension();
};

// A planar region; its solid-model data are kept as they are.
class AcDbRegion : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbRegion)
  AcDbRegion();
  virtual Acad::ErrorStatus getArea(double& area) const;  // eNotApplicable when its data can't be read
};

// A hatch lies in a plane given by its normal and elevation; its loops are in the axes of that plane.
class AcDbHatch : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbHatch)
  enum HatchPatternType : int { kUserDefined = 0, kPreDefined = 1, kCustomDefined = 2 };
  enum HatchStyle : int { kNormal = 0, kOuter = 1, kIgnore = 2 };
  enum HatchLoopType : int { kDefault = 0, kExternal = 1, kPolyline = 2, kOutermost = 16 };
  AcDbHatch();
  AcString patternName() const;
  bool isSolidFill() const;
  double elevation() const;
  int numLoops() const;
  Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
  Acad::ErrorStatus setElevation(double elevation);
  Acad::ErrorStatus setAssociative(bool associative);
  // eInvalidInput for patterns other than "SOLID": they need line definitions, which this host doesn't keep.
  Acad::ErrorStatus setPattern(HatchPatternType type, const ACHAR* name);
  Acad::ErrorStatus setHatchStyle(HatchStyle style);
  // A closed loop of straight and arc edges, with a bulge for each vertex. The points are kept as given, even a last
  // one equal to the first. eInvalidInput for fewer than two points, or when there isn't one bulge per point.
  Acad::ErrorStatus appendLoop(Adesk::Int32 type, const AcGePoint2dArray& vertices, const AcGeDoubleArray& bulges);
  // eInvalidInput for a hatch without loops.
  Acad::ErrorStatus evaluateHatch(bool underestimateNumLines = false);
  Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
  Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;
};
