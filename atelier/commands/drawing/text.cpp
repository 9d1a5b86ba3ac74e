// TEXT, ATTDEF, MTEXT and DDEDIT.
// The height is asked for only when the current style leaves it open.
#include <numbers>

#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/document/document.h"
#include "hote/dbsymtb.h"

namespace atelier {
namespace {

double styleHeight(AcDbObjectId style) {
  const AcDbObjectPointer<AcDbTextStyleTableRecord> record(style);
  return record.openStatus() == Acad::eOk ? record->textSize() : 0;
}

struct Justification {
  std::string_view word;
  AcDb::TextHorzMode horizontal;
  AcDb::TextVertMode vertical;
};
constexpr Justification kJustifications[] = {
    {"Left", AcDb::kTextLeft, AcDb::kTextBase},    {"Center", AcDb::kTextCenter, AcDb::kTextBase},
    {"Right", AcDb::kTextRight, AcDb::kTextBase},  {"Middle", AcDb::kTextMid, AcDb::kTextBase},
    {"TL", AcDb::kTextLeft, AcDb::kTextTop},       {"TC", AcDb::kTextCenter, AcDb::kTextTop},
    {"TR", AcDb::kTextRight, AcDb::kTextTop},      {"ML", AcDb::kTextLeft, AcDb::kTextVertMid},
    {"MC", AcDb::kTextCenter, AcDb::kTextVertMid}, {"MR", AcDb::kTextRight, AcDb::kTextVertMid},
    {"BL", AcDb::kTextLeft, AcDb::kTextBottom},    {"BC", AcDb::kTextCenter, AcDb::kTextBottom},
    {"BR", AcDb::kTextRight, AcDb::kTextBottom},   {"Align", AcDb::kTextAlign, AcDb::kTextBase},
    {"Fit", AcDb::kTextFit, AcDb::kTextBase}};
constexpr const char* kJustifyWords =
    "Gauche Centre Droite Milieu HG HC HD MG MC MD BG BC BD Aligné Fixé _Left Center Right Middle TL TC TR "
    "ML MC MR BL BC BR Align Fit";

const Justification* justification(const std::string& word) {
  for (const Justification& row : kJustifications)
    if (row.word == word) return &row;
  return nullptr;
}

bool setStyle(const Command& c, const std::string& name) {
  if (c.document.variables().set("TEXTSTYLE", name)) return true;
  c.print("\nLe style \"" + name + "\" n'existe pas.");
  return false;
}

// What an attribute definition has beside its text, which is the value proposed at insertions.
struct Definition {
  std::string tag, prompt, proposed;
  bool invisible = false, constant = false;
};

// The modes of a definition, toggled one by one; those for dialogs and multiple lines are asked for by no program.
std::string modesPrompt(const Definition& definition) {
  const auto shown = [](bool on) { return on ? std::string("Oui") : std::string("Non"); };
  return "\nModes: Invisible=" + shown(definition.invisible) + " Constant=" + shown(definition.constant) +
         "\nMode à changer [Invisible/Constant/Vérifié/Prédéfini] <fin>: ";
}

std::unique_ptr<AcDbText> newText(const Definition* definition, const std::string& contents) {
  if (!definition) {
    auto text = std::make_unique<AcDbText>();
    text->setTextString(toWide(contents).c_str());
    return text;
  }
  auto made = std::make_unique<AcDbAttributeDefinition>();
  made->setTag(toWide(upperCase(definition->tag)).c_str());
  made->setPrompt(toWide(definition->prompt).c_str());
  made->setTextString(toWide(definition->proposed).c_str());
  made->setInvisible(definition->invisible);
  made->setConstant(definition->constant);
  return made;
}

CommandTask lineOfText(Command& c, bool isDefinition) {
  Definition definition;
  while (isDefinition) {
    const std::string prompt = modesPrompt(definition);
    const auto mode =
        co_await c.keyword(prompt, "Invisible Constant Vérifié Prédéfini _Invisible Constant Verify Preset");
    if (mode.is("Invisible")) definition.invisible = !definition.invisible;
    else if (mode.is("Constant")) definition.constant = !definition.constant;
    else if (!mode.isKeyword()) break;
  }
  if (isDefinition) {
    const auto tag = co_await c.line("\nÉtiquette: ");
    definition.tag = std::string(trimmed(tag.value));
    if (definition.tag.empty() || definition.tag.find(' ') != std::string::npos)
      c.fail("Une étiquette sans blanc est attendue.");
    if (!definition.constant) {
      const auto asked = co_await c.line("\nQuestion à l'insertion <l'étiquette>: ");
      definition.prompt = asked.value;
    }
    const auto proposed = co_await c.line("\nValeur proposée <aucune>: ");
    definition.proposed = proposed.value;
  }
  const Justification* mode = &kJustifications[0];
  AcGePoint3d start, end;
  for (;;) {
    const auto place =
        co_await c.pointOrEnter("\nPoint de départ du texte ou [Justifier/STyle]: ", {},
                                "Justifier STyle Gauche Centre Droite Milieu HG HC HD MG MC MD BG BC BD Aligné Fixé "
                                "_Justify Style Left Center Right Middle TL TC TR ML MC MR BL BC BR Align Fit");
    if (place.is("Style")) {
      const auto name = co_await c.word("\nNom du style: ");
      setStyle(c, name.value);
      continue;
    }
    std::string word = place.keyword();
    if (place.is("Justify")) {
      const auto chosen = co_await c.keyword(
          "\nJustification [Gauche/Centre/Droite/Milieu/HG/HC/HD/MG/MC/MD/BG/BC/BD/Aligné/Fixé]: ", kJustifyWords);
      word = chosen.keyword();
    }
    if (!place.given()) {
      mode = justification(word);
      if (!mode) co_return;
      const auto at = co_await c.point("\nPoint du texte: ");
      start = at.value;
    } else {
      start = *place;
    }
    break;
  }
  const bool between = mode->horizontal == AcDb::kTextAlign || mode->horizontal == AcDb::kTextFit;
  if (between) {
    const auto second = co_await c.point("\nDeuxième extrémité de la ligne de base: ", start);
    end = second.value;
  }
  const AcDbObjectId style = c.document.database().textstyle();
  double height = styleHeight(style);
  if (height == 0 && mode->horizontal != AcDb::kTextAlign) {
    const double proposed = c.document.variables().real("TEXTSIZE", 2.5);
    const std::string prompt = "\nHauteur <" + realText(proposed) + ">: ";
    const auto given = co_await c.distanceOrEnter(prompt, start);
    height = given.valueOr(proposed);
    if (!(height > 0)) c.fail("La hauteur du texte doit être positive.");
    c.document.variables().set("TEXTSIZE", height);
  }
  double rotation = 0;
  if (!between) {
    const auto given = co_await c.angleOrEnter("\nAngle de rotation du texte <0>: ", start);
    rotation = given.valueOr(0);
  }
  std::string contents;
  if (!isDefinition) {
    const auto words = co_await c.line("\nTexte: ");
    if (words.value.empty()) co_return;
    contents = words.value;
  }
  auto made = newText(isDefinition ? &definition : nullptr, contents);
  made->setPosition(start);
  made->setTextStyle(style);
  made->setHeight(height > 0 ? height : 1);
  made->setRotation(rotation);
  made->setHorizontalMode(mode->horizontal);
  made->setVerticalMode(mode->vertical);
  if (!made->isDefaultAlignment()) made->setAlignmentPoint(between ? end : start);
  c.add(std::move(made));
}

CommandTask text(Command& c) { return lineOfText(c, false); }
CommandTask attributeDefinition(Command& c) { return lineOfText(c, true); }

CommandTask mtext(Command& c) {
  const auto first = co_await c.pointOrEnter("\nPremier coin: ");
  if (!first.given()) co_return;
  double height = c.document.variables().real("TEXTSIZE", 2.5), rotation = 0, width = 0;
  int attachment = 1;
  for (;;) {
    const auto corner =
        co_await c.corner("\nCoin opposé ou [Hauteur/Justifier/Rotation/STyle/Largeur]: ", *first,
                          "Hauteur Justifier Rotation STyle Largeur _Height Justify Rotation Style Width");
    if (corner.is("Height")) {
      const auto given = co_await c.distanceOrEnter("\nHauteur: ", *first);
      height = given.valueOr(height);
    } else if (corner.is("Rotation")) {
      const auto given = co_await c.angleOrEnter("\nAngle de rotation: ", *first);
      rotation = given.valueOr(rotation);
    } else if (corner.is("Style")) {
      const auto name = co_await c.word("\nNom du style: ");
      setStyle(c, name.value);
    } else if (corner.is("Justify")) {
      const auto chosen = co_await c.keyword("\nJustification [HG/HC/HD/MG/MC/MD/BG/BC/BD]: ",
                                             "HG HC HD MG MC MD BG BC BD _TL TC TR ML MC MR BL BC BR");
      constexpr std::string_view kOrder[] = {"TL", "TC", "TR", "ML", "MC", "MR", "BL", "BC", "BR"};
      for (int i = 0; i < 9; ++i)
        if (chosen.is(kOrder[i])) attachment = i + 1;
    } else if (corner.is("Width")) {
      const auto given = co_await c.distanceOrEnter("\nLargeur: ", *first);
      width = given.valueOr(0);
      break;
    } else {
      width = std::abs(corner.value.x - first->x);
      break;
    }
  }
  std::string contents;
  for (;;) {
    const auto line = co_await c.line("\nTexte: ");
    if (line.value.empty()) break;
    contents += (contents.empty() ? "" : "\\P") + line.value;
  }
  if (contents.empty()) co_return;
  auto made = std::make_unique<AcDbMText>();
  made->setLocation(*first);
  made->setContents(toWide(contents).c_str());
  made->setTextHeight(height);
  made->setWidth(width);
  made->setRotation(rotation);
  made->setAttachment(attachment);
  made->setTextStyle(c.document.database().textstyle());
  c.add(std::move(made));
}

std::string contentsOf(const AcDbEntity& entity) {
  if (const auto* text = AcDbText::cast(&entity)) return toUtf8(text->textString().kACharPtr());
  const auto* paragraph = AcDbMText::cast(&entity);
  return paragraph ? toUtf8(paragraph->contents().kACharPtr()) : std::string();
}

CommandTask editText(Command& c) {
  for (;;) {
    const auto picked = co_await c.entity("\nTexte à modifier <fin>: ");
    if (!picked.given()) co_return;
    std::string before;
    {
      const AcDbEntityPointer entity(picked->id);
      if (entity.openStatus() != Acad::eOk || (!AcDbText::cast(entity.object()) && !AcDbMText::cast(entity.object())))
        c.fail("Un texte est attendu.");
      before = contentsOf(*entity.object());
    }
    const std::string prompt = "\nNouveau texte <" + before + ">: ";
    const auto given = co_await c.line(prompt);
    if (given.value.empty()) continue;
    SelectionSet one;
    one.add(picked->id);
    c.change(one, [&](AcDbEntity& entity) {
      if (auto* text = AcDbText::cast(&entity)) text->setTextString(toWide(given.value).c_str());
      else if (auto* paragraph = AcDbMText::cast(&entity)) paragraph->setContents(toWide(given.value).c_str());
    });
  }
}

constexpr CommandRow kTable[] = {
    {"TEXT", "DTEXT -TEXT TEXTE", text, "Écrit une ligne de texte."},
    {"ATTDEF", "-ATTDEF ATT -ATT", attributeDefinition, "Définit un attribut d'un bloc."},
    {"MTEXT", "-MTEXT TEXTMULT", mtext, "Écrit un texte de plusieurs lignes."},
    {"DDEDIT", "TEXTEDIT ED MODIFTEXT", editText, "Change ce que disent des textes."},
};

}  // namespace

std::span<const CommandRow> textCommands() { return kTable; }

}  // namespace atelier
