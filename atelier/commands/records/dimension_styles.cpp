// -DIMSTYLE: the settings of dimensions kept as a style, taken from one, and given to dimensions.
#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/database/dimensions/dimension_block.h"
#include "atelier/database/dimensions/dimension_style.h"
#include "atelier/database/dimensions/dimension_variables.h"
#include "atelier/document/document.h"
#include "atelier/lisp/text/wildcard.h"

namespace atelier {
namespace {

constexpr std::string_view kSection = "AcDbDimStyleTableRecord";

std::string currentStyle(const Command& c) { return currentDimensionStyle(c.document.imp()); }

// The present settings as a style of that name, which becomes the current one.
CommandTask save(Command& c) {
  const auto given = co_await c.line("\nNom du nouveau style de cote: ");
  const std::string name(trimmed(given.value));
  if (name.empty()) co_return;
  AcDbStub* stub = c.document.imp().tableRecord("DIMSTYLE", name);
  if (stub) {
    const auto again = co_await c.keyword("\nCe style existe. Le redéfinir? [Oui/Non] <N>: ", "Oui Non _Yes No");
    if (!again.is("Yes")) co_return;
  }
  std::vector<Group> groups = {Group::text(0, "DIMSTYLE"), Group::text(100, "AcDbSymbolTableRecord"),
                               Group::text(100, std::string(kSection)), Group::text(2, name), Group::integer(70, 0)};
  for (const DimensionVariable& v : dimensionVariables()) {
    const double value = v.isReal() ? c.document.variables().real(v.name, v.value)
                                    : c.document.variables().integer(v.name, static_cast<int>(v.value));
    groups.push_back(v.isReal() ? Group::real(v.code, value) : Group::integer(v.code, static_cast<int>(value)));
  }
  const bool done = stub ? changeObject(*stub, groups) : c.document.entityMaker().make(groups).ok;
  if (!done) c.fail("Nom de style non valide: \"" + name + "\".");
  c.document.imp().header.set("$DIMSTYLE", Group::text(2, name));
}

// A style's settings become the drawing's.
void restore(const Command& c, const std::string& name) {
  AcDbStub* stub = c.document.imp().tableRecord("DIMSTYLE", name);
  if (!stub) c.fail("Style de cote inconnu: " + name);
  const Record style = AcDbImpObject::of(&c.document.imp().object(*stub)).settled();
  for (const DimensionVariable& v : dimensionVariables()) {
    if (v.isReal()) c.document.variables().set(v.name, style.real(realField(kSection, v.code, v.value)));
    else c.document.variables().set(v.name, static_cast<int>(style.integer(integerField(kSection, v.code, v.value))));
  }
  c.document.imp().header.set("$DIMSTYLE", Group::text(2, c.document.imp().recordName(*stub)));
}

CommandTask applyTo(Command& c) {
  const auto chosen = co_await c.objects();
  if (!chosen.given()) co_return;
  c.change(**chosen, [&](AcDbEntity& entity) {
    AcDbDimension* dimension = AcDbDimension::cast(&entity);
    if (!dimension) return;
    AcDbImpObject::of(dimension).setText(textField("AcDbDimension", 3), currentStyle(c));
    takeDimensionSettings(*dimension);
    drawDimensionBlock(*dimension);
  });
}

CommandTask dimensionStyle(Command& c) {
  const std::string prompt =
      "\nStyle de cote courant: " + currentStyle(c) + "\nOption [ENregistrer/REstaurer/Appliquer/?] <Restaurer>: ";
  const auto option = co_await c.keyword(prompt, "ENregistrer REstaurer Appliquer ? _Save Restore Apply ?");
  if (option.is("Save")) {
    co_await save(c);
  } else if (option.is("Apply")) {
    co_await applyTo(c);
  } else if (option.is("?")) {
    const auto names = co_await c.line("\nStyles à lister <*>: ");
    const std::string pattern = names.value.empty() ? "*" : upperCase(names.value);
    for (AcDbStub* stub : *c.document.imp().table("DIMSTYLE")->children)
      if (!stub->is(AcDbStub::kErased) && lisp::matchesWildcard(upperCase(c.document.imp().recordName(*stub)), pattern))
        c.print("\n  " + c.document.imp().recordName(*stub));
  } else {
    const auto name = co_await c.line("\nNom du style de cote: ");
    if (!name.value.empty()) restore(c, std::string(trimmed(name.value)));
  }
}

constexpr CommandRow kTable[] = {
    {"-DIMSTYLE", "DST -DST COTSTYLE -COTSTYLE", dimensionStyle, "Garde, reprend et applique des styles de cote."},
};

}  // namespace

std::span<const CommandRow> dimensionStyleCommands() { return kTable; }

}  // namespace atelier
