// Subclass marks by type, with the codes of each part except the one that gets all other groups.
// Those of polylines, vertices and dimensions depend on their flags.
#include "atelier/dxf/versions/modern_parts.h"

#include <algorithm>
#include <map>

#include "atelier/database/records/flags.h"

namespace atelier::dxf {
namespace {

const std::vector<int> kNone = {-1};

std::int64_t flagsOf(const Groups& groups, int code = 70) {
  const auto flag = std::find_if(groups.begin(), groups.end(), [&](const Group& g) { return g.code() == code; });
  return flag == groups.end() ? 0 : flag->integer();
}

std::vector<Part> polylineParts(std::int64_t flags) {
  return {{flags & PolylineFlags::kPolyface ? "AcDbPolyFaceMesh"
           : flags & PolylineFlags::kMesh   ? "AcDbPolygonMesh"
           : flags & PolylineFlags::kSpace  ? "AcDb3dPolyline"
                                            : "AcDb2dPolyline",
           {}}};
}

std::vector<Part> vertexParts(std::int64_t flags) {
  if ((flags & (VertexFlags::kFace | VertexFlags::kPlaced)) == VertexFlags::kFace) return {{"AcDbFaceRecord", {}}};
  return {{flags & VertexFlags::kFace     ? "AcDbPolyFaceMeshVertex"
           : flags & VertexFlags::kPlaced ? "AcDbPolygonMeshVertex"
           : flags & VertexFlags::kSpace  ? "AcDb3dPolylineVertex"
                                          : "AcDb2dVertex",
           {}},
          {"AcDbVertex", kNone}};
}

std::vector<Part> dimensionParts(std::int64_t type) {
  const std::vector<int> own = {13, 23, 33, 14, 24, 34, 15, 25, 35, 16, 26, 36, 40, 50};
  const auto with = [&](std::string_view mark) { return std::vector<Part>{{mark, own}, {"AcDbDimension", {}}}; };
  switch (type & 7) {
    case 0: return {{"AcDbRotatedDimension", kNone}, {"AcDbAlignedDimension", own}, {"AcDbDimension", {}}};
    case 1: return with("AcDbAlignedDimension");
    case 2: return with("AcDb2LineAngularDimension");
    case 3: return with("AcDbDiametricDimension");
    case 4: return with("AcDbRadialDimension");
    case 5: return with("AcDb3PointAngularDimension");
    default: return with("AcDbOrdinateDimension");
  }
}

}  // namespace

std::vector<Part> partsOf(const std::string& type, const Groups& groups) {
  static const std::map<std::string_view, std::vector<Part>> kParts = {
      {"LINE", {{"AcDbLine", {}}}},
      {"POINT", {{"AcDbPoint", {}}}},
      {"CIRCLE", {{"AcDbCircle", {}}}},
      {"ARC", {{"AcDbArc", {50, 51}}, {"AcDbCircle", {}}}},
      {"TRACE", {{"AcDbTrace", {}}}},
      {"SOLID", {{"AcDbTrace", {}}}},
      {"3DFACE", {{"AcDbFace", {}}}},
      {"SHAPE", {{"AcDbShape", {}}}},
      {"TEXT", {{"AcDbText#2", {73}}, {"AcDbText", {}}}},
      {"ATTRIB", {{"AcDbAttribute", {2, 70, 73, 74}}, {"AcDbText", {}}}},
      {"ATTDEF", {{"AcDbAttributeDefinition", {3, 2, 70, 73, 74}}, {"AcDbText", {}}}},
      {"BLOCK", {{"AcDbBlockBegin", {}}}},
      {"ENDBLK", {{"AcDbBlockEnd", {}}}}};
  if (type == "POLYLINE") return polylineParts(flagsOf(groups));
  if (type == "VERTEX") return vertexParts(flagsOf(groups));
  if (type == "DIMENSION") return dimensionParts(flagsOf(groups));
  if (type == "SEQEND") return {{"", {}}};
  if (type == "INSERT")
    return {{flagsOf(groups) > 1 || flagsOf(groups, 71) > 1 ? "AcDbMInsertBlock" : "AcDbBlockReference", {}}};
  const auto known = kParts.find(type);
  return known == kParts.end() ? std::vector<Part>() : known->second;
}

bool isCommon(int code) { return code == 8 || code == 6 || code == 62 || code == 67; }

std::string_view recordMark(std::string_view table) {
  constexpr std::pair<std::string_view, std::string_view> kMarks[] = {
      {"LAYER", "AcDbLayerTableRecord"},  {"LTYPE", "AcDbLinetypeTableRecord"},   {"STYLE", "AcDbTextStyleTableRecord"},
      {"VIEW", "AcDbViewTableRecord"},    {"UCS", "AcDbUCSTableRecord"},          {"VPORT", "AcDbViewportTableRecord"},
      {"APPID", "AcDbRegAppTableRecord"}, {"DIMSTYLE", "AcDbDimStyleTableRecord"}};
  for (const auto& [name, mark] : kMarks)
    if (name == table) return mark;
  return {};
}

}  // namespace atelier::dxf
