// LAYDEL and LAYMRG: layers go, with all that is on them or with its passage to another layer.
// Layers are given by objects or by names, until Enter; what blocks hold counts.
#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/commands/records/command_records.h"
#include "atelier/database/objects/ownership.h"
#include "atelier/database/tables/renaming.h"
#include "atelier/document/document.h"

namespace atelier {
namespace {

using Names = std::vector<std::string>;

// The layer's name as the table has it; fails for one that must stay.
std::string removable(const Command& c, const std::string& name) {
  AcDbStub* stub = c.document.imp().tableRecord("LAYER", name);
  if (!stub) c.fail("Calque inconnu: " + name);
  if (keepsName("LAYER", name)) c.fail("Le calque " + name + " ne peut pas être supprimé.");
  if (isCurrent(c.document.imp(), "LAYER", name)) c.fail("Le calque courant ne peut pas être supprimé: " + name);
  return c.document.imp().recordName(*stub);
}

void addName(const Command& c, Names& names, const std::string& name) {
  std::string known = removable(c, name);
  if (std::ranges::find(names, known) == names.end()) names.push_back(std::move(known));
}

std::string layerNameOf(const Command& c, AcDbObjectId entity) {
  const AcDbEntityPointer opened(entity);
  if (opened.openStatus() != Acad::eOk) c.fail("L'objet n'est pas accessible.");
  return c.document.imp().recordName(*static_cast<AcDbStub*>(opened->layerId()));
}

void eraseContents(AcDbImpDatabase& db, const std::string& layer) {
  for (const AcDbStub& known : db.stubs()) {
    AcDbStub& stub = const_cast<AcDbStub&>(known);
    if (!stub.is(AcDbStub::kEntity) || stub.is(AcDbStub::kErased)) continue;
    const auto* entity = AcDbEntity::cast(&db.object(stub));
    if (!entity || !equalNoCase(db.recordName(*static_cast<AcDbStub*>(entity->layerId())), layer)) continue;
    const AcDbEntityPointer opened(AcDbObjectId(&stub), AcDb::kForWrite, true);
    if (opened.openStatus() == Acad::eOk) opened->erase();
  }
}

// Takes the layer away; what still names it names the other one.
void remove(AcDbImpDatabase& db, const std::string& layer, const std::string& instead) {
  redirectNames(db, "LAYER", layer, instead);
  eraseWithOwned(*db.tableRecord("LAYER", layer), true);
  db.forgetTableIndex();
}

CommandTask removeLayers(Command& c) {
  const std::string typed = commandName(c.typed);
  const bool merging = typed.find("MRG") != typed.npos || typed.find("FUSION") != typed.npos;
  Names names;
  for (;;) {
    const auto picked = co_await c.entity("\nObjet d'un calque à supprimer ou [Nom] <fin>: ", "Nom _Name");
    if (picked.is("Name")) {
      const auto name = co_await c.line("\nNom du calque: ");
      addName(c, names, std::string(trimmed(name.value)));
    } else if (picked.given()) {
      addName(c, names, layerNameOf(c, picked->id));
    } else {
      break;
    }
  }
  if (names.empty()) co_return;
  std::string target = "0";
  if (merging) {
    const auto picked = co_await c.entity("\nObjet du calque d'arrivée ou [Nom]: ", "Nom _Name");
    if (picked.is("Name")) {
      const auto name = co_await c.line("\nNom du calque d'arrivée: ");
      target = trimmed(name.value);
    } else if (picked.given()) {
      target = layerNameOf(c, picked->id);
    } else {
      co_return;
    }
    AcDbStub* stub = c.document.imp().tableRecord("LAYER", target);
    if (!stub) c.fail("Calque inconnu: " + target);
    target = c.document.imp().recordName(*stub);
    if (std::ranges::find(names, target) != names.end()) c.fail("Le calque d'arrivée est à supprimer: " + target);
  }
  std::string question = "\nSupprimer";
  for (const std::string& name : names) question += " " + name;
  question += merging ? ", objets sur " + target : " et leurs objets";
  question += "? [Oui/Non] <N>: ";
  const auto sure = co_await c.keyword(question, "Oui Non _Yes No");
  if (!sure.is("Yes")) co_return;
  for (const std::string& name : names) {
    if (!merging) eraseContents(c.document.imp(), name);
    remove(c.document.imp(), name, target);
  }
  c.print("\n" + std::to_string(names.size()) + " calque(s) supprimé(s).");
}

constexpr CommandRow kTable[] = {
    {"LAYDEL", "-LAYDEL CALSUPPR", removeLayers, "Supprime des calques et leurs objets."},
    {"LAYMRG", "-LAYMRG CALFUSION", removeLayers, "Supprime des calques, leurs objets passent sur un autre."},
};

}  // namespace

std::span<const CommandRow> layerMergingCommands() { return kTable; }

}  // namespace atelier
