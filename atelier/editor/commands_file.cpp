// QSAVE SAVEAS QUIT SCRIPT SETVAR DELAY: the file and the session.
// A drawing is written in the version that it was read in; another one is refused rather than pretended.
#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include "atelier/database/interruption.h"
#include "atelier/editor/command_prompts.h"
#include "atelier/editor/command_table.h"
#include "atelier/editor/commands.h"
#include "atelier/editor/document.h"

namespace atelier {
namespace {

std::string withExtension(std::string path) {
  return std::filesystem::path(path).has_extension() ? path : path + ".dxf";
}

CommandTask qsave(Command& c) {
  std::string path = c.document.path();
  if (path.empty()) {
    const auto given = co_await c.line("\nEnregistrer le dessin sous: ");
    path = std::string(trimmed(given.value));
    if (path.empty()) co_return;
  }
  c.document.save(withExtension(path));
}

// The years of file versions, as SAVEAS names them; empty for what is no version.
std::string_view versionOf(std::string_view word) {
  constexpr std::pair<std::string_view, std::string_view> kVersions[] = {
      {"R12", "AC1009"},  {"2000", "AC1015"}, {"2004", "AC1018"}, {"2007", "AC1021"},
      {"2010", "AC1024"}, {"2013", "AC1027"}, {"2018", "AC1032"}};
  const std::string upper = upperCase(word);
  if (upper == "DXF") return "DXF";
  for (const auto& [year, code] : kVersions)
    if (upper == year || upper == std::string("LT") + std::string(year)) return code;
  return {};
}

CommandTask saveas(Command& c) {
  auto given = co_await c.line("\nEnregistrer le dessin sous: ");
  const std::string_view version = versionOf(trimmed(given.value));
  if (!version.empty()) {
    const std::string own = c.document.imp().header.text("$ACADVER", "AC1032");
    if (version != "DXF" && version != own) c.fail("Le dessin s'enregistre dans sa version, " + own + ".");
    given = co_await c.line("\nNom du fichier: ");
  }
  const std::string path = withExtension(std::string(trimmed(given.value)));
  if (given.value.empty()) co_return;
  std::error_code error;
  if (std::filesystem::exists(path, error) && c.document.variables().integer("EXPERT", 0) < 2) {
    const auto replace =
        co_await c.keyword("\nCe fichier existe. Le remplacer? [Oui/Non] <N>: ", "Oui Non _Yes No");
    if (!replace.is("Yes")) co_return;
  }
  c.document.save(path);
}

CommandTask quit(Command& c) {
  if (c.document.imp().modified) {
    const auto discard =
        co_await c.keyword("\nAbandonner les modifications? [Oui/Non] <O>: ", "Oui Non _Yes No");
    if (discard.is("No")) co_return;
  }
  requestQuit();
}

CommandTask script(Command& c) {
  const auto given = co_await c.line("\nFichier script: ");
  const std::string name(trimmed(given.value));
  auto found = c.document.interpreter().search().find(name);
  if (!found) found = c.document.interpreter().search().find(name + ".scr");
  std::ifstream file(found.value_or(std::string()), std::ios::binary);
  if (!found || !file) c.fail("Script introuvable: " + name);
  std::ostringstream text;
  text << file.rdbuf();
  const std::string bytes = text.str();
  c.document.scripts.push_back(isValidUtf8(bytes) ? bytes : CodePage::named("ANSI_1252").decode(bytes));
}

CommandTask setvar(Command& c) {
  const auto given = co_await c.word("\nNom de la variable: ");
  const std::string name = upperCase(trimmed(given.value));
  SystemVariables& variables = c.document.variables();
  const auto before = variables.value(name);
  if (!before) c.fail("Variable inconnue: " + name);
  const std::string prompt = "\nNouvelle valeur de " + name + ": ";
  const auto text = co_await c.line(prompt);
  if (text.value.empty()) co_return;
  SystemVariables::Value value = text.value;
  if (before->index() == 0) {
    const auto number = parseInteger(text.value);
    if (number) value = static_cast<int>(*number);
  } else if (before->index() == 1) {
    const auto number = parseReal(text.value);
    if (number) value = *number;
  } else if (before->index() == 3) {
    const auto point = parsePoint(text.value, {});
    if (point) value = SystemVariables::Point{*point, std::get<SystemVariables::Point>(*before).flat};
  }
  if (!variables.set(name, value)) c.fail("Valeur refusée pour " + name + ": " + text.value);
}

CommandTask delay(Command& c) {
  constexpr int kLongest = 32767, kSlice = 50;
  const auto given = co_await c.integer("\nDurée en millisecondes: ");
  for (int left = std::clamp(given.value, 0, kLongest); left > 0; left -= kSlice) {
    checkInterruption();
    std::this_thread::sleep_for(std::chrono::milliseconds(std::min(left, kSlice)));
  }
}

constexpr CommandRow kTable[] = {
    {"QSAVE", "SAVE ENREGISTRER SAUVERAP", qsave, "Enregistre le dessin."},
    {"SAVEAS", "ENREGSOUS SAUVENOM", saveas, "Enregistre le dessin sous un nom."},
    {"QUIT", "EXIT QUITTER", quit, "Quitte le programme."},
    {"SCRIPT", "SCR", script, "Exécute les lignes d'un fichier."},
    {"SETVAR", "SET MODIFVAR", setvar, "Règle une variable système."},
    {"DELAY", "DELAI", delay, "Attend."},
};

}  // namespace

std::span<const CommandRow> fileCommands() {
  return kTable;
}

}  // namespace atelier
