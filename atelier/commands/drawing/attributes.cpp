// ATTSYNC, and the making of attributes.
// Attributes are made anew from their definitions; their values are found again by their tags.
#include "atelier/commands/drawing/attributes.h"

#include <map>

#include "atelier/commands/command_table.h"
#include "atelier/document/document.h"
#include "atelier/selecting/selections.h"
#include "atelier/shaping/curve_pieces.h"
#include "hote/adaptation.h"
#include "hote/dbsymtb.h"

namespace atelier {

std::vector<AcDbObjectId> definitionsOf(AcDbObjectId block) {
  std::vector<AcDbObjectId> definitions;
  const AcDbObjectPointer<AcDbBlockTableRecord> record(block);
  if (record.openStatus() != Acad::eOk) return definitions;
  const AcDbObjectIdArray ids = adaptation::entityIds(*record);
  for (int i = 0; i < ids.length(); ++i) {
    const AcDbObjectPointer<AcDbAttributeDefinition> definition(ids[i]);
    if (definition.openStatus() == Acad::eOk && !definition->isConstant()) definitions.push_back(ids[i]);
  }
  return definitions;
}

void addAttribute(const Command& c, AcDbObjectId insert, AcDbObjectId definition, const std::string* value) {
  const AcDbObjectPointer<AcDbBlockReference> reference(insert, AcDb::kForWrite);
  const AcDbObjectPointer<AcDbAttributeDefinition> from(definition);
  if (reference.openStatus() != Acad::eOk || from.openStatus() != Acad::eOk) return;
  auto attribute = std::make_unique<AcDbAttribute>();
  attribute->setPropertiesFrom(from.object());
  attribute->setTag(from->tag().kACharPtr());
  attribute->setAttributeFromBlock(from.object(), reference->blockTransform());
  if (value) attribute->setTextString(toWide(*value).c_str());
  attribute->adjustAlignment(&c.document.database());
  if (reference->appendAttribute(attribute.get()) == Acad::eOk) attribute.release()->close();
}

namespace {

// Gives the reference the attributes of its block: those that lack, and no others; all as their definitions are, with the values
// that they have.
void synchronise(const Command& c, AcDbObjectId insert, const std::vector<AcDbObjectId>& definitions) {
  std::map<std::string, std::string> values;
  {
    const AcDbObjectPointer<AcDbBlockReference> reference(insert, AcDb::kForWrite);
    if (reference.openStatus() != Acad::eOk) return;
    const std::unique_ptr<AcDbObjectIterator> all(reference->attributeIterator());
    for (; !all->done(); all->step()) {
      const AcDbObjectPointer<AcDbAttribute> attribute(all->objectId(), AcDb::kForWrite);
      if (attribute.openStatus() != Acad::eOk) continue;
      values.try_emplace(upperCase(toUtf8(attribute->tag().kACharPtr())), toUtf8(attribute->textString().kACharPtr()));
      attribute->erase();
    }
  }
  for (const AcDbObjectId id : definitions) {
    std::string tag;
    {
      const AcDbObjectPointer<AcDbAttributeDefinition> definition(id);
      if (definition.openStatus() != Acad::eOk) continue;
      tag = upperCase(toUtf8(definition->tag().kACharPtr()));
    }
    const auto value = values.find(tag);
    addAttribute(c, insert, id, value == values.end() ? nullptr : &value->second);
  }
}

void synchroniseBlock(const Command& c, const std::string& name) {
  AcDbStub* block = c.document.imp().tableRecord("BLOCK_RECORD", name);
  if (!block) c.fail("Bloc introuvable: " + name);
  const auto definitions = definitionsOf(AcDbObjectId(block));
  const auto references =
      selectAll(c.document.imp(), SelectionFilter({{0, Group::text(0, "INSERT"), {}}, {2, Group::text(2, name), {}}}));
  int count = 0;
  if (references)
    for (AcDbStub* stub : references->list()) {
      const AcDbObjectId id(stub);
      if (isLocked(c.document, id)) continue;
      synchronise(c, id, definitions);
      ++count;
    }
  c.print("\n" + std::to_string(count) + " référence(s) de " + name + ".");
}

CommandTask synchroniseAttributes(Command& c) {
  const auto how = co_await c.keyword("\nOption [Nom/Sélection] <Sélection>: ", "Nom Sélection _Name Select");
  if (how.is("Name")) {
    const auto name = co_await c.line("\nNom du bloc: ");
    for (const std::string& part : commaParts(name.value)) synchroniseBlock(c, part);
    co_return;
  }
  const auto picked = co_await c.entity("\nBloc: ");
  if (!picked.given()) co_return;
  std::string name;
  {
    const AcDbObjectPointer<AcDbBlockReference> reference(picked->id);
    if (reference.openStatus() != Acad::eOk) c.fail("Une référence de bloc est attendue.");
    name = c.document.imp().recordName(*reference->blockTableRecord());
  }
  const std::string prompt = "\nMettre à jour les attributs de " + name + "? [Oui/Non] <O>: ";
  const auto sure = co_await c.keyword(prompt, "Oui Non _Yes No");
  if (!sure.is("No")) synchroniseBlock(c, name);
}

constexpr CommandRow kTable[] = {
    {"ATTSYNC", "ATTSYNCHRONISER", synchroniseAttributes, "Donne aux références d'un bloc ses attributs actuels."},
};

}  // namespace

std::span<const CommandRow> attributeCommands() { return kTable; }

}  // namespace atelier
