// Curve entities as geometry, and back.
// Used by this room and by the commands on curves.
#pragma once
#include <memory>

#include "atelier/geometry/curve.h"
#include "hote/dbpl.h"

namespace atelier {

// The entity's geometry. Null for a class that has none, and for a degenerate curve: one vertex, no length, no radius,
// values that aren't finite. Polylines and splines keep the result until they change.
std::shared_ptr<const Curve> curveOf(const AcDbCurve& entity);

// The data of a spline; a fitted one without control points is interpolated. Weights only when it is rational.
Nurbs nurbsOf(const AcDbSpline& spline);
// Writes data into a spline in place of what it has, its fit points included. eNotOpenForWrite.
Acad::ErrorStatus setNurbs(AcDbSpline& spline, const Nurbs& data);
// A new spline of these data.
std::unique_ptr<AcDbSpline> splineOf(const Nurbs& data);

// A vertex of a polyline whose vertices are entities; those of a spline's frame are left out. It is a copy, because the
// vertex entities of a long polyline aren't all kept in memory.
struct DrawnVertex {
  AcGePoint3d position;
  double bulge, startWidth, endWidth;
};
std::vector<DrawnVertex> drawnVertices(const AcDbCurve& polyline);

// A lightweight polyline with the vertices, plane, widths and properties of one whose vertices are entities.
std::unique_ptr<AcDbPolyline> lightPolyline(const AcDb2dPolyline& polyline);

// The curves between neighbouring bounds, which must be rising parameters of the curve. They have the entity's
// properties and are in no database. Empty for a class that can't be cut.
std::vector<std::unique_ptr<AcDbCurve>> partsOf(const AcDbCurve& entity, const std::vector<double>& bounds);

}  // namespace atelier
