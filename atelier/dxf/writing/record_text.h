// A record as the text that stands for it in a file of a given version.
// Inner header of the room; the writer and the exporter share it.
#pragma once
#include <functional>

#include "atelier/dxf/groups/file_layout.h"

namespace atelier::dxf {

// Appends the record of the object. Before R13 entities and definitions have no subclass marks and no owners.
void appendRecord(std::string& out, AcDbStub& stub, const FileLayout& layout);
// Hands over the groups that such a record has, in order; section: the subclass mark that each stands behind.
void visitGroups(AcDbStub& stub, const FileLayout& layout,
                 const std::function<void(const Group&, std::string_view section)>& visit);
// Appends "0 SECTION", the name, the contents and "0 ENDSEC".
void appendSection(std::string& out, std::string_view name, std::string_view contents, const Style& style);

}  // namespace atelier::dxf
