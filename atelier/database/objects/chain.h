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

// Appends nodes at `tail` (the address of the last link) and returns the address of the new last link.
resbuf** appendNode(resbuf** tail, const Group& group, AcDbImpDatabase& database);
// The groups as a chain, which the caller releases; null for no groups. The groups of a point become one node.
resbuf* toChain(std::span<const Group> groups, AcDbImpDatabase& database);
// Appends the groups of one node: a point gives as many as its code has ordinates.
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

// The chain of arguments of the running call; null once the application has released it itself.
resbuf*& heldArguments();

// The number of nodes made and not released, in the whole process. The host compares it before and after each call.
std::int64_t liveNodes();

}  // namespace atelier
