// The command line of the headless program.
// Actions are kept in the order in which they were given; options of plots hold for the plots after them.
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace atelier::console {

enum class ActionKind { load, eval, script, save, plot, audit, list };

// What plots and saves follow, as typed; empty where it was not given.
struct Settings {
  std::string scale, paper, window, dpi, layout, colours;  // of plots
  std::string release;                                     // of saves; empty: the drawing's own
};

struct Action {
  ActionKind kind;
  std::string argument;  // file or expression
  Settings settings;
};

// The name of its option: "load", "save" ...
std::string_view actionName(ActionKind kind);

enum class Progress { automatic, never, json };

struct Options {
  std::string drawing;  // empty: a new one
  std::vector<Action> actions;
  bool recover = false;                // open what can be opened of a damaged drawing
  bool overwrite = false;              // then also save over it
  bool binary = false, ascii = false;  // the form of saves; neither: the drawing's own
  std::optional<bool> form() const {
    return binary ? std::optional(true) : ascii ? std::optional(false) : std::nullopt;
  }
  bool fix = false;
  bool frontal = true;
  bool quiet = false;
  bool strict = false;     // the first failure ends the run
  bool force = false;      // saves replace what others have changed
  bool keepGoing = false;  // what was done is saved although something failed
  Progress progress = Progress::automatic;
};

// Nothing when the program is to end at once (help, version, bad usage); `status` is then its exit status. Texts go to
// stdout and stderr.
std::optional<Options> parseOptions(int argc, char** argv, int& status);

}  // namespace atelier::console
