// VIEWPORT: its frame on the sheet.
#include "atelier/database/pictures/part_maker.h"
#include "atelier/database/records/groups.h"

namespace atelier {

void viewportFrame(PartMaker& make, const Record& record) {
  constexpr int kSheetItself = 1;
  const Groups groups(record);
  if (groups.integer(69) == kSheetItself) return;
  const AcGePoint3d centre = groups.point(10);
  const AcGeVector3d right(groups.real(40) / 2, 0, 0), up(0, groups.real(41) / 2, 0);
  const AcGePoint3d corners[] = {centre - right - up, centre + right - up, centre + right + up, centre - right + up};
  make.path(corners, true);
}

}  // namespace atelier
