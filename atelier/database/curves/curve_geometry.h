// Curve entities as geometry, and back.
// Inner header of the room, and of the editor's commands on curves.
#pragma once
#include <memory>

#include "atelier/geometry/curve.h"
#include "hote/dbpl.h"

namespace atelier {

// Null for a class without geometry of its own, and for a degenerate curve: one vertex, no length, no radius, data
// that are no numbers. Polylines and splines keep the result until they change.
std::shared_ptr<const Curve> curveOf(const AcDbCurve& entity);

// The data of a spline; a fitted one without control points is interpolated. Weights only when it is rational.
Nurbs nurbsOf(const AcDbSpline& spline);
// Writes data into a spline in place of what it has, its fit points included. eNotOpenForWrite.
Acad::ErrorStatus setNurbs(AcDbSpline& spline, const Nurbs& data);
// A new spline of these data.
std::unique_ptr<AcDbSpline> splineOf(const Nurbs& data);

// The vertices of a polyline whose vertices are entities, those of a spline's frame left out. As values: the entities of
// a long polyline don't stay in memory all at once.
struct DrawnVertex {
  AcGePoint3d position;
  double bulge, startWidth, endWidth;
};
std::vector<DrawnVertex> drawnVertices(const AcDbCurve& polyline);

// A polyline whose vertices are entities as a light one, with its plane, widths and properties.
std::unique_ptr<AcDbPolyline> lightPolyline(const AcDb2dPolyline& polyline);

// The curves between neighbouring parameters, which rise and lie on the curve. With the entity's properties, in no
// database. Empty for a class that can't be cut.
std::vector<std::unique_ptr<AcDbCurve>> partsOf(const AcDbCurve& entity, const std::vector<double>& bounds);

}  // namespace atelier
