// Interrupting a handler from inside the host calls that it makes, walking the entities, and names.
// Whoever runs the handlers sets the question; without one nothing is ever interrupted.
#pragma once
#include <string_view>

#include "atelier/database/imp_database.h"

namespace atelier {

// The question is asked by host calls that a handler may repeat for ever.
void setInterruptionQuestion(bool (*asked)());
// Throws Interrupted when the user asked to stop.
void checkInterruption();

// The next entity of the current space in drawing order, followers of inserts and polylines included; the first one
// for null. Erased ones are passed over. Null at the end.
AcDbStub* nextEntity(AcDbImpDatabase& database, AcDbStub* after);
// The last main entity of the current space; null when it is empty.
AcDbStub* lastEntity(AcDbImpDatabase& database);

// Whether a symbol table takes the name: 1 to 255 characters, none of < > / \ " : ; ? * | , = ` and no controls.
bool isSymbolName(std::string_view name);

}  // namespace atelier
