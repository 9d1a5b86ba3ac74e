// A window of a layout on the model, as R12 and as later versions write it.
// R12 stores the view in extended data of "ACAD", "MVIEW". Reference: DXF reference of release 12, "Extended data", and
// of later releases, VIEWPORT.
#pragma once
#include <functional>
#include <string>
#include <vector>

#include "atelier/database/records/record.h"

namespace atelier::dxf {

// The groups of R12. viewport: a record with the mark AcDbViewport. frozen: the names of the layers frozen in it. Its
// extended data are kept, except those of "ACAD". A clipping outline that isn't a rectangle is lost.
std::vector<Group> asOldViewport(const Record& viewport, const std::vector<std::string>& frozen);

// The groups after the mark AcDbViewport, and the extended data, from R12 groups; layerHandle gives 0 for an unknown
// name. Values missing from the extended data are those of a view from above.
std::vector<Group> asModernViewport(const std::vector<Group>& old,
                                    const std::function<std::uint64_t(const std::string&)>& layerHandle);

}  // namespace atelier::dxf
