// Cutting curves and replacing them by pieces, for BREAK, TRIM and other commands.
// Inner header of the room. Parameters are the curve's own.
#pragma once
#include <memory>
#include <optional>
#include <vector>

#include "hote/dbents.h"

namespace atelier {

class Document;

using CurvePieces = std::vector<std::unique_ptr<AcDbCurve>>;

// The curve that was picked. The reference is valid until the next question to the user, during which the curve may be
// dropped from memory. Throws Error when the object isn't a curve.
const AcDbCurve& pickedCurve(Document& document, AcDbObjectId id);
// Whether the object is on a locked layer; the second function throws Error then.
bool isLocked(Document& document, AcDbObjectId id);
void refuseLocked(Document& document, AcDbObjectId id);
// Replaces a line, an arc or a polyline of the older kind by a lightweight polyline; false when that isn't possible.
bool makeLight(Document& document, AcDbObjectId id);
// The parameter of a point on the curve; for any other point that of the nearest place in plan.
std::optional<double> paramNear(const AcDbCurve& curve, const AcGePoint3d& point);
// The parameters, rising, where the curves among the others meet it.
std::vector<double> paramsOfMeetings(const AcDbCurve& curve, const std::vector<AcDbStub*>& others);

// The parameter itself, or that of an end of the curve when it is as near as rounding (of a closed curve the start).
double settledParam(const AcDbCurve& curve, double param);
// Whether nothing lies between two places, along the curve.
bool isOnePlace(const AcDbCurve& curve, double a, double b);

// The pieces left when the part between two parameters is removed; of a closed curve the part that runs from the first
// on to the second is removed. Two equal parameters cut there and remove nothing. Pieces without length are left out.
// Empty when nothing is left, or when the only cut is at an end.
CurvePieces without(const AcDbCurve& curve, double from, double to);

// The first piece replaces the object under its handle, the others are added. Without pieces the object is erased.
void replaceByPieces(Document& document, AcDbObjectId id, CurvePieces pieces);

}  // namespace atelier
