// SCALETEXT: texts become higher or lower, each about its own insertion point.
#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/document/document.h"

namespace atelier {
namespace {

double heightOf(const AcDbEntity& entity) {
  if (const auto* text = AcDbText::cast(&entity)) return text->height();
  if (const auto* paragraph = AcDbMText::cast(&entity)) return paragraph->textHeight();
  return 0;
}

void setHeight(AcDbEntity& entity, double height) {
  if (auto* text = AcDbText::cast(&entity)) text->setHeight(height);
  else if (auto* paragraph = AcDbMText::cast(&entity)) paragraph->setTextHeight(height);
}

double heightOfPicked(const Command& c, AcDbObjectId id) {
  const AcDbEntityPointer entity(id);
  const double height = entity.openStatus() == Acad::eOk ? heightOf(*entity) : 0;
  if (height <= 0) c.fail("Un texte est attendu.");
  return height;
}

CommandTask scaleTexts(Command& c) {
  const auto chosen = co_await c.objects();
  if (!chosen.given()) co_return;
  // Texts grow about the point that they have; Enter is that.
  co_await c.keyword("\nPoint de base [Existant] <E>: ", "Existant _Existing");
  const double current = c.document.variables().real("TEXTSIZE", 2.5);
  const auto height = co_await c.distanceOrEnter("\nNouvelle hauteur ou [Comme un texte/Facteur] <courante>: ", {},
                                                 "Comme Facteur _Match Scale");
  double size = height.valueOr(current), factor = 0;
  if (height.is("Match")) {
    const auto like = co_await c.entity("\nTexte de la hauteur voulue: ");
    if (!like.given()) co_return;
    size = heightOfPicked(c, like->id);
  } else if (height.is("Scale")) {
    const auto given = co_await c.real("\nFacteur: ");
    factor = given.value;
    if (!(factor > 0)) c.fail("Un facteur positif est attendu.");
  } else if (!(size > 0)) {
    c.fail("Une hauteur positive est attendue.");
  }
  c.change(**chosen, [&](AcDbEntity& entity) {
    if (const double before = heightOf(entity); before > 0) setHeight(entity, factor > 0 ? before * factor : size);
  });
}

constexpr CommandRow kTable[] = {
    {"SCALETEXT", "ECHTEXTE", scaleTexts, "Change la hauteur de textes, chacun depuis son point d'insertion."},
};

}  // namespace

std::span<const CommandRow> textSizeCommands() { return kTable; }

}  // namespace atelier
