// -LAYER: making layers and setting their states.
// Names may be lists with commas and wild-card patterns.
#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/commands/records/command_records.h"
#include "atelier/document/document.h"
#include "atelier/lisp/text/wildcard.h"
#include "atelier/variables/variable_table.h"
#include "hote/dbsymtb.h"

namespace atelier {
namespace {

using Layer = AcDbLayerTableRecord;

AcDbObjectId layerNamed(const Command& c, const std::string& name) {
  return AcDbObjectId(c.document.imp().tableRecord("LAYER", name));
}

void make(const Command& c, const std::string& name) {
  if (!layerNamed(c, name).isNull()) return;
  AcDbObjectId id;
  const AcDbObjectPointer<AcDbLayerTable> table(c.document.database().layerTableId(), AcDb::kForWrite);
  auto layer = std::make_unique<Layer>();
  if (table.openStatus() != Acad::eOk || layer->setName(toWide(name).c_str()) != Acad::eOk ||
      table->add(id, layer.get()) != Acad::eOk)
    c.fail("Nom de calque non valide: \"" + name + "\".");
  layer.release()->close();
}

// Calls `work` with each layer of the names; an empty text means the current layer.
template <class WORK>
void eachLayer(const Command& c, const std::string& names, WORK work) {
  const std::string pattern =
      upperCase(names.empty() ? std::get<std::string>(*c.document.variables().value("CLAYER")) : names);
  int found = 0;
  for (AcDbStub* stub : *c.document.imp().table("LAYER")->children) {
    if (stub->is(AcDbStub::kErased) || !lisp::matchesWildcard(upperCase(c.document.imp().recordName(*stub)), pattern))
      continue;
    const AcDbObjectPointer<Layer> layer(AcDbObjectId(stub), AcDb::kForWrite);
    if (layer.openStatus() == Acad::eOk) work(*layer);
    ++found;
  }
  if (found == 0) c.print("\nAucun calque ne correspond à \"" + names + "\".");
}

// Whether the names are the current layer's, among others perhaps.
bool nameCurrent(const Command& c, const std::string& names) {
  const std::string current = std::get<std::string>(*c.document.variables().value("CLAYER"));
  return names.empty() || lisp::matchesWildcard(upperCase(current), upperCase(names));
}

void setCurrent(const Command& c, const std::string& name) {
  if (!c.document.variables().set("CLAYER", name)) c.print("\nLe calque \"" + name + "\" n'existe pas.");
}

// The current layer is not frozen.
void freeze(const Command& c, const std::string& names, bool frozen) {
  const AcDbObjectId current = c.document.database().clayer();
  eachLayer(c, names, [&](Layer& layer) {
    if (frozen && layer.objectId() == current) c.print("\nLe calque courant ne peut pas être gelé.");
    else layer.setIsFrozen(frozen);
  });
}

void setPlotted(Layer& layer, bool plotted) {
  AcDbImpObject::of(&layer).setInteger(integerField("AcDbLayerTableRecord", 290, 1), plotted ? 1 : 0);
}

void list(const Command& c) {
  for (AcDbStub* stub : *c.document.imp().table("LAYER")->children) {
    const AcDbObjectPointer<Layer> layer{AcDbObjectId(stub)};
    if (layer.openStatus() != Acad::eOk) continue;
    c.print("\n  " + c.document.imp().recordName(*stub) + "  couleur " + std::to_string(layer->color().colorIndex()) +
            (layer->isOff() ? "  inactif" : "") + (layer->isFrozen() ? "  gelé" : "") +
            (layer->isLocked() ? "  verrouillé" : ""));
  }
}

// Sets the colour of layers; a leading minus turns them off.
void setColor(const Command& c, const std::string& names, std::string_view text) {
  const bool off = text.starts_with('-');
  const auto index = colorNumber(off ? text.substr(1) : text);
  if (!index || *index < 1 || *index > 255) c.fail("Couleur de calque non valide: " + std::string(text));
  AcCmColor color;
  color.setColorIndex(static_cast<Adesk::UInt16>(*index));
  eachLayer(c, names, [&](Layer& layer) {
    layer.setColor(color);
    if (off) layer.setIsOff(true);
  });
}

constexpr const char* kWords =
    "? CRéer CHoisir Nouveau ACtif Inactif COuleur TYpeligne EPaisseur Gelé LIbérer Verrouillé DÉverrouillé "
    "REnommer Tracé Description "
    "_? Make Set New ON OFF Color Ltype LWeight Freeze Thaw LOck Unlock Rename Plot Description";

CommandTask layerCommand(Command& c) {
  for (;;) {
    const auto option = co_await c.keyword(
        "\nOption "
        "[?/CRéer/CHoisir/Nouveau/ACtif/Inactif/COuleur/TYpeligne/EPaisseur/Gelé/LIbérer/Verrouillé/"
        "DÉverrouillé/REnommer]: ",
        kWords);
    if (!option.isKeyword()) co_return;
    if (option.is("?")) {
      const auto names = co_await c.line("\nCalques à lister <*>: ");
      list(c);
      continue;
    }
    if (option.is("Color")) {
      const auto color = co_await c.word("\nCouleur: ");
      const auto names = co_await c.line("\nNoms des calques <courant>: ");
      setColor(c, names.value, color.value);
      continue;
    }
    if (option.is("Ltype")) {
      const auto type = co_await c.line("\nType de ligne <Continuous>: ");
      const auto names = co_await c.line("\nNoms des calques <courant>: ");
      AcDbStub* record = c.document.imp().tableRecord("LTYPE", type.value.empty() ? "Continuous" : type.value);
      if (!record) c.fail("Le type de ligne \"" + type.value + "\" n'est pas chargé.");
      eachLayer(c, names.value, [&](Layer& l) { l.setLinetypeObjectId(AcDbObjectId(record)); });
      continue;
    }
    if (option.is("LWeight")) {
      const auto weight = co_await c.real("\nÉpaisseur en millimètres: ");
      const auto names = co_await c.line("\nNoms des calques <courant>: ");
      eachLayer(c, names.value,
                [&](Layer& l) { l.setLineWeight(static_cast<AcDb::LineWeight>(std::lround(weight.value * 100))); });
      continue;
    }
    if (option.is("Plot")) {
      const auto plotted = co_await c.keyword("\nTracer les calques [Tracer/Non] <Tracer>: ", "Tracer Non _Plot No");
      const auto names = co_await c.line("\nNoms des calques <courant>: ");
      eachLayer(c, names.value, [&](Layer& l) { setPlotted(l, !plotted.is("No")); });
      continue;
    }
    if (option.is("Description")) {
      co_await c.line("\nDescription: ");  // ignored: the drawing's format has no place for it
      co_await c.line("\nNoms des calques <courant>: ");
      continue;
    }
    if (option.is("Rename")) {
      const auto from = co_await c.line("\nAncien nom: ");
      const auto to = co_await c.line("\nNouveau nom: ");
      renameNamed(c, "LAYER", from.value, to.value);
      continue;
    }
    const auto given = co_await c.line("\nNoms des calques: ");
    const std::string names = given.value;
    if (option.is("Make") || option.is("New")) {
      for (const std::string& name : commaParts(names)) make(c, name);
      if (option.is("Make") && !names.empty()) setCurrent(c, names);
    } else if (option.is("Set")) {
      if (!names.empty()) setCurrent(c, names);
    } else if (option.is("ON") || option.is("OFF")) {
      bool kept = false;
      if (option.is("OFF") && nameCurrent(c, names)) {
        const auto sure =
            co_await c.keyword("\nRendre inactif aussi le calque courant? [Oui/Non] <N>: ", "Oui Non _Yes No");
        kept = !sure.is("Yes");
      }
      const AcDbObjectId current = c.document.database().clayer();
      eachLayer(c, names, [&](Layer& l) {
        if (!kept || l.objectId() != current) l.setIsOff(option.is("OFF"));
      });
    } else if (option.is("Freeze") || option.is("Thaw")) {
      freeze(c, names, option.is("Freeze"));
    } else {
      eachLayer(c, names, [&](Layer& l) { l.setIsLocked(option.is("LOck")); });
    }
  }
}

constexpr CommandRow kTable[] = {
    {"-LAYER", "LAYER LA -LA CALQUE -CALQUE", layerCommand, "Crée des calques et règle leurs états.", true},
};

}  // namespace

std::span<const CommandRow> layerCommands() { return kTable; }

}  // namespace atelier
