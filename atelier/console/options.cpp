// Reading the command line with CLI11.
// CLI11 sorts by option; the order of actions is taken from its list of parsed options.
#include "atelier/console/options.h"

#include <CLI/CLI.hpp>
#include <map>

namespace atelier::console {
namespace {

constexpr const char* kDescription =
    "Kavel draws, annotates, optimises and measures longitudinal profiles of roads, sewers and water mains.\n"
    "Actions are carried out in the order given. Without actions, on a terminal: an interactive command line.";
constexpr const char* kFooter =
    "exit status: 0 done; 1 a LISP error or a failed command; 2 bad usage; 3 a file could not be read or written";

const std::map<std::string, ActionKind> kActions = {{"--load", ActionKind::load},     {"--eval", ActionKind::eval},
                                                    {"--script", ActionKind::script}, {"--save", ActionKind::save},
                                                    {"--plot", ActionKind::plot},     {"--audit", ActionKind::audit},
                                                    {"--list", ActionKind::list}};

}  // namespace

std::string_view actionName(ActionKind kind) {
  for (const auto& [name, known] : kActions)
    if (known == kind) return std::string_view(name).substr(2);
  return {};
}

std::optional<Options> parseOptions(int argc, char** argv, int& status) {
  CLI::App app(kDescription, "kavel");
  app.footer(kFooter);
  Options options;
  std::vector<std::string> loads, evals, scripts, saves, plots, scales, papers, windows, releases;
  bool audit = false, list = false, noFrontal = false;
  const auto many = [&](const char* names, std::vector<std::string>& values, const char* help, const char* type) {
    // One value each time the option is given.
    return app.add_option(names, values, help)->type_name(type)->allow_extra_args(false)->take_all();
  };
  app.add_option("drawing", options.drawing, "the drawing to open; a new one without it")->type_name("DRAWING.dxf");
  many("-l,--load", loads, "load an AutoLISP file", "FILE.lsp");
  many("-e,--eval", evals, "evaluate, print the value as prin1 would", "EXPR");
  many("-s,--script", scripts, "feed the lines of FILE ('-' for stdin) to the command line", "FILE");
  many("-o,--save", saves, "save the drawing there (nothing is written unless asked)", "FILE.dxf");
  many("--plot", plots, "plot to a .pdf, .svg or .png file", "FILE");
  many("--scale", scales, "scale of the plots behind it: 1:200, or fit", "SCALE");
  many("--paper", papers, "sheet of the plots behind it: A4 to A0", "SHEET");
  many("--window", windows, "what the plots behind it show: x1,y1,x2,y2", "BOX");
  many("--release", releases, "version of the saves behind it: R12, R2000, R2004, R2007, R2010, R2013, R2018",
       "RELEASE");
  app.add_flag("--binary", options.binary, "saves are binary DXF");
  app.add_flag("--recover", options.recover, "open what can be opened of a damaged drawing, and say what was left out");
  app.add_flag("--overwrite", options.overwrite, "with --recover: the damaged file may be saved over");
  app.add_flag("--audit", audit, "check the drawing, print findings with their codes");
  app.add_flag("--fix", options.fix, "with --audit: repair what can be repaired");
  app.add_flag("--list", list, "entities by type, layers, profiles, in short");
  app.add_flag("--no-frontal", noFrontal, "do not load the front-end");
  app.add_flag("--quiet", options.quiet, "print results and errors only");
  app.add_option("--progress", options.progress, "progress of long work")
      ->transform(CLI::CheckedTransformer(std::map<std::string, Progress>{
          {"auto", Progress::automatic}, {"never", Progress::never}, {"json", Progress::json}}))
      ->type_name("auto|never|json");
  app.set_version_flag("--version", "kavel " KAVEL_VERSION);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    status = app.exit(error) == 0 ? 0 : 2;
    return std::nullopt;
  }
  options.frontal = !noFrontal;
  // Each occurrence of an option comes once in this list; its values are taken one by one.
  std::map<std::string, std::size_t> taken;
  const std::map<std::string, std::vector<std::string>*> values = {
      {"--load", &loads},   {"--eval", &evals},   {"--script", &scripts}, {"--save", &saves},      {"--plot", &plots},
      {"--scale", &scales}, {"--paper", &papers}, {"--window", &windows}, {"--release", &releases}};
  std::string scale, paper, window, release;
  for (const CLI::Option* option : app.parse_order()) {
    if (option->get_lnames().empty()) continue;  // the drawing
    const std::string name = "--" + option->get_lnames().front();
    const auto value = values.find(name);
    const std::string text = value == values.end() ? std::string() : value->second->at(taken[name]++);
    if (name == "--scale") scale = text;
    else if (name == "--paper") paper = text;
    else if (name == "--window") window = text;
    else if (name == "--release") release = text;
    const auto action = kActions.find(name);
    if (action != kActions.end()) options.actions.push_back({action->second, text, scale, paper, window, release});
  }
  // Options of a plot or a save may also stand behind it: then they hold when nothing stood before.
  for (Action& action : options.actions) {
    if (action.scale.empty() && !scales.empty()) action.scale = scales.front();
    if (action.paper.empty() && !papers.empty()) action.paper = papers.front();
    if (action.release.empty() && !releases.empty()) action.release = releases.front();
    if (action.window.empty() && !windows.empty()) action.window = windows.front();
  }
  return options;
}

}  // namespace atelier::console
