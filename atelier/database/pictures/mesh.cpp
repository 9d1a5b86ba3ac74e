// MESH: the edges of its faces as they are stored, without smoothing.
// Reference: DXF reference, "MESH".
#include <algorithm>
#include <set>

#include "atelier/database/entities/group_reader.h"
#include "atelier/database/pictures/part_maker.h"
#include "atelier/database/records/groups.h"

namespace atelier {

namespace {

// Group 93 counts the groups 90 behind it: of each face the number of its corners, then those.
std::vector<std::vector<std::size_t>> facesOf(const Groups& groups) {
  GroupReader in(groups.all());
  std::vector<std::vector<std::size_t>> faces;
  if (!in.seek(93)) return faces;
  in.integer(93);
  while (in.at(90)) {
    std::vector<std::size_t>& face = faces.emplace_back();
    for (std::int64_t left = in.integer(90); left > 0 && in.at(90); --left)
      face.push_back(static_cast<std::size_t>(in.integer(90)));
  }
  return faces;
}

}  // namespace

void meshParts(PartMaker& make, const Record& record) {
  const Groups groups(record);
  const std::vector<AcGePoint3d> points = groups.points(10);
  std::set<std::pair<std::size_t, std::size_t>> drawn;  // an edge belongs to two faces
  for (const std::vector<std::size_t>& face : facesOf(groups))
    for (std::size_t i = 0; i < face.size(); ++i) {
      const auto [a, b] = std::minmax(face[i], face[(i + 1) % face.size()]);
      if (b < points.size() && drawn.emplace(a, b).second) make.line(points[a], points[b]);
    }
}

}  // namespace atelier
