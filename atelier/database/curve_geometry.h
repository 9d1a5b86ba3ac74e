// Curve entities as geometry, and back.
// Inner header of the room.
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

// The vertices of a polyline whose vertices are entities, those of a spline's frame left out.
std::vector<const AcDbVertex*> drawnVertices(const AcDbCurve& polyline);

// The curves between neighbouring parameters, which rise and lie on the curve. With the entity's properties, in no
// database. Empty for a class that can't be cut.
std::vector<std::unique_ptr<AcDbCurve>> partsOf(const AcDbCurve& entity, const std::vector<double>& bounds);

}  // namespace atelier
