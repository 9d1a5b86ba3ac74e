// The boundary is stored in a plane of its own, with two matrices: from the world into that plane, and from the world to the
// block's contents, both as they were when the boundary was drawn.
#include "atelier/database/entities/block_clip.h"

#include "atelier/database/objects/extension_objects.h"
#include "atelier/database/records/groups.h"

namespace atelier {
namespace {

// Twelve numbers, three rows of four.
AcGeMatrix3d matrixOf(const std::vector<double>& numbers, std::size_t first) {
  AcGeMatrix3d matrix;
  for (int row = 0; row < 3; ++row)
    for (int column = 0; column < 4; ++column)
      matrix(row, column) = numbers[first + static_cast<std::size_t>(4 * row + column)];
  return matrix;
}

}  // namespace

std::vector<AcGePoint3d> blockClip(AcDbImpDatabase& database, const Record& reference) {
  AcDbStub* filter = extensionObject(database, reference, {"ACAD_FILTER", "SPATIAL"});
  if (!filter || database.typeName(*filter) != "SPATIAL_FILTER") return {};
  const Record record = AcDbImpObject::of(&database.object(*filter)).settled();
  const Groups groups(record);
  std::vector<AcGePoint3d> corners = groups.points(10);
  // Distances of the front and the back come before the matrices, when there are any.
  const std::vector<double> numbers = groups.reals(40);
  constexpr std::size_t kBoth = 24;
  if (groups.integer(71, 1) == 0 || corners.size() < 2 || numbers.size() < kBoth) return {};
  if (corners.size() == 2) {
    const AcGePoint3d a = corners[0], b = corners[1];
    corners = {a, {b.x, a.y, 0}, b, {a.x, b.y, 0}};
  }
  const std::size_t first = numbers.size() - kBoth;
  const AcGeMatrix3d toContents = matrixOf(numbers, first) * matrixOf(numbers, first + kBoth / 2).inverse();
  for (AcGePoint3d& corner : corners) corner = toContents * corner;
  return corners;
}

}  // namespace atelier
