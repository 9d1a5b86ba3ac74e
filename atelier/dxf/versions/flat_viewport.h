// A window of a layout on the model, as R12 and as later versions write it.
// R12 holds the view in extended data of "ACAD", "MVIEW". Reference: DXF reference of release 12, "Extended data", and
// of later releases, VIEWPORT.
#pragma once
#include <functional>
#include <string>
#include <vector>

#include "atelier/database/records/record.h"

namespace atelier::dxf {

// The groups of R12. viewport: a record with the mark AcDbViewport. frozen: the names of the layers that are frozen in
// it. Its own extended data stay, but for those of "ACAD". A clipping outline that is no rectangle has no place there.
std::vector<Group> asOldViewport(const Record& viewport, const std::vector<std::string>& frozen);

// The groups behind the mark AcDbViewport, and the extended data, of R12 groups; layerHandle gives 0 for a name that
// isn't there. What the view lacks of extended data has the values of a view from above.
std::vector<Group> asModernViewport(const std::vector<Group>& old,
                                    const std::function<std::uint64_t(const std::string&)>& layerHandle);

}  // namespace atelier::dxf
