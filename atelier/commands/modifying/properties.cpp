// CHPROP CHANGE COLOR: the properties that all entities have, for chosen objects or for new ones.
// A layer or line type must exist.
#include <cmath>

#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/document/document.h"
#include "atelier/variables/variable_table.h"

namespace atelier {
namespace {

constexpr const char* kPrompt = "\nPropriété à changer [COuleur/CAlque/Typeligne/Echelle/EPaisseur] <fin>: ";
constexpr const char* kWords = "COuleur CAlque Typeligne Echelle EPaisseur _Color LAyer LType ltScale LWeight";

std::string question(const std::string& option) {
  if (option == "Color") return "\nNouvelle couleur: ";
  if (option == "LAyer") return "\nNouveau calque: ";
  if (option == "LType") return "\nNouveau type de ligne: ";
  return option == "LWeight" ? "\nNouvelle épaisseur en millimètres: " : "\nNouvelle échelle du type de ligne: ";
}

bool setProperty(AcDbEntity& entity, const std::string& option, const std::string& text) {
  const double number = parseReal(text).value_or(HUGE_VAL);
  if (option == "LAyer") return entity.setLayer(toWide(text).c_str()) == Acad::eOk;
  if (option == "LType") return entity.setLinetype(toWide(text).c_str()) == Acad::eOk;
  if (option == "ltScale") return number > 0 && std::isfinite(number) && entity.setLinetypeScale(number) == Acad::eOk;
  if (option == "LWeight")
    return std::isfinite(number) &&
           entity.setLineWeight(static_cast<AcDb::LineWeight>(std::lround(number * 100))) == Acad::eOk;
  const auto index = colorNumber(text);
  return index && entity.setColorIndex(static_cast<Adesk::UInt16>(*index)) == Acad::eOk;
}

CommandTask changeProperties(Command& c) {
  const auto chosen = co_await c.objects();
  if (!chosen.given()) co_return;
  if (commandName(c.typed).ends_with("CHANGE")) {
    co_await c.keyword("\nOption [Propriétés] <P>: ", "Propriétés _Properties");
  }
  for (;;) {
    const auto option = co_await c.keyword(kPrompt, kWords);
    if (!option.isKeyword()) co_return;
    const std::string prompt = question(option.keyword());
    const auto given = co_await c.line(prompt);
    const std::string text(trimmed(given.value));
    if (text.empty()) continue;
    int refused = 0;
    c.change(**chosen, [&](AcDbEntity& entity) { refused += !setProperty(entity, option.keyword(), text); });
    if (refused > 0) c.fail("Valeur refusée: " + text);
  }
}

// Layer, colour, line type and weight; of a text also the style and the height, when both are texts.
void match(AcDbEntity& entity, const AcDbEntity& source) {
  entity.setPropertiesFrom(&source);
  auto* text = AcDbText::cast(&entity);
  const auto* like = AcDbText::cast(&source);
  if (!text || !like) return;
  text->setTextStyle(like->textStyle());
  text->setHeight(like->height());
}

CommandTask matchProperties(Command& c) {
  const auto source = co_await c.entity("\nObjet source: ");
  if (!source.given()) co_return;
  const auto chosen = co_await c.objects();
  if (!chosen.given()) co_return;
  const AcDbEntityPointer from(source->id);
  if (from.openStatus() != Acad::eOk) co_return;
  c.change(**chosen, [&](AcDbEntity& entity) {
    if (entity.objectId() != source->id) match(entity, *from.object());
  });
}

CommandTask color(Command& c) {
  const auto given = co_await c.word("\nCouleur courante: ");
  if (!given.value.empty() && !c.document.variables().set("CECOLOR", given.value))
    c.fail("Couleur non valide: " + given.value);
}

constexpr CommandRow kTable[] = {
    {"MATCHPROP", "MA PAINTER COPIEPROP", matchProperties, "Donne à des objets les propriétés d'un autre."},
    {"CHPROP", "-CHPROP CHANGPROP", changeProperties, "Change la couleur, le calque, le type de ligne d'objets."},
    {"CHANGE", "-CHANGE -CH MODIFIER", changeProperties, "Comme CHPROP, après l'option Propriétés."},
    {"COLOR", "-COLOR COLOUR -COLOUR COL COULEUR -COULEUR", color, "Règle la couleur courante."},
};

}  // namespace

std::span<const CommandRow> propertyCommands() { return kTable; }

}  // namespace atelier
