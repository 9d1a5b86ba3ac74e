// Lists of groups as AutoLISP sees them: ((-1 . <entity>) (0 . "LINE") ... (-3 ("APP" (1000 . "x") ...))).
// A point is one item with its ordinates; handles to objects are entity names.
#pragma once
#include <vector>

#include "atelier/database/lists/group_list.h"
#include "atelier/database/objects/imp_database.h"
#include "atelier/lisp/evaluator/interpreter.h"

namespace atelier {

// The list of an object, with the XDATA that the groups carry at their end; of a BLOCK also its first entity (-2).
lisp::Value listOfGroups(lisp::Interpreter& interpreter, const AcDbStub* stub, const GroupList& groups);
// Groups of a list; -1 and -2 items are left out, the entity of a -1 item goes to `entity`. Fails the program with the
// reference's message when an item is no dotted pair or its value doesn't fit its code.
std::vector<Group> groupsOfList(lisp::Interpreter& interpreter, lisp::Value list, AcDbStub** entity);
// One group of a code and a value; nothing when the value doesn't fit the code. A point gives several.
bool appendGroup(std::vector<Group>& groups, int code, lisp::Value value);

}  // namespace atelier
