// The table of types, and parts as entities.
#include "atelier/database/pictures/pictures.h"

#include <algorithm>
#include <iterator>

#include "atelier/database/dimensions/dimension_parts.h"
#include "atelier/database/pictures/part_entity.h"
#include "atelier/database/pictures/part_maker.h"
#include "hote/adaptation.h"
#include "hote/dbpl.h"
#include "hote/dbsymtb.h"

namespace atelier {
namespace {

using PartsFunction = void (*)(PartMaker& make, const Record& record);

// Most have a block that shows them, drawn in world coordinates; some programs leave it out, and points and style tell.
void dimensionPicture(PartMaker& make, const Record& record) {
  const std::string name = record.text(textField("AcDbDimension", 2));
  AcDbStub* const block = name.empty() ? nullptr : make.database().tableRecord("BLOCK_RECORD", name);
  if (const AcDbObjectPointer<AcDbBlockTableRecord> shown(idOf(block)); shown.openStatus() == Acad::eOk) {
    // A reference puts the block's base point there.
    make.insert(name, shown->origin(), {1, 1, 1}, 0, {0, 0, 1});
    return;
  }
  std::vector<Record> parts = dimensionParts(make.database(), record);
  if (parts.empty()) make.missing("sans bloc de représentation");
  for (Record& part : parts) make.add(std::move(part));
}

struct Row {
  std::string_view type;
  PartsFunction parts;
  bool apart = false;  // EXPLODE may put the parts in its place
};
constexpr Row kRows[] = {
    {"LEADER", leaderParts, true},
    {"MULTILEADER", multileaderParts, true},
    {"MLINE", multilineParts, true},
    {"TOLERANCE", toleranceParts},
    {"MESH", meshParts},
    {"REGION", solidParts, true},
    {"3DSOLID", solidParts},
    {"BODY", solidParts},
    {"SURFACE", solidParts},
    {"EXTRUDEDSURFACE", solidParts},
    {"LOFTEDSURFACE", solidParts},
    {"PLANESURFACE", solidParts},
    {"REVOLVEDSURFACE", solidParts},
    {"SWEPTSURFACE", solidParts},
    {"SHAPE", shapeParts},
    {"IMAGE", rasterFrame},
    {"WIPEOUT", rasterFrame},
    {"PDFUNDERLAY", underlayFrame},
    {"DWFUNDERLAY", underlayFrame},
    {"DGNUNDERLAY", underlayFrame},
    {"ACAD_PROXY_ENTITY", proxyParts, true},
    {"VIEWPORT", viewportFrame},
    {"DIMENSION", dimensionPicture, true},
    {"ARC_DIMENSION", dimensionPicture, true},
    {"LARGE_RADIAL_DIMENSION", dimensionPicture, true},
};

const Row* rowOf(std::string_view type) {
  const auto* row = std::ranges::find(kRows, type, &Row::type);
  return row == std::end(kRows) ? nullptr : row;
}

// The vertices of a mesh or of faces that are entities.
void addVertices(const AcDbEntity& entity, AcDbExtents& box) {
  const AcDbStub* stub = stubOf(&entity);
  if (!stub || !stub->children) return;
  for (AcDbStub* child : *stub->children) {
    const AcDbVertex* vertex =
        child->is(AcDbStub::kErased) ? nullptr : AcDbVertex::cast(&stub->database->object(*child));
    if (vertex && (vertex->flags() & VertexFlags::kPlaced)) box.addPoint(vertex->position());
  }
}

// What a part has not of its own is the entity's.
void takeProperties(AcDbEntity& part, const AcDbEntity& whole) {
  constexpr std::string_view kEntity = "AcDbEntity";
  const Record own = AcDbImpObject::of(&part).record;
  part.setPropertiesFrom(&whole);
  Record& record = AcDbImpObject::of(&part).record;
  for (const auto& [field, same] :
       {std::pair{integerField(kEntity, 62), 0}, {integerField(kEntity, 420), 0}, {integerField(kEntity, 370), -2}})
    if (own.has(field) && own.integer(field) != same) record.setInteger(field, own.integer(field));
  const Field linetype = textField(kEntity, 6), layer = textField(kEntity, 8);
  if (const std::string type = own.text(linetype); !type.empty() && type != "BYBLOCK") record.setText(linetype, type);
  if (const std::string name = own.text(layer); !name.empty() && name != "0") record.setText(layer, name);
}

}  // namespace

bool hasParts(std::string_view type) { return rowOf(type) != nullptr; }

std::string eachPart(AcDbImpDatabase& database, const Record& entity,
                     const std::function<void(const Record&)>& receive) {
  const Row* row = rowOf(entity.type());
  if (!row) return {};
  PartMaker make(database, receive);
  row->parts(make, entity);
  return make.whatIsMissing();
}

void eachPartEntity(const AcDbEntity& entity, const std::function<void(const AcDbEntity&)>& receive) {
  AcDbImpDatabase* database = databaseOf(&entity);
  if (!database || !hasParts(AcDbImpObject::of(&entity).record.type())) return;
  // A copy: what the parts name is looked up meanwhile, which may drop the entity from memory.
  const Record record = AcDbImpObject::of(&entity).settled();
  eachPart(*database, record, [&](const Record& part) {
    const PartEntity made(*database, part);
    if (const AcDbEntity* entityMade = made.as<>()) receive(*entityMade);
  });
}

}  // namespace atelier

using namespace atelier;

Acad::ErrorStatus AcDbEntity::subGetGeomExtents(AcDbExtents& extents) const {
  AcDbExtents box;
  addVertices(*this, box);
  eachPartEntity(*this, [&](const AcDbEntity& part) {
    AcDbExtents one;
    if (part.getGeomExtents(one) == Acad::eOk) box.addExt(one);
  });
  if (adaptation::isEmpty(box)) return Acad::eInvalidExtents;
  extents = box;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::subGetGeomExtents(AcDbExtents& extents) const {
  return AcDbEntity::subGetGeomExtents(extents);
}

Acad::ErrorStatus AcDbEntity::explode(AcArray<AcRxObject*>& parts) const {
  const Row* row = rowOf(AcDbImpObject::of(this).record.type());
  if (!row || !row->apart) return Acad::eNotApplicable;
  const int before = parts.length();
  eachPartEntity(*this, [&](const AcDbEntity& part) {
    auto* copy = static_cast<AcDbEntity*>(part.clone());
    takeProperties(*copy, *this);
    parts.append(copy);
  });
  return parts.length() > before ? Acad::eOk : Acad::eNotApplicable;
}
