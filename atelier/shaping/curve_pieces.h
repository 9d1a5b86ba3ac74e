// Cutting curves where commands say, and putting the pieces in their place: what BREAK, TRIM and their like share.
// Inner header of the room. Parameters are the curve's own.
#pragma once
#include <memory>
#include <optional>
#include <vector>

#include "hote/dbents.h"

namespace atelier {

class Document;

using CurvePieces = std::vector<std::unique_ptr<AcDbCurve>>;

// The curve that was picked, for reading now: a question that is awaited may make it go from memory. Throws Error
// when it is none.
const AcDbCurve& pickedCurve(Document& document, AcDbObjectId id);
// Whether the object stands on a locked layer; the second throws Error then.
bool isLocked(Document& document, AcDbObjectId id);
void refuseLocked(Document& document, AcDbObjectId id);
// Gives the object's place to a light polyline made of it, when it is a line, an arc or a polyline of the older kind;
// false when it can't become one.
bool makeLight(Document& document, AcDbObjectId id);
// The parameter of a point on the curve; of any other, of the place that is nearest to it seen in plan.
std::optional<double> paramNear(const AcDbCurve& curve, const AcGePoint3d& point);
// Parameters where the others that are curves meet it, rising.
std::vector<double> paramsOfMeetings(const AcDbCurve& curve, const std::vector<AcDbStub*>& others);

// The same place; one that is within a hair of an end of the curve is that end, of a closed curve its start.
double settledParam(const AcDbCurve& curve, double param);
// Whether nothing lies between two places, along the curve.
bool isOnePlace(const AcDbCurve& curve, double a, double b);

// What is left when the part between two parameters is taken away; of a closed curve the part that runs on from the
// first to the second. The same place twice cuts there and takes nothing away. No piece is without length. Empty when
// nothing is left, and when the one cut is at an end.
CurvePieces without(const AcDbCurve& curve, double from, double to);

// The first piece takes the object's place and its name, the others are added beside it. Without pieces it is erased.
void replaceByPieces(Document& document, AcDbObjectId id, CurvePieces pieces);

}  // namespace atelier
