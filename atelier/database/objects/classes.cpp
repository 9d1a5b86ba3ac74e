// The run-time classes: one row each, name, parent, record type, and how an object of it is made.
// Their order is only for the reader: a class is made at its first use.
#include <unordered_map>

#include "atelier/base/text.h"
#include "atelier/database/objects/imp_database.h"
#include "atelier/database/objects/new_record.h"
#include "hote/dbdict.h"
#include "hote/dbpl.h"
#include "hote/dbsymtb.h"

AcRxClass* AcRxObject::desc() {
  static AcRxClass rxClass(L"AcRxObject", nullptr);
  return &rxClass;
}
AcRxClass* AcRxObject::isA() const { return desc(); }

#define ATELIER_CLASS(CLASS, PARENT, DXF, MAKER)                      \
  AcRxClass* CLASS::desc() {                                          \
    static AcRxClass rxClass(L"" #CLASS, PARENT::desc(), DXF, MAKER); \
    return &rxClass;                                                  \
  }                                                                   \
  AcRxClass* CLASS::isA() const { return desc(); }
#define MAKES(CLASS) [] { return static_cast<AcRxObject*>(new CLASS); }

ATELIER_CLASS(AcDbObject, AcRxObject, nullptr, nullptr)
ATELIER_CLASS(AcDbEntity, AcDbObject, nullptr, nullptr)
ATELIER_CLASS(AcDbDatabase, AcRxObject, nullptr, nullptr)
ATELIER_CLASS(AcDbHostApplicationServices, AcRxObject, nullptr, nullptr)
ATELIER_CLASS(AcDbCurve, AcDbEntity, nullptr, nullptr)
ATELIER_CLASS(AcDbLine, AcDbCurve, L"LINE", MAKES(AcDbLine))
ATELIER_CLASS(AcDbRay, AcDbCurve, L"RAY", MAKES(AcDbRay))
ATELIER_CLASS(AcDbXline, AcDbCurve, L"XLINE", MAKES(AcDbXline))
ATELIER_CLASS(AcDbCircle, AcDbCurve, L"CIRCLE", MAKES(AcDbCircle))
ATELIER_CLASS(AcDbArc, AcDbCurve, L"ARC", MAKES(AcDbArc))
ATELIER_CLASS(AcDbEllipse, AcDbCurve, L"ELLIPSE", MAKES(AcDbEllipse))
ATELIER_CLASS(AcDbSpline, AcDbCurve, L"SPLINE", MAKES(AcDbSpline))
ATELIER_CLASS(AcDbPolyline, AcDbCurve, L"LWPOLYLINE", MAKES(AcDbPolyline))
ATELIER_CLASS(AcDb2dPolyline, AcDbCurve, L"POLYLINE", MAKES(AcDb2dPolyline))
ATELIER_CLASS(AcDb3dPolyline, AcDbCurve, L"POLYLINE", MAKES(AcDb3dPolyline))
ATELIER_CLASS(AcDbVertex, AcDbEntity, L"VERTEX", MAKES(AcDbVertex))
ATELIER_CLASS(AcDbPoint, AcDbEntity, L"POINT", MAKES(AcDbPoint))
ATELIER_CLASS(AcDbText, AcDbEntity, L"TEXT", MAKES(AcDbText))
ATELIER_CLASS(AcDbAttributeDefinition, AcDbText, L"ATTDEF", MAKES(AcDbAttributeDefinition))
ATELIER_CLASS(AcDbAttribute, AcDbText, L"ATTRIB", MAKES(AcDbAttribute))
ATELIER_CLASS(AcDbMText, AcDbEntity, L"MTEXT", MAKES(AcDbMText))
ATELIER_CLASS(AcDbBlockReference, AcDbEntity, L"INSERT", MAKES(AcDbBlockReference))
ATELIER_CLASS(AcDbSolid, AcDbEntity, L"SOLID", MAKES(AcDbSolid))
ATELIER_CLASS(AcDbFace, AcDbEntity, L"3DFACE", MAKES(AcDbFace))
ATELIER_CLASS(AcDbRegion, AcDbEntity, L"REGION", MAKES(AcDbRegion))
ATELIER_CLASS(AcDbHatch, AcDbEntity, L"HATCH", MAKES(AcDbHatch))
ATELIER_CLASS(AcDbSymbolTable, AcDbObject, L"TABLE", nullptr)
ATELIER_CLASS(AcDbBlockTable, AcDbSymbolTable, L"TABLE", MAKES(AcDbBlockTable))
ATELIER_CLASS(AcDbLayerTable, AcDbSymbolTable, L"TABLE", MAKES(AcDbLayerTable))
ATELIER_CLASS(AcDbTextStyleTable, AcDbSymbolTable, L"TABLE", MAKES(AcDbTextStyleTable))
ATELIER_CLASS(AcDbLinetypeTable, AcDbSymbolTable, L"TABLE", MAKES(AcDbLinetypeTable))
ATELIER_CLASS(AcDbRegAppTable, AcDbSymbolTable, L"TABLE", MAKES(AcDbRegAppTable))
ATELIER_CLASS(AcDbSymbolTableRecord, AcDbObject, nullptr, nullptr)
ATELIER_CLASS(AcDbBlockTableRecord, AcDbSymbolTableRecord, L"BLOCK_RECORD", MAKES(AcDbBlockTableRecord))
ATELIER_CLASS(AcDbLayerTableRecord, AcDbSymbolTableRecord, L"LAYER", MAKES(AcDbLayerTableRecord))
ATELIER_CLASS(AcDbTextStyleTableRecord, AcDbSymbolTableRecord, L"STYLE", MAKES(AcDbTextStyleTableRecord))
ATELIER_CLASS(AcDbLinetypeTableRecord, AcDbSymbolTableRecord, L"LTYPE", MAKES(AcDbLinetypeTableRecord))
ATELIER_CLASS(AcDbRegAppTableRecord, AcDbSymbolTableRecord, L"APPID", MAKES(AcDbRegAppTableRecord))
ATELIER_CLASS(AcDbDictionary, AcDbObject, L"DICTIONARY", MAKES(AcDbDictionary))
ATELIER_CLASS(AcDbXrecord, AcDbObject, L"XRECORD", MAKES(AcDbXrecord))
ATELIER_CLASS(AcDbGroup, AcDbObject, L"GROUP", MAKES(AcDbGroup))

// A dimension has many kinds; it is only ever made from a record.
AcRxClass* AcDbDimension::desc() {
  static AcRxClass rxClass(L"AcDbDimension", AcDbEntity::desc(), L"DIMENSION", [] {
    struct Parsed : AcDbDimension {};
    return static_cast<AcRxObject*>(new Parsed);
  });
  return &rxClass;
}
AcRxClass* AcDbDimension::isA() const { return desc(); }

namespace atelier {
namespace {

using Describer = AcRxClass* (*)();
constexpr Describer kDescribers[] = {AcDbObject::desc,
                                     AcDbEntity::desc,
                                     AcDbCurve::desc,
                                     AcDbLine::desc,
                                     AcDbRay::desc,
                                     AcDbXline::desc,
                                     AcDbCircle::desc,
                                     AcDbArc::desc,
                                     AcDbEllipse::desc,
                                     AcDbSpline::desc,
                                     AcDbPolyline::desc,
                                     AcDb2dPolyline::desc,
                                     AcDb3dPolyline::desc,
                                     AcDbVertex::desc,
                                     AcDbPoint::desc,
                                     AcDbText::desc,
                                     AcDbAttributeDefinition::desc,
                                     AcDbAttribute::desc,
                                     AcDbMText::desc,
                                     AcDbBlockReference::desc,
                                     AcDbSolid::desc,
                                     AcDbFace::desc,
                                     AcDbRegion::desc,
                                     AcDbHatch::desc,
                                     AcDbDimension::desc,
                                     AcDbSymbolTable::desc,
                                     AcDbBlockTable::desc,
                                     AcDbLayerTable::desc,
                                     AcDbTextStyleTable::desc,
                                     AcDbLinetypeTable::desc,
                                     AcDbRegAppTable::desc,
                                     AcDbBlockTableRecord::desc,
                                     AcDbLayerTableRecord::desc,
                                     AcDbTextStyleTableRecord::desc,
                                     AcDbLinetypeTableRecord::desc,
                                     AcDbRegAppTableRecord::desc,
                                     AcDbDictionary::desc,
                                     AcDbXrecord::desc,
                                     AcDbGroup::desc};

}  // namespace

AcRxClass* classNamed(std::string_view name) {
  static const auto byName = [] {
    std::unordered_map<std::string, AcRxClass*> map;
    for (const Describer describe : kDescribers) map.emplace(toUtf8(describe()->name()), describe());
    return map;
  }();
  const auto it = byName.find(std::string(name));
  return it == byName.end() ? nullptr : it->second;
}

std::string className(const AcRxClass* rxClass) { return rxClass ? toUtf8(rxClass->name()) : std::string(); }

}  // namespace atelier
