// The groups of an entity as a selection filter sees them, and their comparison with one group of the filter.
// Inner header of the room.
#pragma once
#include <span>
#include <string_view>
#include <vector>

#include "atelier/database/objects/imp_database.h"

namespace atelier {

Group typeGroup(const AcDbStub& stub);  // group 0
// Every value that the entity has for another group code; a group that is not written counts with its default. 410 is
// the name of its layout and 67 tells paper space from model space, even when not written.
std::vector<Group> filterValues(AcDbStub& stub, int code);
// All points that the entity has for that code.
std::vector<AcGePoint3d> filterPoints(AcDbStub& stub, int code);
bool hasXdataOf(AcDbStub& stub, std::string_view applications);

// Relations: "" or "=" "/=" "!=" "<>" "<" "<=" ">" ">=" "*" "&" "&=". Texts are matched with wild-card patterns.
bool isRelation(std::string_view relation);
bool groupFits(const Group& value, const Group& wanted, std::string_view relation);
bool numberFits(double value, double wanted, std::string_view relation);

}  // namespace atelier
