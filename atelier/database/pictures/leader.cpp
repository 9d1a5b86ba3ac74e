// LEADER: the line, its arrow, and the hook along its text.
// Reference: DXF reference, "LEADER".
#include <cmath>

#include "atelier/database/curves/plane.h"
#include "atelier/database/dimensions/dimension_style.h"
#include "atelier/database/pictures/part_maker.h"
#include "atelier/database/records/groups.h"

namespace atelier {

namespace {
constexpr int kTextAnnotation = 0, kCurved = 1;
}

void leaderParts(PartMaker& make, const Record& record) {
  const Groups groups(record);
  std::vector<AcGePoint3d> points = groups.points(10);
  if (points.size() < 2) return make.missing();
  const DimensionStyle style(make.database(), record);
  PartLook look;
  look.colour = static_cast<std::int64_t>(style.value("DIMCLRD"));
  make.look(look);
  const AcGeVector3d normal = groups.normal();

  // Under a text that stands above the line's end the line goes on as far as the text.
  const double width = groups.real(41);
  if (groups.integer(73, 3) == kTextAnnotation && groups.integer(75, 1) != 0 && style.flag("DIMTAD") && width > 0) {
    AcGeVector3d along = groups.has(211) ? groups.point(211).asVector() : AcGeVector3d(1, 0, 0);
    if (groups.integer(74, 1) == 1) along = -along;
    points.push_back(points.back() + along * (style.size("DIMGAP") + width));
  }
  if (groups.integer(72) == kCurved) make.curve(points);
  else make.path(points);

  const AcGeVector3d along = points[0] - points[1];
  if (groups.integer(71, 1) == 0 || style.leaderArrow == ArrowForm::none) return;
  const double size = std::fmin(style.size("DIMASZ"), along.length() / 2);
  make.arrow(points[0], along, size, normal, style.leaderArrowBlock);
}

}  // namespace atelier
