// The rows by type. Groups that aren't named stay as they are.
#include "atelier/database/entities/carried_rules.h"

#include <algorithm>
#include <iterator>

namespace atelier {
namespace {

using enum Meaning;

constexpr CarriedGroup kDimension[] = {
    {"AcDbDimension", 10, point},
    {"AcDbDimension", 11, planePoint},
    {"AcDbDimension", 12, planePoint},
    {"AcDbAlignedDimension", 12, planePoint},
    {"AcDbAlignedDimension", 13, point},
    {"AcDbAlignedDimension", 14, point},
    {"AcDbAlignedDimension", 50, angle},
    {"AcDbRotatedDimension", 50, angle},
    {"AcDbRadialDimension", 15, point},
    {"AcDbRadialDimension", 40, length},
    {"AcDbDiametricDimension", 15, point},
    {"AcDbDiametricDimension", 40, length},
    {"AcDb2LineAngularDimension", 13, point},
    {"AcDb2LineAngularDimension", 14, point},
    {"AcDb2LineAngularDimension", 15, point},
    {"AcDb2LineAngularDimension", 16, planePoint},
    {"AcDb3PointAngularDimension", 13, point},
    {"AcDb3PointAngularDimension", 14, point},
    {"AcDb3PointAngularDimension", 15, point},
    {"AcDb3PointAngularDimension", 16, planePoint},
    {"AcDbOrdinateDimension", 13, point},
    {"AcDbOrdinateDimension", 14, point},
    {"AcDbArcDimension", 13, point},
    {"AcDbArcDimension", 14, point},
    {"AcDbArcDimension", 15, point},
    {"AcDbArcDimension", 16, point},
    {"AcDbArcDimension", 17, point},
    {"AcDbRadialDimensionLarge", 13, point},
    {"AcDbRadialDimensionLarge", 14, point},
    {"AcDbRadialDimensionLarge", 15, point},
};
constexpr CarriedGroup kLeader[] = {
    {"AcDbLeader", 10, point},      {"AcDbLeader", 40, length},  {"AcDbLeader", 41, length},
    {"AcDbLeader", 211, direction}, {"AcDbLeader", 212, vector}, {"AcDbLeader", 213, vector},
};
constexpr CarriedGroup kTolerance[] = {{"AcDbFcf", 10, point}, {"AcDbFcf", 11, direction}};
constexpr CarriedGroup kMline[] = {
    {"AcDbMline", 40, length},     {"AcDbMline", 10, point},     {"AcDbMline", 11, point},
    {"AcDbMline", 12, direction},  {"AcDbMline", 13, direction}, {"AcDbMline", 41, length},
    {"AcDbMline", 70, mirrorSide},
};
constexpr CarriedGroup kRaster[] = {
    {"AcDbRasterImage", 10, point}, {"AcDbRasterImage", 11, vector}, {"AcDbRasterImage", 12, vector},
    {"AcDbWipeout", 10, point},     {"AcDbWipeout", 11, vector},     {"AcDbWipeout", 12, vector},
};
constexpr CarriedGroup kUnderlay[] = {
    {"AcDbUnderlayReference", 10, planePoint}, {"AcDbUnderlayReference", 41, length},
    {"AcDbUnderlayReference", 42, length},     {"AcDbUnderlayReference", 43, length},
    {"AcDbUnderlayReference", 50, angle},
};
constexpr CarriedGroup kTable[] = {{"AcDbBlockReference", 10, point}, {"AcDbTable", 11, direction}};
constexpr CarriedGroup kShape[] = {{"AcDbShape", 10, planePoint}, {"AcDbShape", 40, length}, {"AcDbShape", 50, angle}};
constexpr CarriedGroup kViewport[] = {
    {"AcDbViewport", 10, point}, {"AcDbViewport", 40, length}, {"AcDbViewport", 41, length}};
constexpr CarriedGroup kMesh[] = {{"AcDbSubDMesh", 10, point}};

constexpr CarriedType kTypes[] = {
    {"DIMENSION", true, true, true, kDimension},
    {"ARC_DIMENSION", false, true, false, kDimension},
    {"LARGE_RADIAL_DIMENSION", true, true, true, kDimension},
    {"LEADER", true, true, true, kLeader},
    {"TOLERANCE", true, true, true, kTolerance},
    {"MLINE", true, true, true, kMline},
    {"IMAGE", true, true, true, kRaster},
    {"WIPEOUT", true, true, true, kRaster},
    {"PDFUNDERLAY", true, true, false, kUnderlay},
    {"DWFUNDERLAY", true, true, false, kUnderlay},
    {"DGNUNDERLAY", true, true, false, kUnderlay},
    {"ACAD_TABLE", true, false, false, kTable},
    {"SHAPE", true, true, false, kShape},
    {"VIEWPORT", false, true, false, kViewport},
    {"MESH", true, true, true, kMesh},
    {"MULTILEADER", true, true, false, {}},
    // Meshes and faces of a polyline are vertices, which move themselves.
    {"POLYLINE", true, true, true, {}},
};

}  // namespace

const CarriedType* carriedType(std::string_view type) {
  const auto* row = std::ranges::find(kTypes, type, &CarriedType::type);
  return row == std::end(kTypes) ? nullptr : row;
}

}  // namespace atelier
