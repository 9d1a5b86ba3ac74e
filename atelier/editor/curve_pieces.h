// Cutting curves where commands say, and putting the pieces in their place: what BREAK, TRIM and their like share.
// Inner header of the room. Parameters are the curve's own.
#pragma once
#include <memory>
#include <vector>

#include "atelier/editor/command_prompts.h"

namespace atelier {

using CurvePieces = std::vector<std::unique_ptr<AcDbCurve>>;

// The curve that was picked, for reading now: a question that is awaited may make it go from memory. Fails the command
// when it is none.
const AcDbCurve& pickedCurve(const Command& command, AcDbObjectId id);
// The parameter of the place on the curve that is nearest to the point, seen in plan.
std::optional<double> paramNear(const AcDbCurve& curve, const AcGePoint3d& point);
// Parameters where the others that are curves meet it, rising.
std::vector<double> paramsOfMeetings(const AcDbCurve& curve, const std::vector<AcDbStub*>& others);

// What is left when the part between two parameters is taken away; of a closed curve the part that runs on from the
// first to the second. The same parameter twice cuts there and takes nothing away. Empty when nothing is left.
CurvePieces without(const AcDbCurve& curve, double from, double to);

// The first piece takes the object's place and its name, the others are added beside it. Without pieces it is erased.
void replaceByPieces(const Command& command, AcDbObjectId id, CurvePieces pieces);

}  // namespace atelier
