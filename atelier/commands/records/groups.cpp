// -GROUP: named sets of objects, made, changed and dissolved; the objects stay.
#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/document/document.h"
#include "hote/dbdict.h"

namespace atelier {
namespace {

AcDbObjectId dictionary(const Command& c) { return AcDbObjectId(&c.document.imp().namedDictionary("ACAD_GROUP")); }

AcDbObjectId groupNamed(const Command& c, const std::string& name) {
  const AcDbObjectPointer<AcDbDictionary> groups(dictionary(c));
  AcDbObjectId id;
  if (groups.openStatus() != Acad::eOk || groups->getAt(toWide(name).c_str(), id) != Acad::eOk)
    c.fail("Groupe inconnu: " + name);
  return id;
}

void listGroups(const Command& c) {
  const AcDbObjectPointer<AcDbDictionary> groups(dictionary(c));
  if (groups.openStatus() != Acad::eOk) return;
  for (const AcString& key : groups->keys()) {
    AcDbObjectId id;
    groups->getAt(key.kACharPtr(), id);
    const AcDbObjectPointer<AcDbGroup> group(id);
    if (group.openStatus() != Acad::eOk) continue;
    const std::string description = toUtf8(group->description().kACharPtr());
    c.print("\n  " + toUtf8(key.kACharPtr()) + ": " + std::to_string(group->numEntities()) + " objet(s)" +
            (description.empty() ? "" : ", " + description));
  }
}

void make(const Command& c, const std::string& name, const std::string& description, const SelectionSet& set) {
  const AcDbObjectPointer<AcDbDictionary> groups(dictionary(c), AcDb::kForWrite);
  AcDbObjectId id;
  if (groups.openStatus() != Acad::eOk) c.fail("Les groupes du dessin ne sont pas accessibles.");
  if (groups->getAt(toWide(name).c_str(), id) == Acad::eOk) c.fail("Ce groupe existe déjà: " + name);
  auto group = std::make_unique<AcDbGroup>(toWide(description).c_str());
  if (groups->setAt(toWide(name).c_str(), group.get(), id) != Acad::eOk)
    c.fail("Nom de groupe non valide: \"" + name + "\".");
  for (AcDbStub* stub : set.list()) group->append(AcDbObjectId(stub));
  group.release()->close();
}

CommandTask changeMembers(Command& c, std::string name, bool adding) {
  const AcDbObjectId id = groupNamed(c, name);
  const auto chosen = co_await c.objects();
  if (!chosen.given()) co_return;
  const AcDbObjectPointer<AcDbGroup> group(id, AcDb::kForWrite);
  if (group.openStatus() != Acad::eOk) c.fail("Le groupe n'est pas accessible.");
  for (AcDbStub* stub : (*chosen)->list()) {
    if (adding) group->append(AcDbObjectId(stub));
    else group->remove(AcDbObjectId(stub));
  }
}

void dissolve(const Command& c, const std::string& name) {
  const AcDbObjectId id = groupNamed(c, name);
  const AcDbObjectPointer<AcDbObject> group(id, AcDb::kForWrite);
  if (group.openStatus() == Acad::eOk) group->erase();
}

CommandTask groupCommand(Command& c) {
  const auto option = co_await c.keyword("\nOption de groupe [?/Ajouter/Supprimer/Décomposer/Créer] <Créer>: ",
                                         "? Ajouter Supprimer Décomposer Créer _? Add Remove Explode Create");
  if (option.is("?")) {
    listGroups(c);
    co_return;
  }
  const auto given = co_await c.line("\nNom du groupe: ");
  const std::string name(trimmed(given.value));
  if (name.empty()) co_return;
  if (option.is("Add") || option.is("Remove")) {
    co_await changeMembers(c, name, option.is("Add"));
  } else if (option.is("Explode")) {
    dissolve(c, name);
  } else {
    const auto description = co_await c.line("\nDescription du groupe: ");
    const auto chosen = co_await c.objects();
    if (chosen.given()) make(c, name, description.value, **chosen);
  }
}

constexpr CommandRow kTable[] = {
    {"-GROUP", "GROUP G GROUPE -GROUPE", groupCommand, "Fait et change des groupes d'objets."},
};

}  // namespace

std::span<const CommandRow> groupCommands() { return kTable; }

}  // namespace atelier
