// -PLOT: the questions that programs answer, one after the other, and a plot to a file.
// Devices are files by their kind; offsets and orientations are taken as answers and not used: the sheet turns with what is on it.
#include <cmath>

#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/document/document.h"
#include "atelier/document/services.h"

namespace atelier {
namespace {

constexpr double kMillimetresOfMetre = 1000;  // a drawing's unit is a metre

bool isWord(const std::string& text, std::initializer_list<const char*> words) {
  std::string_view word = trimmed(text);
  if (word.starts_with('_')) word.remove_prefix(1);
  return std::ranges::any_of(words, [&](const char* w) { return equalNoCase(word, w); });
}
bool isYes(const std::string& text) { return isWord(text, {"Y", "YES", "O", "OUI"}); }
bool isNo(const std::string& text) { return isWord(text, {"", "N", "NO", "NON"}); }

// The first sheet that the text names: "ISO_full_bleed_A3_(420.00_x_297.00_MM)" is an A3.
std::string paperIn(const std::string& text) {
  const std::string upper = upperCase(text);
  for (std::size_t at = upper.find('A'); at != upper.npos; at = upper.find('A', at + 1))
    if (at + 1 < upper.size() && upper[at + 1] >= '0' && upper[at + 1] <= '4' &&
        (at == 0 || !std::isalnum(static_cast<unsigned char>(upper[at - 1]))) &&
        (at + 2 == upper.size() || !std::isdigit(static_cast<unsigned char>(upper[at + 2]))))
      return upper.substr(at, 2);
  return {};
}

// "1=0.5", plotted millimetres and drawing units, as the number of a scale; empty for a fitted plot.
std::string scaleIn(const Command& c, const std::string& text) {
  if (isWord(text, {"", "F", "FIT", "A", "AJUSTER"})) return "fit";
  const std::size_t sign = text.find_first_of("=:");
  const auto paper = parseReal(text.substr(0, sign)),
             units = sign == text.npos ? paper : parseReal(text.substr(sign + 1));
  if (!paper || !units || !(*paper > 0) || !(*units > 0)) c.fail("Échelle non valide: " + text);
  return "1:" + realText(sign == text.npos ? kMillimetresOfMetre / *paper : kMillimetresOfMetre * *units / *paper);
}

std::string fileFor(const std::string& name, const std::string& device) {
  const std::size_t point = name.find_last_of("./");
  if (point != name.npos && name[point] == '.') return name;
  const std::string upper = upperCase(device);
  return name + (upper.find("PNG") != upper.npos ? ".png" : upper.find("SVG") != upper.npos ? ".svg" : ".pdf");
}

std::string cornersText(const AcGePoint3d& a, const AcGePoint3d& b) {
  return realText(a.x) + "," + realText(a.y) + "," + realText(b.x) + "," + realText(b.y);
}

// The answers about sheet, area and scale.
CommandTask details(Command& c, PlotWish& wish) {
  const auto paper = co_await c.line("\nFormat du papier <celui du dessin>: ");
  wish.paper = paperIn(paper.value);
  co_await c.word("\nUnités du papier [Pouces/Millimètres] <Millimètres>: ");
  co_await c.word("\nOrientation [Portrait/Paysage] <celle du dessin>: ");
  co_await c.word("\nTracer à l'envers? [Oui/Non] <N>: ");
  const auto area = co_await c.word("\nAire du tracé [Affichage/Étendue/LImites/Présentation/Fenêtre] <Étendue>: ");
  if (isWord(area.value, {"W", "WINDOW", "F", "FENETRE", "FENÊTRE"})) {
    const auto a = co_await c.point("\nPremier coin: ");
    const auto b = co_await c.corner("\nCoin opposé: ", a.value);
    wish.window = cornersText(a.value, b.value);
  } else if (isWord(area.value, {"LI", "LIMITS", "LIMITES"})) {
    const auto limit = [&](const char* name) {
      return std::get<VariablePoint>(*c.document.variables().value(name)).value;
    };
    wish.window = cornersText(limit("LIMMIN"), limit("LIMMAX"));
  }
  const auto scale = co_await c.word("\nÉchelle (mm tracés=unités) ou [Ajuster] <Ajuster>: ");
  wish.scale = scaleIn(c, scale.value);
  co_await c.word("\nDécalage (x,y) ou [Centrer] <Centrer>: ");
  const auto styled = co_await c.word("\nAppliquer les styles de tracé? [Oui/Non] <O>: ");
  const auto table = co_await c.line("\nTable des styles de tracé (. pour aucune) <celle de la présentation>: ");
  const bool plain = table.value == "." || (!styled.value.empty() && isNo(styled.value));
  wish.table = plain ? "couleurs" : table.value;
  co_await c.word("\nTracer les épaisseurs? [Oui/Non] <O>: ");
  if (isWord(wish.layout, {"", "MODEL"})) {
    co_await c.line("\nOmbrage <tel qu'affiché>: ");
  } else {
    co_await c.word("\nMettre les épaisseurs à l'échelle? [Oui/Non] <N>: ");
    co_await c.word("\nTracer d'abord l'espace papier? [Oui/Non] <N>: ");
    co_await c.word("\nCacher les objets de l'espace papier? [Oui/Non] <N>: ");
  }
}

CommandTask plotCommand(Command& c) {
  PlotWish wish;
  const auto detailed = co_await c.word("\nConfiguration détaillée du tracé? [Oui/Non] <N>: ");
  const std::string prompt = "\nPrésentation <" + std::get<std::string>(*c.document.variables().value("CTAB")) + ">: ";
  const auto layout = co_await c.line(prompt);
  wish.layout = layout.value.empty() ? std::get<std::string>(*c.document.variables().value("CTAB")) : layout.value;
  if (!isYes(detailed.value)) co_await c.line("\nMise en page <aucune>: ");
  const auto device = co_await c.line("\nTraceur <PDF>: ");
  if (isYes(detailed.value)) co_await details(c, wish);
  auto file = co_await c.line("\nTracer dans un fichier [Oui/Non], ou son nom: ");
  if (isYes(file.value) || isNo(file.value)) file = co_await c.line("\nNom du fichier: ");
  if (file.value.empty()) c.fail("Il n'y a pas de traceur ici: un nom de fichier est attendu.");
  wish.file = fileFor(file.value, device.value);
  co_await c.word("\nEnregistrer la mise en page? [Oui/Non] <N>: ");
  const auto sure = co_await c.word("\nTracer? [Oui/Non] <O>: ");
  if (!sure.value.empty() && isNo(sure.value)) co_return;
  if (!plotFunction()) c.fail("Ce programme ne trace pas.");
  for (const std::string& warning : plotFunction()(c.document, wish)) c.print("\n" + warning);
  c.print("\nTracé: " + wish.file);
}

constexpr CommandRow kTable[] = {
    {"-PLOT", "PLOT TRACEUR -TRACEUR", plotCommand, "Trace le dessin dans un fichier PDF, SVG ou PNG."},
};

}  // namespace

std::span<const CommandRow> plotCommands() { return kTable; }

}  // namespace atelier
