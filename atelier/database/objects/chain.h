// Groups to the host's result chains and back, and the counting of chains that are alive.
// A point is one node in a chain and two or three groups in a record; a handle is an entity name.
#pragma once
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "atelier/database/records/group.h"
#include "hote/adesk.h"

class AcDbImpDatabase;
class AcDbStub;

namespace atelier {

// Appends nodes behind `tail` (the address of the last link) and returns the new last link.
resbuf** appendNode(resbuf** tail, const Group& group, AcDbImpDatabase& database);
// The groups as a chain that the caller releases; null for none. Ordinates join their point.
resbuf* toChain(std::span<const Group> groups, AcDbImpDatabase& database);
// Groups of one node: a point gives as many as its code has ordinates.
void appendGroups(std::vector<Group>& groups, const resbuf& node, AcDbImpDatabase& database);

// Codes of points: the ordinates follow at +10 and +20.
bool isPointCode(int code);

resbuf* newNode(int restype);
resbuf* textNode(int restype, std::string_view utf8);
resbuf* realNode(int restype, double value);
resbuf* nameNode(int restype, const AcDbStub* stub);
void setString(resbuf& node, std::string_view utf8);
std::string stringOf(const resbuf& node);  // UTF-8; empty for a null pointer

AcDbStub* stubOfName(const ads_name name);  // null for a name that is no entity's
void nameOf(const AcDbStub* stub, ads_name name);

// The chain of arguments of the running call. A handler may release it itself; it is then no longer held.
resbuf*& heldArguments();

// Nodes made and not yet released, over the whole process: the host compares it around each call.
std::int64_t liveNodes();

}  // namespace atelier
