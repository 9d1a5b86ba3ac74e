// ORTHO SNAP GRID FILL OSNAP LIMITS ELEV UNITS ...: settings that have a command besides their variable.
// Programs set them by either way; both keep the same value.
#include <algorithm>
#include <cmath>

#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/database/objects/layouts.h"
#include "atelier/document/document.h"

namespace atelier {
namespace {

void set(const Command& c, std::string_view name, const SystemVariables::Value& value) {
  if (!c.document.variables().set(name, value)) c.fail("Valeur refusée pour " + std::string(name) + ".");
}

// --- what is on or off

struct Mode {
  std::string_view command, variable;
};
constexpr Mode kModes[] = {{"ORTHO", "ORTHOMODE"},
                           {"FILL", "FILLMODE"},
                           {"REMPLIR", "FILLMODE"},
                           {"QTEXT", "QTEXTMODE"},
                           {"REGENAUTO", "REGENMODE"}};

constexpr const char* kOnOff = "ACtif Inactif _ON OFF";

CommandTask onOrOff(Command& c) {
  const auto* mode = std::ranges::find(kModes, commandName(c.typed), &Mode::command);
  const auto state = co_await c.keyword("\nOption [ACtif/Inactif]: ", kOnOff);
  if (state.isKeyword()) set(c, mode->variable, state.is("ON") ? 1 : 0);
}

// SNAP and GRID: on, off, or a spacing, which turns them on.
CommandTask spacing(Command& c) {
  const bool snap = commandName(c.typed) != "GRID" && commandName(c.typed) != "GRILLE";
  const auto given = co_await c.distanceOrEnter("\nPas ou [ACtif/Inactif]: ", {}, "ACtif Inactif _ON OFF");
  if (given.isKeyword()) {
    set(c, snap ? "SNAPMODE" : "GRIDMODE", given.is("ON") ? 1 : 0);
  } else if (given.given()) {
    if (!(*given > 0)) c.fail("Le pas doit être positif.");
    set(c, snap ? "SNAPUNIT" : "GRIDUNIT", SystemVariables::Point{{*given, *given, 0}, true});
    set(c, snap ? "SNAPMODE" : "GRIDMODE", 1);
  }
}

// --- object snaps, as a list of names

struct Snap {
  std::string_view names;  // beginnings, English and French
  int bit;
};
constexpr Snap kSnaps[] = {{"NON AUC", 0},   {"END EXT", 1},    {"MID MIL", 2},    {"CEN CEN", 4},    {"NOD NOE", 8},
                           {"QUA QUA", 16},  {"INT INT", 32},   {"INS INS", 64},   {"PER PER", 128},  {"TAN TAN", 256},
                           {"NEA PRO", 512}, {"GEO GEO", 1024}, {"APP APP", 2048}, {"PAR PAR", 8192}, {"OFF INA", 0}};

int snapBit(const Command& c, std::string_view word) {
  std::string name = commandName(word);
  if (name == "EXTENSION" || name == "_EXT") return 4096;
  name.resize(std::min<std::size_t>(name.size(), 3));
  for (const Snap& snap : kSnaps)
    if (name.size() == 3 && (snap.names.starts_with(name) || snap.names.ends_with(name))) return snap.bit;
  c.fail("Accrochage inconnu: " + std::string(word) + ". Par exemple EXTrémité, MILieu, CENtre, INTersection, AUCun.");
}

CommandTask objectSnaps(Command& c) {
  const auto given = co_await c.word("\nAccrochages, séparés par des virgules <aucun>: ");
  int bits = 0;
  std::string_view rest = given.value;
  while (!rest.empty()) {
    const std::size_t comma = std::min(rest.find(','), rest.size());
    bits |= snapBit(c, rest.substr(0, comma));
    rest.remove_prefix(std::min(comma + 1, rest.size()));
  }
  set(c, "OSMODE", bits);
}

// --- the drawing

CommandTask limits(Command& c) {
  const auto low = co_await c.pointOrEnter("\nCoin inférieur gauche ou [ACtif/Inactif]: ", {}, kOnOff);
  if (low.isKeyword()) {
    set(c, "LIMCHECK", low.is("ON") ? 1 : 0);
    co_return;
  }
  if (low.given()) set(c, "LIMMIN", SystemVariables::Point{*low, true});
  const auto high = co_await c.pointOrEnter("\nCoin supérieur droit: ");
  if (high.given()) set(c, "LIMMAX", SystemVariables::Point{*high, true});
}

CommandTask base(Command& c) {
  const auto point = co_await c.pointOrEnter("\nPoint de base: ");
  if (point.given()) set(c, "INSBASE", SystemVariables::Point{*point, false});
}

CommandTask elevation(Command& c) {
  const auto height = co_await c.distanceOrEnter("\nÉlévation: ");
  if (height.given()) set(c, "ELEVATION", *height);
  const auto thickness = co_await c.distanceOrEnter("\nHauteur d'objet: ");
  if (thickness.given()) set(c, "THICKNESS", *thickness);
}

CommandTask lineWeight(Command& c) {
  const auto given = co_await c.word("\nÉpaisseur courante en millimètres, DUCALQUE ou DUBLOC: ");
  const std::string text = commandName(given.value);
  if (text.empty()) co_return;
  if (text == "BYLAYER" || text == "DUCALQUE") set(c, "CELWEIGHT", -1);
  else if (text == "BYBLOCK" || text == "DUBLOC") set(c, "CELWEIGHT", -2);
  else if (text == "DEFAULT" || text == "DÉFAUT" || text == "DEFAUT") set(c, "CELWEIGHT", -3);
  else if (const auto width = parseReal(text); width && *width >= 0 && *width <= 2.11)
    set(c, "CELWEIGHT", static_cast<int>(std::lround(*width * 100)));
  else c.fail("Épaisseur refusée: " + text);
}

// In the order in which programs answer: lengths, their digits, angles, theirs, the direction of 0, the sense.
CommandTask units(Command& c) {
  const auto lengths = co_await c.integerOrEnter("\nUnités linéaires 1-5: ");
  if (lengths.given()) set(c, "LUNITS", *lengths);
  const auto digits = co_await c.integerOrEnter("\nDécimales des longueurs: ");
  if (digits.given()) set(c, "LUPREC", *digits);
  const auto angles = co_await c.integerOrEnter(
      "\nUnités d'angle, 1 degrés, 2 degrés minutes secondes, 3 grades, 4 radians, 5 géodésiques: ");
  if (angles.given()) set(c, "AUNITS", *angles - 1);
  const auto fraction = co_await c.integerOrEnter("\nDécimales des angles: ");
  if (fraction.given()) set(c, "AUPREC", *fraction);
  const auto zero = co_await c.angleOrEnter("\nDirection de l'angle 0: ");
  if (zero.given()) set(c, "ANGBASE", *zero);
  const auto clockwise = co_await c.keyword("\nAngles dans le sens horaire? [Oui/Non] <N>: ", "Oui Non _Yes No");
  if (clockwise.isKeyword()) set(c, "ANGDIR", clockwise.is("Yes") ? 1 : 0);
}

CommandTask attributeDisplay(Command& c) {
  const auto shown = co_await c.keyword("\nAttributs [Normal/ACtif/Inactif]: ", "Normal ACtif Inactif _Normal ON OFF");
  if (shown.isKeyword()) set(c, "ATTMODE", shown.is("Normal") ? 1 : shown.is("ON") ? 2 : 0);
}

// --- spaces

CommandTask model(Command& c) {
  set(c, "TILEMODE", 1);
  co_return;
}

CommandTask layout(Command& c) {
  const auto option = co_await c.keyword("\nPrésentation [Définir/?] <Définir>: ", "Définir ? _Set ?");
  if (option.is("?")) {
    for (AcDbStub* space : sheetsOf(c.document.imp())) c.print("\n  " + layoutNameOf(*space));
    co_return;
  }
  const auto name = co_await c.line("\nPrésentation à montrer: ");
  if (!name.value.empty()) set(c, "CTAB", name.value);
}

// The model behind the sheet's viewports is edited in the model itself.
CommandTask modelOfSheet(Command& c) {
  if (c.document.database().tilemode()) c.fail("ESPACEO: la présentation n'est pas affichée (TILEMODE 0).");
  c.fail("ESPACEO: le modèle se modifie dans l'onglet Objet (TILEMODE 1).");
  co_return;
}

CommandTask paper(Command& c) {
  if (c.document.database().tilemode()) c.fail("ESPACEP: la présentation n'est pas affichée (TILEMODE 0).");
  co_return;
}

// What shows the screen otherwise has nothing to do here.
CommandTask shown(Command&) { co_return; }

CommandTask viewResolution(Command& c) {
  co_await c.keyword("\nZooms rapides? [Oui/Non] <O>: ", "Oui Non _Yes No");
  co_await c.integerOrEnter("\nFinesse des cercles 1-20000 <1000>: ");
}

constexpr CommandRow kTable[] = {
    {"ORTHO", "", onOrOff, "Active ou non le mode orthogonal.", true},
    {"FILL", "REMPLIR", onOrOff, "Remplit ou non les aires.", true},
    {"QTEXT", "", onOrOff, "Montre ou non les textes en cadres.", true},
    {"REGENAUTO", "", onOrOff, "Régénère ou non sans demander.", true},
    {"SNAP", "SN RESOL", spacing, "Règle la résolution.", true},
    {"GRID", "GRILLE", spacing, "Règle la grille.", true},
    {"-OSNAP", "OSNAP OS -OS ACCROBJ -ACCROBJ", objectSnaps, "Règle les accrochages aux objets.", true},
    {"LIMITS", "LIMITES", limits, "Règle les limites du dessin.", true},
    {"BASE", "", base, "Règle le point de base du dessin, quand il est inséré dans un autre.", true},
    {"ELEV", "", elevation, "Règle l'élévation et la hauteur d'objet courantes.", true},
    {"-LWEIGHT", "LWEIGHT LW LWT LINEWEIGHT EPAISSLIGNE -EPAISSLIGNE", lineWeight, "Règle l'épaisseur courante.", true},
    {"-UNITS", "UNITS UN -UN UNITES -UNITES", units, "Règle les unités et leurs décimales.", true},
    {"ATTDISP", "ATTECRAN", attributeDisplay, "Montre ou cache les attributs.", true},
    {"-LAYOUT", "LAYOUT LO -LO PRESENTATION -PRESENTATION", layout, "Montre une présentation."},
    {"MODEL", "MODELE", model, "Montre l'espace objet."},
    {"MSPACE", "MS ESPACEO", modelOfSheet, "Passe dans le modèle à travers une présentation: refusé."},
    {"PSPACE", "PS ESPACEP", paper, "Reste sur la présentation."},
    {"GRAPHSCR", "ECRGRAPH", shown, "Montre l'écran graphique.", true},
    {"TEXTSCR", "ECRTEXT", shown, "Montre l'écran de texte.", true},
    {"VIEWRES", "VUERES", viewResolution, "Finesse de l'affichage: toujours la plus grande ici."},
    {"HIDE", "HI CACHE", shown, "Cache les arêtes: sans effet, le dessin est vu du dessus."},
};

}  // namespace

std::span<const CommandRow> modeCommands() { return kTable; }

}  // namespace atelier
