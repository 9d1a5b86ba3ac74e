// Sections that are not modelled, written in another version.
#pragma once
#include <string_view>

#include "atelier/dxf/groups/file_layout.h"
#include "atelier/dxf/versions/group_writer.h"

namespace atelier::dxf {

// The groups as they were read, comments excepted; of CLASSES those that the target knows, each class with a count where
// the target wants one. Damaged groups are skipped: reading has reported them.
void putCarried(GroupWriter& out, const FileLayout& source, const FileLayout& target, std::string_view name,
                const FileLayout::Place& place);

}  // namespace atelier::dxf
