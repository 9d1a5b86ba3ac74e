// The options of the command line as one table, and reading it with CLI11.
// To add an option: a row here, and the member or the action that it touches.
#include "atelier/console/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <span>
#include <variant>

namespace atelier::console {
namespace {

constexpr const char* kDescription =
    "Kavel draws, annotates, optimises and measures longitudinal profiles of roads, sewers and water mains.\n"
    "Actions are carried out in the order given. Without actions, on a terminal: an interactive command line.";
constexpr const char* kFooter =
    "exit status: 0 done; 1 a LISP error or a failed command; 2 bad usage; 3 a file could not be read or written";

// What an option does. A setting holds for the actions after it, or for all when none of it stood before.
using Setting = std::string Settings::*;
struct Flag {
  bool Options::*member;
  bool value = true;
};
// The values stand in the argument, in the order of their type.
struct Choice {
  Progress Options::*member;
};

struct Row {
  const char* names;     // as CLI11 takes them, the long one last
  const char* argument;  // empty: none
  const char* help;
  std::variant<ActionKind, Setting, Flag, Choice> effect;

  std::string_view longName() const { return std::string_view(names).substr(std::string_view(names).rfind("--") + 2); }
};

// In the order of --help. The manual page names the same options; a test compares the two.
constexpr Row kRows[] = {
    {"-l,--load", "FILE.lsp", "load an AutoLISP file", ActionKind::load},
    {"-e,--eval", "EXPR", "evaluate, print the value as prin1 would", ActionKind::eval},
    {"-s,--script", "FILE", "feed the lines of FILE ('-' for stdin) to the command line", ActionKind::script},
    {"-o,--save", "FILE.dxf", "save the drawing there (nothing is written unless asked)", ActionKind::save},
    {"--plot", "FILE", "plot to a .pdf, .svg or .png file; profiles as a page to a .html file", ActionKind::plot},
    {"--scale", "SCALE", "scale of the plots after it: 1:200, or fit", &Settings::scale},
    {"--paper", "SHEET", "sheet of the plots after it: A4 to A0", &Settings::paper},
    {"--window", "BOX", "what the plots after it show: x1,y1,x2,y2", &Settings::window},
    {"--layout", "NAME", "layout that the plots after it show, or Model", &Settings::layout},
    {"--dpi", "N", "resolution of the .png plots after it: 10 to 2400, 150 without it", &Settings::dpi},
    {"--colours", "INKS", "colours of the plots after it: colour, grey, black, or a table by its name or file",
     &Settings::colours},
    {"--release", "RELEASE", "version of the saves after it: R12, R2000, R2004, R2007, R2010, R2013, R2018",
     &Settings::release},
    {"--binary", "", "saves are binary DXF", Flag{&Options::binary}},
    {"--ascii", "", "saves are ASCII DXF, also those of a binary drawing", Flag{&Options::ascii}},
    {"--recover", "", "open what can be opened of a damaged drawing, and say what was left out",
     Flag{&Options::recover}},
    {"--overwrite", "", "with --recover: the damaged file may be saved over", Flag{&Options::overwrite}},
    {"--audit", "", "check the drawing, print findings with their codes", ActionKind::audit},
    {"--fix", "", "with --audit: repair what can be repaired", Flag{&Options::fix}},
    {"--list", "", "entities by type, layers, profiles, in short", ActionKind::list},
    {"--no-frontal", "", "do not load the front-end", Flag{&Options::frontal, false}},
    {"--quiet", "", "print what programs print, results and errors only", Flag{&Options::quiet}},
    {"--strict", "", "stop at the first failure, also inside a script", Flag{&Options::strict}},
    {"--force", "", "replace drawings that others have changed or work on", Flag{&Options::force}},
    {"--keep-going", "", "save even after a failure", Flag{&Options::keepGoing}},
    {"--progress", "auto|never|json", "progress of long work", Choice{&Options::progress}},
};

// One of the words of "auto|never|json", as its rank among them.
CLI::Validator choiceOf(const char* words) {
  return CLI::Validator(
      [words](std::string& given) -> std::string {
        const auto known = CLI::detail::split(words, '|');
        const auto at = std::find(known.begin(), known.end(), given);
        if (at == known.end()) return given + ": " + words + " attendu";
        given = std::to_string(at - known.begin());
        return {};
      },
      "");
}

struct Given {
  std::vector<std::string> values;  // one for each time the option is given
  std::size_t taken = 0;
  bool on = false;  // of an option without values: unless it is given as --option=false
};

CLI::Option* declare(CLI::App& app, const Row& row, Options& options, Given& given) {
  if (const auto* choice = std::get_if<Choice>(&row.effect))
    return app.add_option(row.names, options.*choice->member, row.help)
        ->transform(choiceOf(row.argument))
        ->type_name(row.argument);
  if (!*row.argument) return app.add_flag(row.names, given.on, row.help);
  return app.add_option(row.names, given.values, row.help)
      ->type_name(row.argument)
      ->allow_extra_args(false)
      ->take_all();
}

// The actions as they were given. CLI11 sorts by option; each occurrence comes once in its list, and its values are taken
// one by one.
void keepOrder(const CLI::App& app, const std::map<const CLI::Option*, std::size_t>& rowOf, std::span<Given> given,
               std::vector<Action>& actions) {
  Settings current;
  for (const CLI::Option* option : app.parse_order()) {
    const auto row = rowOf.find(option);
    if (row == rowOf.end()) continue;  // the drawing
    Given& of = given[row->second];
    const std::string value = of.values.empty() ? std::string() : of.values.at(of.taken++);
    const auto& effect = kRows[row->second].effect;
    if (const auto* kind = std::get_if<ActionKind>(&effect)) actions.push_back({*kind, value, current});
    if (const auto* setting = std::get_if<Setting>(&effect)) current.*(*setting) = value;
  }
}

// What does not hang on the order: flags, and settings for the actions that stand before all of them.
void settle(const Row& row, const Given& given, Options& options) {
  if (const auto* flag = std::get_if<Flag>(&row.effect); flag && given.on) options.*flag->member = flag->value;
  const auto* setting = std::get_if<Setting>(&row.effect);
  if (!setting || given.values.empty()) return;
  for (Action& action : options.actions)
    if ((action.settings.*(*setting)).empty()) action.settings.*(*setting) = given.values.front();
}

// A setting or flag that no action follows: what it would have done, and what it needs. A null pointer when there is none.
const char* withoutAction(const Options& options, const auto& isGiven) {
  const auto has = [&](ActionKind kind) {
    return std::any_of(options.actions.begin(), options.actions.end(), [&](const Action& a) { return a.kind == kind; });
  };
  for (const char* name : {"--scale", "--paper", "--window", "--dpi", "--layout", "--colours"})
    if (isGiven(name) && !has(ActionKind::plot))
      return "--scale, --paper, --window, --dpi, --layout et --colours demandent --plot";
  for (const char* name : {"--release", "--binary", "--ascii"})
    if (isGiven(name) && !has(ActionKind::save)) return "--release, --binary et --ascii demandent --save";
  if (isGiven("--binary") && isGiven("--ascii")) return "--binary et --ascii s'excluent";
  if (isGiven("--fix") && !has(ActionKind::audit)) return "--fix demande --audit";
  if (isGiven("--overwrite") && !options.recover) return "--overwrite demande --recover";
  if (isGiven("--strict") && isGiven("--keep-going")) return "--strict et --keep-going s'excluent";
  return nullptr;
}

}  // namespace

std::string_view actionName(ActionKind kind) {
  for (const Row& row : kRows)
    if (const auto* known = std::get_if<ActionKind>(&row.effect); known && *known == kind) return row.longName();
  return {};
}

std::optional<Options> parseOptions(int argc, char** argv, int& status) {
  CLI::App app(kDescription, "kavel");
  app.footer(kFooter);
  Options options;
  app.add_option("drawing", options.drawing, "the drawing to open; a new one without it")->type_name("DRAWING.dxf");
  std::array<Given, std::size(kRows)> given;
  std::map<const CLI::Option*, std::size_t> rowOf;
  for (std::size_t i = 0; i < given.size(); ++i) rowOf[declare(app, kRows[i], options, given[i])] = i;
  app.set_version_flag("--version", "kavel " KAVEL_VERSION);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    status = app.exit(error) == 0 ? 0 : 2;
    return std::nullopt;
  }
  keepOrder(app, rowOf, given, options.actions);
  for (std::size_t i = 0; i < given.size(); ++i) settle(kRows[i], given[i], options);
  if (const char* wanted = withoutAction(options, [&](const char* name) { return app.count(name) > 0; })) {
    std::fprintf(stderr, "kavel: %s\n", wanted);
    status = 2;
    return std::nullopt;
  }
  return options;
}

}  // namespace atelier::console
