// Objects as lists of groups, the form in which AutoLISP reads, changes and makes them.
// Reference: AutoLISP functions entget, entmod, entmake.
#pragma once
#include <span>
#include <string>
#include <vector>

#include "atelier/database/objects/imp_database.h"

namespace atelier {

// Every group of the record from group 0 on, in file order; the XDATA of the applications named ("*": of all), case
// ignored, stands last as groups 1001 and above. Angles (groups 50 to 58) are in radians in lists, both ways.
std::vector<Group> groupsOf(AcDbStub& stub, std::span<const std::string> applications);

// Replaces the object's groups. Handle, type and owner stay what they are; XDATA of applications that the list names
// is replaced (a lone 1001 removes it), that of others stays. False when the list's type is another one, a layer,
// application or number is not what the drawing takes, or the object can't be opened.
bool changeObject(AcDbStub& stub, std::vector<Group> groups);

// Makes entities and table records from lists that begin with group 0, as entmake does. INSERT with 66 = 1, POLYLINE and
// BLOCK begin a run of further lists up to SEQEND or ENDBLK.
class EntityMaker {
 public:
  explicit EntityMaker(AcDbImpDatabase& database) : db_(database) {}
  // ok: made or taken into the running one. The stub is what was made; for a run its head once it is ended.
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
  AcDbStub* target();
  AcDbImpDatabase& db_;
  AcDbStub* block_ = nullptr;   // being defined
  AcDbStub* parent_ = nullptr;  // an insert or polyline that waits for its followers
};

// Makes an object that belongs to no block, for a dictionary to take (entmakex of XRECORD, DICTIONARY and others).
AcDbStub* makeLooseObject(AcDbImpDatabase& database, std::vector<Group> groups);

// Table of the file that holds records of this type ("LAYER" -> "LAYER", "BLOCK_RECORD" ...); empty for none.
std::string_view tableForType(std::string_view type);

}  // namespace atelier
