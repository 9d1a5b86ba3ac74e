// NEW OPEN RECOVER QSAVE SAVEAS AUDIT: the drawing as a whole and its file.
// A drawing that is opened replaces the present one; AutoLISP's variables are kept.
#include <filesystem>

#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/commands/files/audit_report.h"
#include "atelier/document/document.h"
#include "atelier/dxf/versions/export.h"
#include "atelier/dxf/versions/versions.h"

namespace atelier {
namespace {

constexpr const char* kYesNo = "Oui Non _Yes No";
// Enter keeps the work.
constexpr const char* kDiscard = "\nAbandonner les modifications? [Oui/Non] <N>: ";

std::string withExtension(const std::string& path) {
  return std::filesystem::path(path).has_extension() ? path : path + ".dxf";
}

std::string fileName(const std::string& given) { return withExtension(std::string(trimmed(given))); }

void tellSaved(const Command& c, const std::string& path) { c.print("\nDessin enregistré dans " + path + ".\n"); }

CommandTask newDrawing(Command& c) {
  if (c.document.imp().modified) {
    const auto discard = co_await c.keyword(kDiscard, kYesNo);
    if (!discard.is("Yes")) co_return;
  }
  c.document.open({});
}

CommandTask open(Command& c) {
  if (c.document.imp().modified) {
    const auto discard = co_await c.keyword(kDiscard, kYesNo);
    if (!discard.is("Yes")) co_return;
  }
  const auto given = co_await c.line("\nNom du dessin à ouvrir: ");
  if (given.value.empty()) co_return;
  std::string failure;
  try {
    c.document.open(fileName(given.value));
  } catch (const FileError&) {
    throw;
  } catch (const Error& error) {
    failure = error.what();
  }
  if (!failure.empty()) c.fail(failure + "; la commande RECUPERER ouvre ce qui peut l'être");
}

CommandTask recover(Command& c) {
  const auto given = co_await c.line("\nNom du dessin à récupérer: ");
  if (given.value.empty()) co_return;
  std::vector<std::string> messages;
  c.document.open(fileName(given.value), &messages);
  for (const std::string& message : messages) c.print("\n" + message);
  c.print("\n");
  auditDrawing(c.document, true, [&](std::string_view line) { c.print(line); });
}

CommandTask audit(Command& c) {
  const auto fix = co_await c.keyword("\nCorriger les erreurs détectées? [Oui/Non] <N>: ", kYesNo);
  c.print("\n");
  auditDrawing(c.document, fix.is("Yes"), [&](std::string_view line) { c.print(line); });
}

CommandTask qsave(Command& c) {
  std::string path = c.document.path();
  if (path.empty() || commandName(c.typed) == "SAVE") {
    const std::string prompt = "\nEnregistrer le dessin sous" + (path.empty() ? path : " <" + path + ">") + ": ";
    const auto given = co_await c.line(prompt);
    if (const std::string name(trimmed(given.value)); !name.empty()) path = name;
    if (path.empty()) co_return;
  }
  path = withExtension(path);
  const std::string why = c.document.objection(path);
  if (!why.empty() && !c.document.overwritesOthers) {
    const auto replace = co_await c.keyword("\n" + why + ". Le remplacer? [Oui/Non] <N>: ", kYesNo);
    if (!replace.is("Yes")) c.fail(path + ": " + why + "; le dessin n'est pas enregistré");
  }
  const OverwritingOthers allowed(c.document);
  c.document.save(path);
  tellSaved(c, path);
}

// "R12", "2000", "R2000", "LT2000" ... as a release; empty for any other word.
std::string releaseOf(std::string_view word) {
  std::string upper = upperCase(trimmed(word));
  if (upper.starts_with("LT")) upper.erase(0, 2);
  if (!upper.starts_with("R")) upper.insert(0, "R");
  return dxf::acadVersion(upper).empty() ? std::string() : upper;
}

constexpr const char* kFormats = "\nVersion du fichier [R12/2000/2004/2007/2010/2013/2018] <celle du dessin>: ";

// The answers may come as "2010" and the name, as "DXF", options and the name, or as the name alone.
// To that file, after a question when it exists, with what the version can't hold told.
CommandTask saveTo(Command& c, const std::string& path, const std::string& release, std::optional<bool> binary) {
  std::error_code error;
  const std::string why = c.document.objection(path);
  if ((std::filesystem::exists(path, error) && c.document.variables().integer("EXPERT", 0) < 2) || !why.empty()) {
    const std::string told = "\n" + (why.empty() ? "Ce fichier existe" : why) + ". Le remplacer? [Oui/Non] <N>: ";
    const auto replace = co_await c.keyword(told, kYesNo);
    if (!replace.is("Yes")) co_return;
  }
  const OverwritingOthers allowed(c.document);
  for (const std::string& lost : c.document.saveAs(path, release, binary)) c.print("\n" + lost);
  tellSaved(c, path);
}

// SAVEAS as programs call it: the name of the file comes first; the number of decimals, which ends the questions, is of no account.
CommandTask dxfout(Command& c) {
  const auto given = co_await c.line("\nNom du fichier DXF: ");
  if (given.value.empty()) co_return;
  const std::string path = fileName(given.value);
  std::string release;
  std::optional<bool> binary = false;
  for (bool more = true; more;) {
    const auto option = co_await c.keyword("\nDécimales (0 à 16) ou [Version/Binaire] <16>: ",
                                           "Version Binaire 0 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 _Version Binary "
                                           "0 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16");
    if (option.is("Binary")) {
      binary = true;
    } else if (option.is("Version")) {
      const auto version = co_await c.word(kFormats);
      release = releaseOf(version.value);
      if (release.empty() && !version.value.empty()) c.fail("Version inconnue: " + version.value);
    } else {
      more = false;
    }
  }
  co_await saveTo(c, path, release, binary);
}

CommandTask saveas(Command& c) {
  auto given = co_await c.line("\nNom du fichier ou version [R12/2000/2004/2007/2010/2013/2018/DXF]: ");
  std::string release = releaseOf(given.value);
  std::optional<bool> binary;
  if (equalNoCase(trimmed(given.value), "DXF")) binary = false;
  for (bool options = !release.empty() || equalNoCase(trimmed(given.value), "DXF"); options;) {
    given = co_await c.line("\nNom du fichier ou [Version/Binaire]: ");
    std::string word = upperCase(trimmed(given.value));
    if (word.starts_with("_")) word.erase(0, 1);
    if (word == "V" || word == "VERSION") {
      const auto version = co_await c.word(kFormats);
      release = releaseOf(version.value);
      if (release.empty() && !version.value.empty()) c.fail("Version inconnue: " + version.value);
    } else if (word == "B" || word == "BINAIRE" || word == "BINARY") {
      binary = true;
    } else {
      options = parseInteger(word).has_value();  // decimal places are ignored: numbers are written with all they need
    }
  }
  if (given.value.empty()) co_return;
  const std::string path = fileName(given.value);
  co_await saveTo(c, path, release, binary);
}

constexpr CommandRow kTable[] = {
    {"NEW", "NOUVEAU QNEW", newDrawing, "Commence un dessin."},
    {"OPEN", "OUVRIR DXFIN", open, "Ouvre un dessin à la place de celui-ci."},
    {"RECOVER", "RECUPERER", recover, "Ouvre ce qui peut l'être d'un dessin endommagé, et le contrôle."},
    {"QSAVE", "SAVE ENREGISTRER SAUVERAP", qsave, "Enregistre le dessin."},
    {"SAVEAS", "ENREGSOUS SAUVENOM", saveas, "Enregistre le dessin sous un nom, au besoin dans une autre version."},
    {"DXFOUT", "DX SORTIEDXF", dxfout, "Comme ENREGSOUS, le nom du fichier d'abord."},
    {"AUDIT", "CONTROLE", audit, "Contrôle le dessin, et le répare."},
};

}  // namespace

std::span<const CommandRow> drawingFileCommands() { return kTable; }

}  // namespace atelier
