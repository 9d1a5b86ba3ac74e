// Table records are referred to by their names: giving one another name gives it to all that refer to it.
// Reference: DXF reference, chapters "TABLES", "BLOCKS" and "ENTITIES".
#pragma once
#include <string>
#include <string_view>

#include "atelier/database/objects/imp_database.h"

namespace atelier {

// Whether that group of a record of that type names something of the table.
bool namesRecord(std::string_view table, std::string_view type, bool entity, int code);
// Makes all that names one record of a table name another one.
void redirectNames(AcDbImpDatabase& database, std::string_view table, const std::string& from, const std::string& to);
// Whether the header says that the record of this name is current.
bool isCurrent(const AcDbImpDatabase& database, std::string_view table, std::string_view name);
// Layer 0, style Standard, blocks with a star and others must keep their names.
bool keepsName(std::string_view table, const std::string& name);

enum class Renaming { done, kept, invalid, notOpen };
// Gives a record of a symbol table another name, also where the drawing refers to it. kept: it must keep its name;
// invalid: the new one is taken or not valid; notOpen: somebody has it open.
Renaming renameRecord(AcDbStub& record, const std::string& to);

}  // namespace atelier
