// Parts become entities of an anonymous block "*D12".
#include "atelier/database/dimensions/dimension_block.h"

#include <memory>

#include "atelier/database/curves/plane.h"
#include "atelier/database/dimensions/dimension_parts.h"
#include "atelier/database/dimensions/dimension_style.h"
#include "atelier/database/dimensions/dimension_variables.h"
#include "atelier/database/entities/measured_dimension.h"
#include "atelier/database/objects/imp_object.h"
#include "atelier/database/objects/new_record.h"
#include "atelier/database/records/groups.h"
#include "hote/dbsymtb.h"

namespace atelier {
namespace {

constexpr std::string_view kDimension = "AcDbDimension";

std::unique_ptr<AcDbEntity> entityOf(Record&& record) {
  const ParsedRecord waiting(std::move(record));
  return std::unique_ptr<AcDbEntity>(AcDbEntity::cast(makeObjectForPending(true)));
}

// The block's name; empty when it can't be made.
std::string makeBlock(AcDbImpDatabase& database, std::vector<Record> parts) {
  const AcDbObjectPointer<AcDbBlockTable> table(idOf(database.table("BLOCK_RECORD")), AcDb::kForWrite);
  if (table.openStatus() != Acad::eOk) return {};
  auto block = std::make_unique<AcDbBlockTableRecord>();
  block->setName(L"*D");
  if (table->add(block.get()) != Acad::eOk) return {};
  AcDbBlockTableRecord* const added = block.release();
  for (Record& part : parts)
    if (auto entity = entityOf(std::move(part)); entity && added->appendAcDbEntity(entity.get()) == Acad::eOk)
      entity.release()->close();
  const std::string name = AcDbImpObject::of(added).record.text(textField("AcDbBlockTableRecord", 2));
  added->close();
  return name;
}

}  // namespace

bool drawDimensionBlock(AcDbDimension& dimension) {
  AcDbImpDatabase* database = databaseOf(&dimension);
  Record* record = AcDbImpObject::of(&dimension).writable();
  if (!database || !record) return false;
  std::vector<Record> parts = dimensionParts(*database, *record);
  if (parts.empty()) return false;
  for (const Record& part : parts)
    if (part.type() == "MTEXT") {
      const Groups text(part);
      record->setPoint(pointField(kDimension, 11), toPlane(text.point(10), text.normal()));
    }
  if (const auto length = measured(*record)) record->setReal(realField(kDimension, 42), *length);
  const std::string name = makeBlock(*database, std::move(parts));
  if (name.empty()) return false;
  record->setText(textField(kDimension, 2), name);
  return true;
}

void takeDimensionSettings(AcDbDimension& dimension) {
  AcDbImpDatabase* database = databaseOf(&dimension);
  Record* record = AcDbImpObject::of(&dimension).writable();
  if (!database || !record) return;
  const DimensionStyle style(*database, *record);
  std::vector<Group> own;
  for (const DimensionVariable& v : dimensionVariables()) {
    const std::string name = "$" + std::string(v.name);
    const double value = database->header.real(name, v.value);
    if (!database->header.has(name) || value == style.value(v.name)) continue;
    own.push_back(Group::integer(1070, v.code));
    own.push_back(v.isReal() ? Group::real(1040, value) : Group::integer(1070, static_cast<std::int64_t>(value)));
  }
  if (own.empty()) return;
  own.insert(own.begin(), {Group::text(1001, "ACAD"), Group::text(1000, "DSTYLE"), Group::text(1002, "{")});
  own.push_back(Group::text(1002, "}"));
  record->groups.insert(record->groups.end(), own.begin(), own.end());
}

}  // namespace atelier
