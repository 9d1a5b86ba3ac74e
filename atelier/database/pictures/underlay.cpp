// PDFUNDERLAY and its kin: pages of other programs laid under the drawing, shown as a frame with their file's name.
// Reference: DXF reference, "UNDERLAY" and "UNDERLAYDEFINITION".
#include <algorithm>
#include <numbers>

#include "atelier/database/pictures/part_maker.h"
#include "atelier/database/records/groups.h"

namespace atelier {
namespace {

// The page of an underlay in its own unit, the inch; its size stands in the file only, so it counts as A4.
constexpr double kPageWidth = 8.27, kPageHeight = 11.69;

// The corners of what is shown of the page, in its own unit: those of its boundary, of which two are a rectangle.
std::vector<AcGePoint3d> cornersOf(const Groups& groups) {
  constexpr int kClipped = 1;
  std::vector<AcGePoint3d> corners;
  if (groups.integer(280) & kClipped) corners = groups.points(11);
  if (corners.size() < 2) corners = {{0, 0, 0}, {kPageWidth, kPageHeight, 0}};
  if (corners.size() == 2) {
    const AcGePoint3d a = corners[0], b = corners[1];
    corners = {a, {b.x, a.y, 0}, b, {a.x, b.y, 0}};
  }
  return corners;
}

std::string fileOf(AcDbImpDatabase& database, const Groups& groups) {
  const Group* definition = groups.find(340);
  AcDbStub* stub = definition ? database.stubOf(definition->handle()) : nullptr;
  if (!stub || stub->is(AcDbStub::kErased)) return {};
  const std::string path =
      AcDbImpObject::of(&database.object(*stub)).record.text(textField("AcDbUnderlayDefinition", 1));
  return path.substr(path.find_last_of("/\\") + 1);
}

}  // namespace

void underlayFrame(PartMaker& make, const Record& record) {
  const Groups groups(record);
  const AcGeVector3d normal = groups.normal();
  const AcGeMatrix3d plane = AcGeMatrix3d::translation(groups.point(10).asVector()) *
                             AcGeMatrix3d().setToPlaneToWorld(normal) *
                             AcGeMatrix3d::rotation(groups.radians(50), AcGeVector3d(0, 0, 1));
  const double across = groups.real(41, 1), up = groups.real(42, 1);
  AcDbExtents box;
  std::vector<AcGePoint3d> corners = cornersOf(groups);
  for (AcGePoint3d& corner : corners) {
    corner = {corner.x * across, corner.y * up, 0};
    box.addPoint(corner);
    corner = plane * corner;
  }
  make.path(corners, true);
  const std::string name = fileOf(make.database(), groups);
  make.missing(name.empty() ? "cadre" : "cadre de " + name);
  const AcGeVector3d size = box.maxPoint() - box.minPoint();
  if (name.empty() || !(size.x > 0) || !(size.y > 0)) return;
  // In the middle; letters are about two thirds as wide as high.
  constexpr std::string_view kMText = "AcDbMText";
  constexpr int kMiddleCentre = 5;
  const AcGePoint3d middle = box.minPoint() + size * 0.5;
  Record& part = make.add("MTEXT");
  part.setPoint(pointField(kMText, 10), plane * middle);
  part.setReal(realField(kMText, 40), std::min(size.y / 5, 1.2 * size.x / static_cast<double>(name.size())));
  part.setInteger(integerField(kMText, 71), kMiddleCentre);
  part.setText(textField(kMText, 1), name);
  part.setPoint(normalField(kMText), AcGePoint3d() + normal);
  part.setPoint(pointField(kMText, 11), AcGePoint3d() + plane * AcGeVector3d(1, 0, 0));
}

}  // namespace atelier
