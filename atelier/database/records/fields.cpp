// The table of record formats. A row is a field, in the order of writing; the default stands behind its kind.
// To add a type: its marks, its rows, and a line in kFormats.
#include "atelier/database/records/fields.h"

#include <array>

namespace atelier {
namespace {

using enum FieldKind;
constexpr auto A = Presence::always;
constexpr auto O = Presence::optional;
constexpr std::string_view kEntity = "AcDbEntity";

#define COMMON_ENTITY                                                                                \
  {kEntity, 67, integer, O, 0, "", "paperSpace"}, {kEntity, 410, text, O, 0, "", "layout"},          \
      {kEntity, 8, text, A, 0, "", "layer"}, {kEntity, 6, text, O, 0, "BYLAYER", "linetype"},        \
      {kEntity, 62, integer, O, 256, "", "color"}, {kEntity, 370, integer, O, -1, "", "lineWeight"}, \
      {kEntity, 48, real, O, 1, "", "linetypeScale"}, {kEntity, 60, integer, O, 0, "", "invisible"}, \
      {kEntity, 420, integer, O, 0, "", "trueColor"}, {                                              \
    kEntity, 440, integer, O, 0, "", "transparency"                                                  \
  }

#define NORMAL(subclass) \
  { subclass, 210, point3, O, 0, "z", "normal" }

constexpr Field kLine[] = {COMMON_ENTITY,
                           {"AcDbLine", 39, real, O, 0, "", "thickness"},
                           {"AcDbLine", 10, point3, A, 0, "", "start"},
                           {"AcDbLine", 11, point3, A, 0, "", "end"},
                           NORMAL("AcDbLine")};
constexpr Field kRay[] = {
    COMMON_ENTITY, {"AcDbRay", 10, point3, A, 0, "", "base"}, {"AcDbRay", 11, point3, A, 1, "x", "direction"}};
constexpr Field kXline[] = {
    COMMON_ENTITY, {"AcDbXline", 10, point3, A, 0, "", "base"}, {"AcDbXline", 11, point3, A, 1, "x", "direction"}};
constexpr Field kCircle[] = {COMMON_ENTITY,
                             {"AcDbCircle", 39, real, O, 0, "", "thickness"},
                             {"AcDbCircle", 10, point3, A, 0, "", "centre"},
                             {"AcDbCircle", 40, real, A, 0, "", "radius"},
                             NORMAL("AcDbCircle")};
constexpr Field kArc[] = {COMMON_ENTITY,
                          {"AcDbCircle", 39, real, O, 0, "", "thickness"},
                          {"AcDbCircle", 10, point3, A, 0, "", "centre"},
                          {"AcDbCircle", 40, real, A, 0, "", "radius"},
                          NORMAL("AcDbCircle"),
                          {"AcDbArc", 50, real, A, 0, "", "startAngle"},
                          {"AcDbArc", 51, real, A, 0, "", "endAngle"}};
constexpr Field kEllipse[] = {COMMON_ENTITY,
                              {"AcDbEllipse", 10, point3, A, 0, "", "centre"},
                              {"AcDbEllipse", 11, point3, A, 1, "x", "majorAxis"},
                              NORMAL("AcDbEllipse"),
                              {"AcDbEllipse", 40, real, A, 1, "", "ratio"},
                              {"AcDbEllipse", 41, real, A, 0, "", "start"},
                              {"AcDbEllipse", 42, real, A, 6.283185307179586, "", "end"}};
constexpr Field kSpline[] = {COMMON_ENTITY,
                             NORMAL("AcDbSpline"),
                             {"AcDbSpline", 70, integer, A, 8, "", "flags"},
                             {"AcDbSpline", 71, integer, A, 3, "", "degree"},
                             {"AcDbSpline", 72, integer, A, 0, "", "knots"},
                             {"AcDbSpline", 73, integer, A, 0, "", "controlPoints"},
                             {"AcDbSpline", 74, integer, A, 0, "", "fitPoints"},
                             {"AcDbSpline", 42, real, A, 1e-7, "", "knotTolerance"},
                             {"AcDbSpline", 43, real, A, 1e-7, "", "pointTolerance"},
                             {"AcDbSpline", 44, real, O, 1e-10, "", "fitTolerance"}};
constexpr Field kPoint[] = {COMMON_ENTITY,
                            {"AcDbPoint", 10, point3, A, 0, "", "position"},
                            {"AcDbPoint", 39, real, O, 0, "", "thickness"},
                            NORMAL("AcDbPoint")};
#define TEXT_FIELDS                                                                                     \
  {"AcDbText", 39, real, O, 0, "", "thickness"}, {"AcDbText", 10, point3, A, 0, "", "position"},        \
      {"AcDbText", 40, real, A, 0, "", "height"}, {"AcDbText", 1, text, A, 0, "", "text"},              \
      {"AcDbText", 50, real, O, 0, "", "rotation"}, {"AcDbText", 41, real, O, 1, "", "widthFactor"},    \
      {"AcDbText", 51, real, O, 0, "", "oblique"}, {"AcDbText", 7, text, A, 0, "Standard", "style"},    \
      {"AcDbText", 71, integer, O, 0, "", "mirror"}, {"AcDbText", 72, integer, O, 0, "", "horizontal"}, \
      {"AcDbText", 11, point3, O, 0, "", "alignment"}, NORMAL("AcDbText")
constexpr Field kText[] = {COMMON_ENTITY, TEXT_FIELDS, {"AcDbText#2", 73, integer, O, 0, "", "vertical"}};
constexpr Field kAttdef[] = {COMMON_ENTITY,
                             TEXT_FIELDS,
                             {"AcDbAttributeDefinition", 280, integer, A, 0, "", "version"},
                             {"AcDbAttributeDefinition", 3, text, A, 0, "", "prompt"},
                             {"AcDbAttributeDefinition", 2, text, A, 0, "", "tag"},
                             {"AcDbAttributeDefinition", 70, integer, A, 0, "", "flags"},
                             {"AcDbAttributeDefinition", 73, integer, O, 0, "", "fieldLength"},
                             {"AcDbAttributeDefinition", 74, integer, O, 0, "", "vertical"}};
constexpr Field kAttrib[] = {COMMON_ENTITY,
                             TEXT_FIELDS,
                             {"AcDbAttribute", 280, integer, A, 0, "", "version"},
                             {"AcDbAttribute", 2, text, A, 0, "", "tag"},
                             {"AcDbAttribute", 70, integer, A, 0, "", "flags"},
                             {"AcDbAttribute", 73, integer, O, 0, "", "fieldLength"},
                             {"AcDbAttribute", 74, integer, O, 0, "", "vertical"}};
constexpr Field kMText[] = {COMMON_ENTITY,
                            {"AcDbMText", 10, point3, A, 0, "", "location"},
                            {"AcDbMText", 40, real, A, 2.5, "", "height"},
                            {"AcDbMText", 41, real, A, 0, "", "width"},
                            {"AcDbMText", 71, integer, A, 1, "", "attachment"},
                            {"AcDbMText", 72, integer, A, 1, "", "direction"},
                            {"AcDbMText", 1, text, A, 0, "", "contents"},
                            {"AcDbMText", 7, text, O, 0, "Standard", "style"},
                            NORMAL("AcDbMText"),
                            {"AcDbMText", 11, point3, O, 1, "x", "xDirection"},
                            {"AcDbMText", 50, real, O, 0, "", "rotation"},
                            {"AcDbMText", 73, integer, O, 1, "", "spacingStyle"},
                            {"AcDbMText", 44, real, O, 1, "", "spacing"}};
constexpr Field kInsert[] = {COMMON_ENTITY,
                             {"AcDbBlockReference", 66, integer, O, 0, "", "attributesFollow"},
                             {"AcDbBlockReference", 2, text, A, 0, "", "block"},
                             {"AcDbBlockReference", 10, point3, A, 0, "", "position"},
                             {"AcDbBlockReference", 41, real, O, 1, "", "scaleX"},
                             {"AcDbBlockReference", 42, real, O, 1, "", "scaleY"},
                             {"AcDbBlockReference", 43, real, O, 1, "", "scaleZ"},
                             {"AcDbBlockReference", 50, real, O, 0, "", "rotation"},
                             {"AcDbBlockReference", 70, integer, O, 1, "", "columns"},
                             {"AcDbBlockReference", 71, integer, O, 1, "", "rows"},
                             {"AcDbBlockReference", 44, real, O, 0, "", "columnSpacing"},
                             {"AcDbBlockReference", 45, real, O, 0, "", "rowSpacing"},
                             NORMAL("AcDbBlockReference")};
constexpr Field kLwpolyline[] = {COMMON_ENTITY,
                                 {"AcDbPolyline", 90, integer, A, 0, "", "vertices"},
                                 {"AcDbPolyline", 70, integer, A, 0, "", "flags"},
                                 {"AcDbPolyline", 43, real, O, 0, "", "constantWidth"},
                                 {"AcDbPolyline", 38, real, O, 0, "", "elevation"},
                                 {"AcDbPolyline", 39, real, O, 0, "", "thickness"}};
constexpr Field kPolyline2d[] = {COMMON_ENTITY,
                                 {"AcDb2dPolyline", 66, integer, A, 1, "", "verticesFollow"},
                                 {"AcDb2dPolyline", 10, point3, A, 0, "", "elevation"},
                                 {"AcDb2dPolyline", 70, integer, A, 0, "", "flags"},
                                 {"AcDb2dPolyline", 40, real, O, 0, "", "startWidth"},
                                 {"AcDb2dPolyline", 41, real, O, 0, "", "endWidth"},
                                 {"AcDb2dPolyline", 75, integer, O, 0, "", "smooth"},
                                 NORMAL("AcDb2dPolyline")};
constexpr Field kVertex[] = {COMMON_ENTITY,
                             {"AcDb2dVertex", 10, point3, A, 0, "", "position"},
                             {"AcDb2dVertex", 40, real, O, 0, "", "startWidth"},
                             {"AcDb2dVertex", 41, real, O, 0, "", "endWidth"},
                             {"AcDb2dVertex", 42, real, O, 0, "", "bulge"},
                             {"AcDb2dVertex", 70, integer, A, 0, "", "flags"},
                             {"AcDb2dVertex", 50, real, O, 0, "", "tangent"}};
constexpr Field kSeqend[] = {COMMON_ENTITY};
#define FOUR_CORNERS(subclass)                                                           \
  {subclass, 10, point3, A, 0, "", "first"}, {subclass, 11, point3, A, 0, "", "second"}, \
      {subclass, 12, point3, A, 0, "", "third"}, {                                       \
    subclass, 13, point3, A, 0, "", "fourth"                                             \
  }
constexpr Field kSolid[] = {
    COMMON_ENTITY, FOUR_CORNERS("AcDbTrace"), {"AcDbTrace", 39, real, O, 0, "", "thickness"}, NORMAL("AcDbTrace")};
constexpr Field kFace[] = {COMMON_ENTITY, FOUR_CORNERS("AcDbFace"), {"AcDbFace", 70, integer, O, 0, "", "edges"}};
constexpr Field kDimension[] = {COMMON_ENTITY, {"AcDbDimension", 2, text, A, 0, "", "block"}};
constexpr Field kRegion[] = {COMMON_ENTITY};
constexpr Field kHatch[] = {COMMON_ENTITY,
                            {"AcDbHatch", 10, point3, A, 0, "", "elevation"},
                            {"AcDbHatch", 210, point3, A, 0, "z", "normal"},
                            {"AcDbHatch", 2, text, A, 0, "SOLID", "pattern"},
                            {"AcDbHatch", 70, integer, A, 1, "", "solid"},
                            {"AcDbHatch", 71, integer, A, 0, "", "associative"},
                            {"AcDbHatch", 91, integer, A, 0, "", "loops"},
                            {"AcDbHatch", 75, integer, A, 0, "", "style"},
                            {"AcDbHatch", 76, integer, A, 1, "", "patternType"},
                            {"AcDbHatch", 98, integer, A, 0, "", "seeds"}};

#define RECORD_NAME(subclass) \
  {subclass, 2, text, A, 0, "", "name"}, { subclass, 70, integer, A, 0, "", "flags" }
constexpr Field kBlockRecord[] = {{"AcDbBlockTableRecord", 2, text, A, 0, "", "name"},
                                  {"AcDbBlockTableRecord", 340, handle, A, 0, "", "layout"},
                                  {"AcDbBlockTableRecord", 70, integer, A, 0, "", "units"},
                                  {"AcDbBlockTableRecord", 280, integer, A, 1, "", "explodable"},
                                  {"AcDbBlockTableRecord", 281, integer, A, 0, "", "uniformScale"}};
constexpr Field kBlock[] = {{kEntity, 8, text, A, 0, "0", "layer"},
                            {"AcDbBlockBegin", 2, text, A, 0, "", "name"},
                            {"AcDbBlockBegin", 70, integer, A, 0, "", "flags"},
                            {"AcDbBlockBegin", 10, point3, A, 0, "", "origin"},
                            {"AcDbBlockBegin", 3, text, A, 0, "", "nameAgain"},
                            {"AcDbBlockBegin", 1, text, A, 0, "", "path"},
                            {"AcDbBlockBegin", 4, text, O, 0, "", "comments"}};
constexpr Field kEndblk[] = {{kEntity, 8, text, A, 0, "0", "layer"}};
constexpr Field kLayer[] = {RECORD_NAME("AcDbLayerTableRecord"),
                            {"AcDbLayerTableRecord", 62, integer, A, 7, "", "color"},
                            {"AcDbLayerTableRecord", 6, text, A, 0, "Continuous", "linetype"},
                            {"AcDbLayerTableRecord", 290, integer, O, 1, "", "plotted"},
                            {"AcDbLayerTableRecord", 370, integer, A, -3, "", "lineWeight"},
                            {"AcDbLayerTableRecord", 390, handle, O, 0, "", "plotStyle"}};
constexpr Field kStyle[] = {RECORD_NAME("AcDbTextStyleTableRecord"),
                            {"AcDbTextStyleTableRecord", 40, real, A, 0, "", "height"},
                            {"AcDbTextStyleTableRecord", 41, real, A, 1, "", "widthFactor"},
                            {"AcDbTextStyleTableRecord", 50, real, A, 0, "", "oblique"},
                            {"AcDbTextStyleTableRecord", 71, integer, A, 0, "", "generation"},
                            {"AcDbTextStyleTableRecord", 42, real, A, 2.5, "", "lastHeight"},
                            {"AcDbTextStyleTableRecord", 3, text, A, 0, "txt", "font"},
                            {"AcDbTextStyleTableRecord", 4, text, A, 0, "", "bigFont"}};
constexpr Field kLtype[] = {RECORD_NAME("AcDbLinetypeTableRecord"),
                            {"AcDbLinetypeTableRecord", 3, text, A, 0, "", "description"},
                            {"AcDbLinetypeTableRecord", 72, integer, A, 65, "", "alignment"},
                            {"AcDbLinetypeTableRecord", 73, integer, A, 0, "", "dashes"},
                            {"AcDbLinetypeTableRecord", 40, real, A, 0, "", "length"}};
constexpr Field kAppid[] = {RECORD_NAME("AcDbRegAppTableRecord")};
constexpr Field kDictionary[] = {{"AcDbDictionary", 280, integer, O, 0, "", "hardOwner"},
                                 {"AcDbDictionary", 281, integer, A, 1, "", "cloning"}};
constexpr Field kXrecord[] = {{"AcDbXrecord", 280, integer, A, 1, "", "cloning"}};
constexpr Field kGroup[] = {{"AcDbGroup", 300, text, A, 0, "", "description"},
                            {"AcDbGroup", 70, integer, A, 0, "", "anonymous"},
                            {"AcDbGroup", 71, integer, A, 1, "", "selectable"}};

#define MARKS(NAME, ...) constexpr std::string_view NAME[] = {__VA_ARGS__}
MARKS(mLine, kEntity, "AcDbLine");
MARKS(mRay, kEntity, "AcDbRay");
MARKS(mXline, kEntity, "AcDbXline");
MARKS(mCircle, kEntity, "AcDbCircle");
MARKS(mArc, kEntity, "AcDbCircle", "AcDbArc");
MARKS(mEllipse, kEntity, "AcDbEllipse");
MARKS(mSpline, kEntity, "AcDbSpline");
MARKS(mPoint, kEntity, "AcDbPoint");
MARKS(mText, kEntity, "AcDbText", "AcDbText#2");
MARKS(mAttdef, kEntity, "AcDbText", "AcDbAttributeDefinition");
MARKS(mAttrib, kEntity, "AcDbText", "AcDbAttribute");
MARKS(mMText, kEntity, "AcDbMText");
MARKS(mInsert, kEntity, "AcDbBlockReference");
MARKS(mLwpolyline, kEntity, "AcDbPolyline");
MARKS(mPolyline2d, kEntity, "AcDb2dPolyline");
MARKS(mVertex, kEntity, "AcDbVertex", "AcDb2dVertex");
MARKS(mSeqend, kEntity);
MARKS(mSolid, kEntity, "AcDbTrace");
MARKS(mFace, kEntity, "AcDbFace");
MARKS(mDimension, kEntity, "AcDbDimension");
MARKS(mRegion, kEntity, "AcDbModelerGeometry");
MARKS(mHatch, kEntity, "AcDbHatch");
MARKS(mBlockRecord, "AcDbSymbolTableRecord", "AcDbBlockTableRecord");
MARKS(mBlock, kEntity, "AcDbBlockBegin");
MARKS(mEndblk, kEntity, "AcDbBlockEnd");
MARKS(mLayer, "AcDbSymbolTableRecord", "AcDbLayerTableRecord");
MARKS(mStyle, "AcDbSymbolTableRecord", "AcDbTextStyleTableRecord");
MARKS(mLtype, "AcDbSymbolTableRecord", "AcDbLinetypeTableRecord");
MARKS(mAppid, "AcDbSymbolTableRecord", "AcDbRegAppTableRecord");
MARKS(mDictionary, "AcDbDictionary");
MARKS(mXrecord, "AcDbXrecord");
MARKS(mGroup, "AcDbGroup");

constexpr RecordFormat kFormats[] = {
    {"LINE", "AcDbLine", mLine, kLine},
    {"RAY", "AcDbRay", mRay, kRay},
    {"XLINE", "AcDbXline", mXline, kXline},
    {"CIRCLE", "AcDbCircle", mCircle, kCircle},
    {"ARC", "AcDbArc", mArc, kArc},
    {"ELLIPSE", "AcDbEllipse", mEllipse, kEllipse},
    {"SPLINE", "AcDbSpline", mSpline, kSpline},
    {"POINT", "AcDbPoint", mPoint, kPoint},
    {"TEXT", "AcDbText", mText, kText},
    {"ATTDEF", "AcDbAttributeDefinition", mAttdef, kAttdef},
    {"ATTRIB", "AcDbAttribute", mAttrib, kAttrib},
    {"MTEXT", "AcDbMText", mMText, kMText},
    {"INSERT", "AcDbBlockReference", mInsert, kInsert},
    {"LWPOLYLINE", "AcDbPolyline", mLwpolyline, kLwpolyline},
    {"POLYLINE", "AcDb2dPolyline", mPolyline2d, kPolyline2d},
    {"VERTEX", "AcDbVertex", mVertex, kVertex},
    {"SEQEND", "AcDbSequenceEnd", mSeqend, kSeqend},
    {"SOLID", "AcDbSolid", mSolid, kSolid},
    {"TRACE", "AcDbSolid", mSolid, kSolid},
    {"3DFACE", "AcDbFace", mFace, kFace},
    {"DIMENSION", "AcDbDimension", mDimension, kDimension},
    {"REGION", "AcDbRegion", mRegion, kRegion},
    {"HATCH", "AcDbHatch", mHatch, kHatch},
    {"BLOCK_RECORD", "AcDbBlockTableRecord", mBlockRecord, kBlockRecord},
    {"BLOCK", "AcDbBlockBegin", mBlock, kBlock},
    {"ENDBLK", "AcDbBlockEnd", mEndblk, kEndblk},
    {"LAYER", "AcDbLayerTableRecord", mLayer, kLayer},
    {"STYLE", "AcDbTextStyleTableRecord", mStyle, kStyle},
    {"LTYPE", "AcDbLinetypeTableRecord", mLtype, kLtype},
    {"APPID", "AcDbRegAppTableRecord", mAppid, kAppid},
    {"DICTIONARY", "AcDbDictionary", mDictionary, kDictionary},
    {"XRECORD", "AcDbXrecord", mXrecord, kXrecord},
    {"GROUP", "AcDbGroup", mGroup, kGroup},
};

}  // namespace

std::span<const RecordFormat> allFormats() { return kFormats; }

const RecordFormat* formatOf(std::string_view type) {
  for (const RecordFormat& format : kFormats)
    if (format.type == type) return &format;
  return nullptr;
}

}  // namespace atelier
