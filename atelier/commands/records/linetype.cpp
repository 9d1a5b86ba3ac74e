// -LINETYPE: the current line type, and line types loaded from files.
// Instead of the host's standard files, which are not everywhere, the own file with their line types is read.
#include <cmath>
#include <fstream>
#include <sstream>

#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/commands/records/linetype_file.h"
#include "atelier/document/document.h"
#include "atelier/lisp/text/encoding.h"
#include "atelier/lisp/text/wildcard.h"

namespace atelier {
namespace {

constexpr const char* kStandard = "kavel.lin";
constexpr double kMillimetresOfInch = 25.4;

struct LinetypeFile {
  std::vector<LinetypeDefinition> definitions;
  double scale = 1;
};

// The standard metric file is in millimetres like the own one, the other one in inches.
LinetypeFile fileNamed(const Command& c, const std::string& given) {
  const std::string name = given.empty() ? kStandard : given.find('.') == given.npos ? given + ".lin" : given;
  LinetypeFile file;
  auto path = c.document.interpreter().search().find(name);
  if (!path && (upperCase(name).ends_with("ISO.LIN") || upperCase(name).ends_with("ACAD.LIN"))) {
    path = c.document.interpreter().search().find(kStandard);
    if (upperCase(name).ends_with("ACAD.LIN")) file.scale = 1 / kMillimetresOfInch;
  }
  if (!path) c.fail("Fichier de types de ligne introuvable: " + name);
  std::ifstream stream(*path, std::ios::binary);
  std::ostringstream bytes;
  bytes << stream.rdbuf();
  if (!stream) c.fail("Fichier illisible: " + *path);
  file.definitions = readLinetypes(*path, lisp::decodeFile(bytes.str()));
  return file;
}

std::uint64_t styleHandle(const Command& c, const std::string& name) {
  AcDbStub* style = c.document.imp().tableRecord("STYLE", name);
  if (!style) style = c.document.imp().tableRecord("STYLE", "Standard");
  return style ? style->handle : 0;
}

// Makes the line type, or its pattern anew when the drawing has one of the name.
void load(const Command& c, const LinetypeDefinition& definition, double scale) {
  double total = 0;
  for (const LinetypePart& part : definition.parts) total += std::abs(part.length) * scale;
  std::vector<Group> groups{Group::text(0, "LTYPE"),
                            Group::text(100, "AcDbSymbolTableRecord"),
                            Group::text(100, "AcDbLinetypeTableRecord"),
                            Group::text(2, definition.name),
                            Group::integer(70, 0),
                            Group::text(3, definition.description),
                            Group::integer(72, 65),
                            Group::integer(73, static_cast<std::int64_t>(definition.parts.size())),
                            Group::real(40, total)};
  const auto add = [&](Group group) { groups.push_back(std::move(group)); };
  for (const LinetypePart& part : definition.parts) {
    add(Group::real(49, part.length * scale));
    add(Group::integer(74, part.text.empty() ? 0 : part.upright ? 3 : 2));
    if (part.text.empty()) continue;
    add(Group::integer(75, 0));
    add(Group::handle(340, styleHandle(c, part.style)));
    add(Group::real(46, part.scale * scale));
    add(Group::real(50, part.rotation));
    add(Group::real(44, part.x * scale));
    add(Group::real(45, part.y * scale));
    add(Group::text(9, part.text));
  }
  if (AcDbStub* known = c.document.imp().tableRecord("LTYPE", definition.name)) {
    const AcDbObjectPointer<AcDbObject> record(AcDbObjectId(known), AcDb::kForWrite);
    if (record.openStatus() != Acad::eOk) return;
    auto& own = AcDbImpObject::of(record.object()).writable()->groups;
    const auto mark = [](const Group& g) { return g.code() == 100 && g.text() == "AcDbLinetypeTableRecord"; };
    own.erase(std::find_if(own.begin(), own.end(), mark), own.end());
    own.insert(own.end(), groups.begin() + 2, groups.end());
  } else {
    for (Group& group : groups)
      if (group.code() == 50) group = Group::real(50, group.real() * std::acos(-1.0) / 180);
    c.document.entityMaker().make(std::move(groups));
  }
}

CommandTask loadLinetypes(Command& c) {
  const auto names = co_await c.line("\nTypes de ligne à charger <*>: ");
  const auto given = co_await c.line("\nFichier <kavel.lin>: ");
  const LinetypeFile file = fileNamed(c, std::string(trimmed(given.value)));
  const std::string pattern = names.value.empty() ? "*" : upperCase(names.value);
  int loaded = 0;
  for (const LinetypeDefinition& definition : file.definitions) {
    if (!lisp::matchesWildcard(upperCase(definition.name), pattern)) continue;
    if (c.document.imp().tableRecord("LTYPE", definition.name)) {
      const std::string prompt =
          "\nLe type de ligne " + definition.name + " est déjà chargé. Le recharger? [Oui/Non] <O>: ";
      const auto again = co_await c.keyword(prompt, "Oui Non _Yes No");
      ++loaded;
      if (again.is("No")) continue;
    } else {
      ++loaded;
    }
    load(c, definition, file.scale);
    c.print("\nType de ligne " + definition.name + " chargé." +
            (definition.hasShapes ? " Ses formes ne sont pas reprises." : ""));
  }
  if (loaded == 0) c.fail("Aucun type de ligne du fichier ne correspond à \"" + names.value + "\".");
}

CommandTask lineType(Command& c) {
  for (;;) {
    const auto option = co_await c.keyword("\nOption [?/CHoisir/CHArger] <fin>: ", "? CHoisir CHArger _? Set Load");
    if (!option.isKeyword()) co_return;
    if (option.is("Load")) {
      co_await loadLinetypes(c);
    } else if (option.is("?")) {
      for (AcDbStub* stub : *c.document.imp().table("LTYPE")->children)
        if (!stub->is(AcDbStub::kErased)) c.print("\n  " + c.document.imp().recordName(*stub));
    } else {
      const auto name = co_await c.line("\nType de ligne courant: ");
      if (!name.value.empty() && !c.document.variables().set("CELTYPE", name.value))
        c.fail("Type de ligne inconnu: " + name.value);
    }
  }
}

constexpr CommandRow kTable[] = {
    {"-LINETYPE", "LINETYPE LT TYPELIGNE", lineType, "Règle le type de ligne courant, charge des types de ligne."},
};

}  // namespace

std::span<const CommandRow> linetypeCommands() { return kTable; }

}  // namespace atelier
