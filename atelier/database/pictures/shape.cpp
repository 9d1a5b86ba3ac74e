// SHAPE: a symbol of a shape file that one of the drawing's styles names.
// Reference: DXF reference, "SHAPE".
#include <cmath>

#include "atelier/base/files.h"
#include "atelier/database/curves/plane.h"
#include "atelier/database/pictures/part_maker.h"
#include "atelier/database/pictures/shape_files.h"
#include "atelier/database/records/groups.h"

namespace atelier {

std::shared_ptr<const fonts::ShapeFile> shapeFile(const AcDbImpDatabase& database, const std::string& name) {
  if (name.empty()) return nullptr;
  const bool ends = name.size() > 4 && equalNoCase(std::string_view(name).substr(name.size() - 4), ".shx");
  const auto path = fileBeside(database.path, ends ? name : name + ".shx");
  return path ? fonts::ShapeFile::of(*path) : nullptr;
}

namespace {

constexpr int kShapes = 1;  // of a style: it stands for a shape file

// The shape of that name in the first file that has it; the files that aren't there are noted.
std::optional<std::vector<fonts::PenStroke>> find(AcDbImpDatabase& database, const std::string& name,
                                                  std::string& absent) {
  const AcDbStub* styles = database.table("STYLE");
  if (!styles || !styles->children) return std::nullopt;
  for (AcDbStub* stub : *styles->children) {
    if (stub->is(AcDbStub::kErased)) continue;
    const Record& style = AcDbImpObject::of(&database.object(*stub)).record;
    if (!(style.integer(integerField("AcDbSymbolTableRecord", 70)) & kShapes) &&
        !(style.integer(integerField("AcDbTextStyleTableRecord", 70)) & kShapes))
      continue;
    const std::string file = style.text(textField("AcDbTextStyleTableRecord", 3));
    const auto shapes = shapeFile(database, file);
    if (!shapes) absent += (absent.empty() ? "" : ", ") + file;
    else if (auto found = shapes->shape(name)) return found;
  }
  return std::nullopt;
}

}  // namespace

void shapeParts(PartMaker& make, const Record& record) {
  const Groups groups(record);
  std::string absent;
  const auto strokes = find(make.database(), std::string(groups.text(2)), absent);
  if (!strokes) return make.missing(absent.empty() ? "forme inconnue" : "sans fichier " + absent);
  const AcGePoint3d at = groups.point(10);
  const double size = groups.real(40), wide = groups.real(41, 1), lean = std::tan(groups.radians(51));
  const double turn = groups.radians(50);
  const AcGeVector3d normal = groups.normal();
  for (const fonts::PenStroke& stroke : *strokes) {
    std::vector<AcGePoint3d> points;
    for (const fonts::Pt p : stroke) {
      const double x = size * (wide * p.x + lean * p.y), y = size * p.y;
      const AcGeVector3d turned(x * std::cos(turn) - y * std::sin(turn), x * std::sin(turn) + y * std::cos(turn), 0);
      points.push_back(toWorld(at + turned, normal));
    }
    make.path(points);
  }
}

}  // namespace atelier
