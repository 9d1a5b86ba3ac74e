// The table of record formats: for each type its sections and, in the order of writing, the fields in them.
// To add a type: its rows, and a line in kFormats.
#include "atelier/database/records/fields.h"

#include <array>
#include <iterator>
#include <numbers>

namespace atelier {
namespace {

constexpr std::string_view kEntity = "AcDbEntity";
constexpr int kNoField = -1;

// The rows after it belong to that section; its mark is written at its place.
constexpr Field section(std::string_view subclass) {
  return {subclass, kNoField, FieldKind::text, Presence::always, 0, "", ""};
}
// Fields are always written unless they are said to be optional.
constexpr Field row(FieldKind kind, int code, std::string_view name) {
  return {"", code, kind, Presence::always, 0, "", name};
}
constexpr Field real(int code, std::string_view name) { return row(FieldKind::real, code, name); }
constexpr Field integer(int code, std::string_view name) { return row(FieldKind::integer, code, name); }
constexpr Field text(int code, std::string_view name) { return row(FieldKind::text, code, name); }
constexpr Field handle(int code, std::string_view name) { return row(FieldKind::handle, code, name); }
constexpr Field point(int code, std::string_view name) { return row(FieldKind::point3, code, name); }

template <const auto&... parts>
constexpr std::size_t kSectionCount = (std::size_t{0} + ... + [] {
  std::size_t count = 0;
  for (const Field& row : parts) count += row.code == kNoField;
  return count;
}());

// The marks of the parts, and their fields with their sections.
template <const auto&... parts>
constexpr auto kMarks = [] {
  std::array<std::string_view, kSectionCount<parts...>> marks{};
  std::size_t i = 0;
  const auto add = [&](const auto& rows) {
    for (const Field& row : rows)
      if (row.code == kNoField) marks[i++] = row.subclass;
  };
  (add(parts), ...);
  return marks;
}();
template <const auto&... parts>
constexpr auto kFields = [] {
  std::array<Field, (std::size(parts) + ...) - kSectionCount<parts...>> fields{};
  std::size_t i = 0;
  std::string_view subclass;
  const auto add = [&](const auto& rows) {
    for (const Field& row : rows) {
      if (row.code == kNoField) subclass = row.subclass;
      else fields[i] = row, fields[i++].subclass = subclass;
    }
  };
  (add(parts), ...);
  return fields;
}();

constexpr Field kNormal = point(210, "normal").otherwise("z").shown();
constexpr Field kThickness = real(39, "thickness").optional();
constexpr Field kRecordName = text(2, "name"), kRecordFlags = integer(70, "flags").atLeast(0);

// Hundredths of a millimetre; below 0 those of the layer, the block, the drawing.
constexpr int kLineWeights[] = {-3, -2, -1, 0,  5,  9,  13,  15,  18,  20,  25,  30,  35, 40,
                                50, 53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};
constexpr int kSmoothings[] = {Smoothing::kNone, Smoothing::kQuadratic, Smoothing::kCubic, Smoothing::kBezier};
// Ratios worked out from lengths may be above 1 by rounding.
constexpr double kTiny = 1e-9;

constexpr Field kCommon[] = {
    section(kEntity),
    integer(67, "paperSpace").yesOrNo().shown(),
    text(410, "layout").optional(),
    text(8, "layer"),
    text(6, "linetype").otherwise("BYLAYER").optional(),
    integer(62, "color").otherwise(256).between(-255, 257).optional(),
    integer(370, "lineWeight").otherwise(-1).oneOf(kLineWeights).optional(),
    real(48, "linetypeScale").otherwise(1).above(0).optional(),
    integer(60, "invisible").yesOrNo().optional(),
    integer(420, "trueColor").optional(),
    integer(440, "transparency").optional(),
};
constexpr Field kLine[] = {
    section("AcDbLine"), kThickness, point(10, "start").must(), point(11, "end").must(), kNormal,
};
constexpr Field kRay[] = {
    section("AcDbRay"),
    point(10, "base").must(),
    point(11, "direction").otherwise(1).otherwise("x").must(),
};
constexpr Field kXline[] = {
    section("AcDbXline"),
    point(10, "base").must(),
    point(11, "direction").otherwise(1).otherwise("x").must(),
};
constexpr Field kCircle[] = {
    section("AcDbCircle"), kThickness, point(10, "centre").must(), real(40, "radius").above(0).must(), kNormal,
};
constexpr Field kArc[] = {
    section("AcDbCircle"),
    kThickness,
    point(10, "centre").must(),
    real(40, "radius").above(0).must(),
    kNormal,
    section("AcDbArc"),
    real(50, "startAngle").must(),
    real(51, "endAngle").must(),
};
constexpr Field kEllipse[] = {
    section("AcDbEllipse"),
    point(10, "centre").must(),
    point(11, "majorAxis").otherwise(1).otherwise("x").must(),
    kNormal,
    real(40, "ratio").otherwise(1).between(kTiny, 1 + kTiny).must(),
    real(41, "start"),
    real(42, "end").otherwise(2 * std::numbers::pi),
};
constexpr Field kSpline[] = {
    section("AcDbSpline"),
    kNormal,
    integer(70, "flags").otherwise(SplineFlags::kPlanar).atLeast(0),
    integer(71, "degree").otherwise(3).between(1, 25),
    integer(72, "knots").atLeast(0),
    integer(73, "controlPoints").atLeast(0),
    integer(74, "fitPoints").atLeast(0),
    real(42, "knotTolerance").otherwise(1e-07).atLeast(0),
    real(43, "pointTolerance").otherwise(1e-07).atLeast(0),
    real(44, "fitTolerance").otherwise(1e-10).atLeast(0).optional(),
};
constexpr Field kPoint[] = {
    section("AcDbPoint"),
    point(10, "position").must(),
    kThickness,
    kNormal,
};
// What a TEXT and attributes share.
constexpr Field kTextual[] = {
    section("AcDbText"),
    kThickness,
    point(10, "position").must(),
    real(40, "height").above(0).must(),
    text(1, "text").must(),
    real(50, "rotation").shown(),
    real(41, "widthFactor").otherwise(1).above(0).shown(),
    real(51, "oblique").shown(),
    text(7, "style").otherwise("Standard"),
    integer(71, "mirror").between(0, 6).shown(),
    integer(72, "horizontal").between(0, 5).shown(),
    point(11, "alignment").shown(),
    kNormal,
};
constexpr Field kText[] = {
    section("AcDbText#2"),
    integer(73, "vertical").between(0, 3).shown(),
};
constexpr Field kAttdef[] = {
    section("AcDbAttributeDefinition"),
    integer(280, "version").atLeast(0),
    text(3, "prompt"),
    text(2, "tag").must(),
    integer(70, "flags").atLeast(0),
    integer(73, "fieldLength").atLeast(0).shown(),
    integer(74, "vertical").between(0, 3).shown(),
};
constexpr Field kAttrib[] = {
    section("AcDbAttribute"),
    integer(280, "version").atLeast(0),
    text(2, "tag").must(),
    integer(70, "flags").atLeast(0),
    integer(73, "fieldLength").atLeast(0).shown(),
    integer(74, "vertical").between(0, 3).shown(),
};
constexpr Field kMText[] = {
    section("AcDbMText"),
    point(10, "location").must(),
    real(40, "height").otherwise(2.5).above(0),
    real(41, "width"),
    integer(71, "attachment").otherwise(1).between(1, 9),
    integer(72, "direction").otherwise(1).between(1, 5),
    text(1, "contents").must(),
    text(7, "style").otherwise("Standard").shown(),
    kNormal,
    point(11, "xDirection").otherwise(1).otherwise("x").shown(),
    real(50, "rotation").shown(),
    integer(73, "spacingStyle").otherwise(1).between(0, 2).shown(),
    real(44, "spacing").otherwise(1).between(0.25, 4).shown(),
};
constexpr Field kInsert[] = {
    section("AcDbBlockReference"),
    integer(66, "attributesFollow").yesOrNo().optional(),
    text(2, "block").must(),
    point(10, "position").must(),
    real(41, "scaleX").otherwise(1).shown(),
    real(42, "scaleY").otherwise(1).shown(),
    real(43, "scaleZ").otherwise(1).shown(),
    real(50, "rotation").shown(),
    integer(70, "columns").otherwise(1).atLeast(0).shown(),
    integer(71, "rows").otherwise(1).atLeast(0).shown(),
    real(44, "columnSpacing").shown(),
    real(45, "rowSpacing").shown(),
    kNormal,
};
constexpr Field kLwpolyline[] = {
    section("AcDbPolyline"),
    integer(90, "vertices").atLeast(0),
    integer(70, "flags").atLeast(0),
    real(43, "constantWidth").atLeast(0).optional(),
    real(38, "elevation").shown(),
    kThickness.shown(),
    kNormal,
};
constexpr Field kPolyline2d[] = {
    section("AcDb2dPolyline"),
    integer(66, "verticesFollow").otherwise(1).yesOrNo(),
    point(10, "elevation"),
    integer(70, "flags").atLeast(0),
    real(40, "startWidth").atLeast(0).shown(),
    real(41, "endWidth").atLeast(0).shown(),
    integer(75, "smooth").oneOf(kSmoothings).shown(),
    kNormal,
};
constexpr Field kVertex[] = {
    section("AcDbVertex"),
    section("AcDb2dVertex"),
    point(10, "position").must(),
    real(40, "startWidth").atLeast(0).shown(),
    real(41, "endWidth").atLeast(0).shown(),
    real(42, "bulge").shown(),
    integer(70, "flags").atLeast(0),
    real(50, "tangent").shown(),
};
constexpr Field kSolid[] = {
    section("AcDbTrace"),
    point(10, "first").must(),
    point(11, "second").must(),
    point(12, "third").must(),
    point(13, "fourth"),
    kThickness,
    kNormal,
};
constexpr Field kFace[] = {
    section("AcDbFace"),       point(10, "first").must(), point(11, "second").must(),
    point(12, "third").must(), point(13, "fourth"),       integer(70, "edges").between(0, 15).shown(),
};
constexpr Field kDimension[] = {
    section("AcDbDimension"),
    text(2, "block"),
    point(10, "definition").shown(),
    point(11, "textMiddle").shown(),
    integer(70, "kind").atLeast(0).shown(),
    text(1, "text").shown(),
    integer(71, "attachment").otherwise(5).between(1, 9).shown(),
    integer(72, "spacingStyle").otherwise(1).between(1, 2).shown(),
    real(41, "spacing").otherwise(1).between(0.25, 4).shown(),
    real(42, "measurement").optional(),
    real(53, "textRotation").shown(),
    real(51, "horizontal").shown(),
    kNormal,
    text(3, "style").otherwise("Standard").shown(),
};
constexpr Field kRegion[] = {
    section("AcDbModelerGeometry"),
};
constexpr Field kHatch[] = {
    section("AcDbHatch"),
    point(10, "elevation"),
    point(210, "normal").otherwise("z"),
    text(2, "pattern").otherwise("SOLID"),
    integer(70, "solid").otherwise(1).yesOrNo(),
    integer(71, "associative").yesOrNo(),
    integer(91, "loops").atLeast(0).must(),
    integer(75, "style").between(0, 2),
    integer(76, "patternType").otherwise(1).between(0, 2),
    integer(98, "seeds").atLeast(0),
};
constexpr Field kBlockRecord[] = {
    section("AcDbSymbolTableRecord"),
    section("AcDbBlockTableRecord"),
    text(2, "name"),
    handle(340, "layout"),
    integer(70, "units").atLeast(0),
    integer(280, "explodable").otherwise(1).yesOrNo(),
    integer(281, "uniformScale").yesOrNo(),
};
constexpr Field kBlock[] = {
    section(kEntity),
    text(8, "layer").otherwise("0"),
    section("AcDbBlockBegin"),
    text(2, "name"),
    integer(70, "flags").atLeast(0),
    point(10, "origin"),
    text(3, "nameAgain"),
    text(1, "path"),
    text(4, "comments").optional(),
};
constexpr Field kEndblk[] = {
    section(kEntity),
    text(8, "layer").otherwise("0"),
    section("AcDbBlockEnd"),
};
constexpr Field kLayer[] = {
    section("AcDbSymbolTableRecord"),
    section("AcDbLayerTableRecord"),
    kRecordName,
    kRecordFlags,
    integer(62, "color").otherwise(7).between(-255, 257),
    text(6, "linetype").otherwise("Continuous"),
    integer(290, "plotted").otherwise(1).yesOrNo().optional(),
    integer(370, "lineWeight").otherwise(-3).oneOf(kLineWeights),
    handle(390, "plotStyle").optional(),
};
constexpr Field kStyle[] = {
    section("AcDbSymbolTableRecord"),
    section("AcDbTextStyleTableRecord"),
    kRecordName,
    kRecordFlags,
    real(40, "height").atLeast(0),
    real(41, "widthFactor").otherwise(1).above(0),
    real(50, "oblique"),
    integer(71, "generation").between(0, 6),
    real(42, "lastHeight").otherwise(2.5).atLeast(0),
    text(3, "font").otherwise("txt"),
    text(4, "bigFont"),
};
constexpr Field kLtype[] = {
    section("AcDbSymbolTableRecord"),
    section("AcDbLinetypeTableRecord"),
    kRecordName,
    kRecordFlags,
    text(3, "description"),
    integer(72, "alignment").otherwise(65).between(65, 65),
    integer(73, "dashes").atLeast(0),
    real(40, "length").atLeast(0),
};
constexpr Field kAppid[] = {
    section("AcDbSymbolTableRecord"),
    section("AcDbRegAppTableRecord"),
    kRecordName,
    kRecordFlags,
};
constexpr Field kDictionary[] = {
    section("AcDbDictionary"),
    integer(280, "hardOwner").yesOrNo().optional(),
    integer(281, "cloning").otherwise(1).between(0, 5),
};
constexpr Field kXrecord[] = {
    section("AcDbXrecord"),
    integer(280, "cloning").otherwise(1).between(0, 5),
};
constexpr Field kGroup[] = {
    section("AcDbGroup"),
    text(300, "description"),
    integer(70, "anonymous").yesOrNo(),
    integer(71, "selectable").otherwise(1).yesOrNo(),
};

template <const auto&... parts>
constexpr RecordFormat record(std::string_view type, std::string_view className) {
  return {type, className, kMarks<parts...>, kFields<parts...>};
}
template <const auto&... parts>
constexpr RecordFormat entity(std::string_view type, std::string_view className) {
  return record<kCommon, parts...>(type, className);
}

constexpr RecordFormat kFormats[] = {
    entity<kLine>("LINE", "AcDbLine"),
    entity<kRay>("RAY", "AcDbRay"),
    entity<kXline>("XLINE", "AcDbXline"),
    entity<kCircle>("CIRCLE", "AcDbCircle"),
    entity<kArc>("ARC", "AcDbArc"),
    entity<kEllipse>("ELLIPSE", "AcDbEllipse"),
    entity<kSpline>("SPLINE", "AcDbSpline"),
    entity<kPoint>("POINT", "AcDbPoint"),
    entity<kTextual, kText>("TEXT", "AcDbText"),
    entity<kTextual, kAttdef>("ATTDEF", "AcDbAttributeDefinition"),
    entity<kTextual, kAttrib>("ATTRIB", "AcDbAttribute"),
    entity<kMText>("MTEXT", "AcDbMText"),
    entity<kInsert>("INSERT", "AcDbBlockReference"),
    entity<kLwpolyline>("LWPOLYLINE", "AcDbPolyline"),
    entity<kPolyline2d>("POLYLINE", "AcDb2dPolyline"),
    entity<kVertex>("VERTEX", "AcDbVertex"),
    entity<>("SEQEND", "AcDbSequenceEnd"),
    entity<kSolid>("SOLID", "AcDbSolid"),
    entity<kSolid>("TRACE", "AcDbSolid"),
    entity<kFace>("3DFACE", "AcDbFace"),
    entity<kDimension>("DIMENSION", "AcDbDimension"),
    entity<kRegion>("REGION", "AcDbRegion"),
    entity<kHatch>("HATCH", "AcDbHatch"),
    record<kBlockRecord>("BLOCK_RECORD", "AcDbBlockTableRecord"),
    record<kBlock>("BLOCK", "AcDbBlockBegin"),
    record<kEndblk>("ENDBLK", "AcDbBlockEnd"),
    record<kLayer>("LAYER", "AcDbLayerTableRecord"),
    record<kStyle>("STYLE", "AcDbTextStyleTableRecord"),
    record<kLtype>("LTYPE", "AcDbLinetypeTableRecord"),
    record<kAppid>("APPID", "AcDbRegAppTableRecord"),
    record<kDictionary>("DICTIONARY", "AcDbDictionary"),
    record<kXrecord>("XRECORD", "AcDbXrecord"),
    record<kGroup>("GROUP", "AcDbGroup"),
};

}  // namespace

std::span<const RecordFormat> allFormats() { return kFormats; }

const RecordFormat* formatOf(std::string_view type) {
  for (const RecordFormat& format : kFormats)
    if (format.type == type) return &format;
  return nullptr;
}

}  // namespace atelier
