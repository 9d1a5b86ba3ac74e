// Objects as lists of groups, the form in which AutoLISP reads, changes and makes them.
// Reference: AutoLISP functions entget, entmod, entmake.
#pragma once
#include <span>
#include <string>
#include <vector>

#include "atelier/database/lists/group_list.h"
#include "atelier/database/objects/imp_database.h"

namespace atelier {

// Every group of the record from group 0 on, in file order, with the defaults that the drawing leaves out (shownGroups),
// then the XDATA (groups 1001 and above) of the named applications, case ignored ("*": all). Angles (groups 50 to 58) are
// in radians in all lists.
GroupList groupsOf(AcDbStub& stub, std::span<const std::string> applications);

// Puts the list's groups into the object's record; those that it leaves out stay. Handle, type and owner don't change; the
// XDATA of applications that the list names is replaced (a 1001 alone removes it), that of others is kept; a table record
// takes what refers to it to its new name. False, and nothing is changed, when the list has another type, when the drawing
// refuses a name or a number, or when the object can't be opened.
bool changeObject(AcDbStub& stub, std::vector<Group> groups);

// Makes entities and table records from lists that begin with group 0, as entmake does. INSERT with 66 = 1, POLYLINE and
// BLOCK begin a run of further lists up to SEQEND or ENDBLK.
class EntityMaker {
 public:
  explicit EntityMaker(AcDbImpDatabase& database) : db_(database) {}
  // ok: the entity was made, or added to the run in progress. stub: the entity made; for a run its head, given at its end.
  struct Result {
    bool ok = false;
    AcDbStub* stub = nullptr;
  };
  Result make(std::vector<Group> groups);

 private:
  Result makeRecord(std::string_view table, std::vector<Group> groups);
  Result makeEntity(std::vector<Group> groups);
  Result openBlock(const Record& given);
  Result follow(Record given);
  // The block that the entity goes into: the one being defined, the space that the list names (67, 410), else the current
  // one. Takes those groups out of the list.
  AcDbStub* takeSpace(std::vector<Group>& groups);
  AcDbImpDatabase& db_;
  AcDbStub* block_ = nullptr;   // being defined
  AcDbStub* parent_ = nullptr;  // the insert or polyline whose attributes or vertices follow
};

// Makes an object outside any block, to be put into a dictionary (entmakex of XRECORD, DICTIONARY and others).
AcDbStub* makeLooseObject(AcDbImpDatabase& database, std::vector<Group> groups);

// Table of the file that holds records of this type ("LAYER" -> "LAYER", "BLOCK_RECORD" ...); empty for none.
std::string_view tableForType(std::string_view type);

}  // namespace atelier
