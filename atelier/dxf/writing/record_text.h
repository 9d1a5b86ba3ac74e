// A record as text of a file of a given version.
// Used by the writer and the exporter.
#pragma once
#include <functional>

#include "atelier/dxf/groups/file_layout.h"

namespace atelier::dxf {

// Appends the record of the object. Before R13 entities and definitions have no subclass marks and no owners.
void appendRecord(std::string& out, AcDbStub& stub, const FileLayout& layout);
// Calls with the groups of such a record, in order; section: the subclass mark before the group.
void visitGroups(AcDbStub& stub, const FileLayout& layout,
                 const std::function<void(const Group&, std::string_view section)>& visit);
// Appends "0 SECTION", the name, the contents and "0 ENDSEC".
void appendSection(std::string& out, std::string_view name, std::string_view contents, const Style& style);

}  // namespace atelier::dxf
