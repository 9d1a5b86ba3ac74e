// -STYLE -RENAME -PURGE: the records of the symbol tables.
// The kinds of records have French and English keywords.
#include <numbers>

#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/commands/records/command_records.h"
#include "atelier/document/document.h"
#include "hote/dbsymtb.h"

namespace atelier {
namespace {

using Style = AcDbTextStyleTableRecord;

AcDbObjectId styleNamed(const Command& c, const std::string& name) {
  if (AcDbStub* stub = c.document.imp().tableRecord("STYLE", name)) return AcDbObjectId(stub);
  const AcDbObjectPointer<AcDbTextStyleTable> table(c.document.database().textStyleTableId(), AcDb::kForWrite);
  auto style = std::make_unique<Style>();
  AcDbObjectId id;
  if (table.openStatus() != Acad::eOk || style->setName(toWide(name).c_str()) != Acad::eOk ||
      table->add(id, style.get()) != Acad::eOk)
    c.fail("Nom de style non valide: \"" + name + "\".");
  style.release()->close();
  return id;
}

CommandTask styleCommand(Command& c) {
  const std::string current = std::get<std::string>(*c.document.variables().value("TEXTSTYLE"));
  const std::string namePrompt = "\nNom du style <" + current + ">: ";
  const auto name = co_await c.line(namePrompt);
  const AcDbObjectId id = styleNamed(c, name.value.empty() ? current : name.value);
  std::string font;
  double height = 0, width = 1;
  {
    const AcDbObjectPointer<Style> record(id);
    font = toUtf8(record->fileName().kACharPtr());
    height = record->textSize();
    width = record->xScale();
  }
  const std::string filePrompt = "\nFichier de police <" + font + ">: ",
                    heightPrompt = "\nHauteur du texte <" + realText(height) + ">: ",
                    widthPrompt = "\nFacteur de largeur <" + realText(width) + ">: ";
  const auto file = co_await c.line(filePrompt);
  if (!file.value.empty()) font = file.value;
  const auto tall = co_await c.distanceOrEnter(heightPrompt);
  const auto wide = co_await c.realOrEnter(widthPrompt);
  const auto slant = co_await c.angleOrEnter("\nAngle d'inclinaison <0>: ");
  const auto backwards = co_await c.keyword("\nTexte à l'envers? [Oui/Non] <N>: ", "Oui Non _Yes No");
  const auto upsideDown = co_await c.keyword("\nTexte tête en bas? [Oui/Non] <N>: ", "Oui Non _Yes No");
  MaybeReply<int> vertical;
  if (!upperCase(font).ends_with(".TTF"))
    vertical = co_await c.keyword("\nTexte vertical? [Oui/Non] <N>: ", "Oui Non _Yes No");
  const AcDbObjectPointer<Style> record(id, AcDb::kForWrite);
  if (record.openStatus() != Acad::eOk) c.fail("Le style n'est pas accessible.");
  record->setFileName(toWide(font).c_str());
  record->setTextSize(tall.valueOr(height));
  record->setXScale(wide.valueOr(width));
  constexpr std::string_view kSection = "AcDbTextStyleTableRecord";
  AcDbImpObject& imp = AcDbImpObject::of(record.object());
  imp.setReal(realField(kSection, 50), slant.valueOr(0) * 180 / std::numbers::pi);
  imp.setInteger(integerField(kSection, 71), (backwards.is("Yes") ? 2 : 0) + (upsideDown.is("Yes") ? 4 : 0));
  if (vertical.is("Yes")) imp.setInteger(integerField(kSection, 70), 4);
  c.document.database().setTextstyle(id);
}

std::string_view tableOf(const std::string& keyword) {
  constexpr std::pair<std::string_view, std::string_view> kTables[] = {{"Block", "BLOCK_RECORD"}, {"LAyer", "LAYER"},
                                                                       {"LType", "LTYPE"},        {"Style", "STYLE"},
                                                                       {"Dimstyle", "DIMSTYLE"},  {"Regapps", "APPID"}};
  for (const auto& [word, table] : kTables)
    if (word == keyword) return table;
  return {};
}

CommandTask rename(Command& c) {
  const auto kind = co_await c.keyword("\nType d'objet [Bloc/CAlque/TYpeligne/STyle/COtation]: ",
                                       "Bloc CAlque TYpeligne STyle COtation _Block LAyer LType Style Dimstyle");
  if (!kind.isKeyword()) co_return;
  const auto from = co_await c.line("\nAncien nom: ");
  const auto to = co_await c.line("\nNouveau nom: ");
  renameNamed(c, tableOf(kind.keyword()), from.value, to.value);
}

CommandTask purge(Command& c) {
  const auto kind = co_await c.keyword(
      "\nÉléments à purger [TOut/Bloc/CAlque/TYpeligne/STyle/COtation/Regapps]: ",
      "TOut Bloc CAlque TYpeligne STyle COtation Regapps _All Block LAyer LType Style Dimstyle Regapps");
  if (!kind.isKeyword()) co_return;
  const auto names = co_await c.line("\nNoms à purger <*>: ");
  // Whatever the answer, no name is asked about: nothing that is in use is purged.
  const auto verify = co_await c.keyword("\nVérifier chaque nom? [Oui/Non] <N>: ", "Oui Non _Yes No");
  if (verify.is("Yes")) c.print("\nLes noms ne sont pas vérifiés un à un.");
  std::vector<std::string_view> tables;
  if (kind.is("All")) tables = {"BLOCK_RECORD", "LAYER", "LTYPE", "STYLE", "DIMSTYLE"};
  else tables = {tableOf(kind.keyword())};
  int count = 0;
  for (const std::string_view table : tables)
    for (const std::string& name : purgeTable(c, table, names.value.empty() ? "*" : names.value)) {
      c.print("\nPurgé: " + name);
      ++count;
    }
  if (count == 0) c.print("\nRien à purger.");
}

constexpr CommandRow kTable[] = {
    {"-STYLE", "STYLE ST", styleCommand, "Crée ou modifie un style de texte et le rend courant."},
    {"-RENAME", "RENAME REN RENOMMER -RENOMMER", rename, "Renomme un bloc, un calque, un style."},
    {"-PURGE", "PURGE PU PURGER -PURGER", purge, "Retire du dessin ce qui ne sert pas."},
};

}  // namespace

std::span<const CommandRow> recordCommands() { return kTable; }

}  // namespace atelier
