// INSERT and MINSERT: a block or a drawing file, with its attributes.
// A file becomes a block by its name the first time; "name=file" defines the block from the file, "*name" inserts the
// block's objects without a block.
#include <filesystem>
#include <numbers>

#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/commands/drawing/attributes.h"
#include "atelier/commands/reference_parts.h"
#include "atelier/document/document.h"
#include "hote/adaptation.h"
#include "hote/dbsymtb.h"

namespace atelier {
namespace {

AcDbObjectId blockFromFile(const Command& c, const std::string& name, const std::string& path) {
  const auto found = c.document.interpreter().search().find(path.ends_with(".dxf") ? path : path + ".dxf");
  if (!found) c.fail("Bloc ou fichier introuvable: " + path);
  AcDbDatabase source(false, true);
  AcDbObjectId block;
  if (source.readDwgFile(toWide(*found).c_str()) != Acad::eOk) c.fail("Fichier illisible: " + *found);
  if (c.document.database().insert(block, toWide(name).c_str(), &source) != Acad::eOk)
    c.fail("Le bloc \"" + name + "\" n'a pas pu être créé.");
  return block;
}

AcDbObjectId blockNamed(const Command& c, const std::string& given) {
  const std::size_t equals = given.find('=');
  const std::string name =
      equals == given.npos ? std::filesystem::path(given).stem().string() : given.substr(0, equals);
  for (const std::string& tried : {given, name})
    if (AcDbStub* block = c.document.imp().tableRecord("BLOCK_RECORD", tried)) return AcDbObjectId(block);
  return blockFromFile(c, name, equals == given.npos ? given : given.substr(equals + 1));
}

void listBlocks(const Command& c) {
  for (AcDbStub* block : *c.document.imp().table("BLOCK_RECORD")->children) {
    const std::string name = block->is(AcDbStub::kErased) ? "*" : c.document.imp().recordName(*block);
    if (!name.starts_with('*')) c.print("\n  " + name);
  }
}

struct Placing {
  AcGePoint3d point;
  double x = 1, y = 1, rotation = 0;
  int rows = 1, columns = 1;  // of MINSERT, which shows the block that many times
  double down = 0, across = 0;
};

AcDbObjectId place(const Command& c, AcDbObjectId block, const Placing& placing) {
  auto reference = std::make_unique<AcDbBlockReference>(placing.point, block);
  reference->setScaleFactors({placing.x, placing.y, placing.x});
  reference->setRotation(placing.rotation);
  const AcDbObjectId id = c.add(std::move(reference));
  const AcDbObjectPointer<AcDbBlockReference> added(id, AcDb::kForWrite);
  if (placing.rows * placing.columns == 1 || added.openStatus() != Acad::eOk) return id;
  AcDbImpObject& imp = AcDbImpObject::of(added.object());
  constexpr std::string_view kReference = "AcDbBlockReference";
  imp.setInteger(integerField(kReference, 70), placing.columns);
  imp.setInteger(integerField(kReference, 71), placing.rows);
  imp.setReal(realField(kReference, 44), placing.across);
  imp.setReal(realField(kReference, 45), placing.down);
  for (Group& group : imp.writable()->groups)
    if (group.code() == 100 && group.text() == kReference) group = Group::text(100, "AcDbMInsertBlock");
  return id;
}

// The questions of MINSERT that INSERT hasn't.
CommandTask askRepetition(Command& c, Placing& placing) {
  const auto rows = co_await c.integerOrEnter("\nNombre de rangées (---) <1>: ");
  const auto columns = co_await c.integerOrEnter("\nNombre de colonnes (|||) <1>: ");
  placing.rows = rows.valueOr(1), placing.columns = columns.valueOr(1);
  if (placing.rows < 1 || placing.columns < 1 || placing.rows > 32767 || placing.columns > 32767)
    c.fail("Un nombre de 1 à 32767 est attendu.");
  if (placing.rows > 1) {
    const auto down = co_await c.distance("\nDistance entre les rangées: ");
    placing.down = down.value;
  }
  if (placing.columns > 1) {
    const auto across = co_await c.distance("\nDistance entre les colonnes: ");
    placing.across = across.value;
  }
}

std::string promptOf(AcDbObjectId id, std::string& proposed) {
  const AcDbObjectPointer<AcDbAttributeDefinition> definition(id);
  if (definition.openStatus() != Acad::eOk) return {};
  proposed = toUtf8(definition->textString().kACharPtr());
  const std::string prompt = toUtf8(definition->prompt().kACharPtr());
  return "\n" + (prompt.empty() ? toUtf8(definition->tag().kACharPtr()) : prompt) +
         (proposed.empty() ? "" : " <" + proposed + ">") + ": ";
}

// The block's objects in the place of the insert.
void explodeInto(const Command& c, AcDbObjectId insert) {
  const AcDbObjectPointer<AcDbBlockReference> reference(insert, AcDb::kForWrite);
  if (reference.openStatus() == Acad::eOk && explodeReference(c, *reference)) reference->erase();
}

CommandTask insertCommand(Command& c) {
  const std::string last = std::get<std::string>(*c.document.variables().value("INSNAME"));
  const std::string prompt = "\nNom du bloc ou [?]" + (last.empty() ? std::string() : " <" + last + ">") + ": ";
  std::string name;
  for (;;) {
    const auto given = co_await c.line(prompt);
    name = given.value.empty() ? last : std::string(trimmed(given.value));
    if (name != "?") break;
    listBlocks(c);
  }
  const bool exploded = name.starts_with('*');
  if (exploded) name.erase(0, 1);
  if (name.empty()) co_return;
  const AcDbObjectId block = blockNamed(c, name);
  c.document.variables().set("INSNAME", c.document.imp().recordName(*block));
  Placing placing;
  bool scaled = false, turned = false;
  for (;;) {
    const auto point = co_await c.pointOrEnter("\nPoint d'insertion ou [Echelle/X/Y/Rotation]: ", {},
                                               "Echelle X Y Z Rotation _Scale X Y Z Rotate");
    if (point.is("Rotate")) {
      const auto angle = co_await c.angleOrEnter("\nAngle de rotation <0>: ");
      placing.rotation = angle.valueOr(0);
      turned = true;
    } else if (point.isKeyword()) {
      const auto factor = co_await c.realOrEnter("\nFacteur d'échelle <1>: ");
      if (!point.is("Y") && !point.is("Z")) placing.x = factor.valueOr(1);
      if (!point.is("X") && !point.is("Z")) placing.y = factor.valueOr(1);
      scaled = true;
    } else {
      if (!point.given()) co_return;
      placing.point = *point;
      break;
    }
  }
  if (!scaled) {
    const auto x = co_await c.realOrEnter("\nFacteur d'échelle en X <1>: ");
    placing.x = x.valueOr(1);
    placing.y = placing.x;
    if (!exploded) {
      const auto y = co_await c.realOrEnter("\nFacteur d'échelle en Y <celui de X>: ");
      placing.y = y.valueOr(placing.x);
    }
  }
  if (placing.x == 0 || placing.y == 0) c.fail("Un facteur d'échelle ne peut être nul.");
  if (!turned) {
    const auto angle = co_await c.angleOrEnter("\nAngle de rotation <0>: ", placing.point);
    placing.rotation = angle.valueOr(0);
  }
  if (commandName(c.typed) == "MINSERT" || commandName(c.typed) == "INSERM") co_await askRepetition(c, placing);
  const AcDbObjectId reference = place(c, block, placing);
  if (exploded) {
    explodeInto(c, reference);
    co_return;
  }
  const bool asks = c.document.variables().integer("ATTREQ", 1) != 0;
  for (const AcDbObjectId definition : definitionsOf(block)) {
    std::string value;
    const std::string question = promptOf(definition, value);
    if (asks) {
      const auto given = co_await c.line(question);
      if (!given.value.empty()) value = given.value;
    }
    addAttribute(c, reference, definition, &value);
  }
}

constexpr CommandRow kTable[] = {
    {"INSERT", "-INSERT I INSERER -INSERER", insertCommand, "Insère un bloc ou un fichier."},
    {"MINSERT", "INSERM", insertCommand, "Insère un bloc plusieurs fois, en rangées et colonnes, d'un seul objet."},
};

}  // namespace

std::span<const CommandRow> insertCommands() { return kTable; }

}  // namespace atelier
