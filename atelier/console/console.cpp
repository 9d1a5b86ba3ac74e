// Carrying out the actions of the command line, one after the other.
// The first file that can't be read or written ends the run; LISP errors and failed commands are counted.
#include "atelier/console/console.h"

#include <poll.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <iterator>
#include <optional>

#include "atelier/application/front_end.h"
#include "atelier/application/open_drawing.h"
#include "atelier/commands/files/audit_report.h"
#include "atelier/console/listing.h"
#include "atelier/console/options.h"
#include "atelier/console/progress.h"
#include "atelier/console/terminal.h"
#include "atelier/document/files/script_file.h"
#include "atelier/dxf/versions/versions.h"
#include "atelier/exchange/exchange.h"
#include "atelier/plugin/installation.h"
#include "atelier/render/scene/transients.h"
#include "atelier/render/shapes/plot_error.h"
#include "atelier/render/sheets/ink_tables.h"
#include "atelier/render/sheets/layout_page.h"
#include "atelier/render/sheets/plot_builtins.h"

namespace atelier::console {
namespace {

constexpr int kDone = 0, kFailed = 1, kBadUsage = 2, kFileTrouble = 3;

bool lineIsOpen = false;  // what the command line has printed doesn't end with a line feed

void endLine() {
  if (lineIsOpen) std::fputc('\n', stdout);
  lineIsOpen = false;
}

// After what was printed before it, also where both streams end in one file.
void complain(const std::string& message) {
  endLine();
  std::fflush(stdout);
  std::fprintf(stderr, "kavel: %s\n", message.c_str());
}

volatile std::sig_atomic_t interruptions = 0;

void onInterrupt(int) {
  interruptions = 1;
  if (Document* document = Document::current()) document->interrupt();
}

class Run {
 public:
  Run(const Options& options, Document& document) : options_(options), document_(document) {}

  bool failed() const { return unsound_ || document_.failures() > 0; }
  // False for bad usage.
  bool carryOut(const Action& action) {
    switch (action.kind) {
      case ActionKind::load: load(action.argument); break;
      case ActionKind::eval: evaluate(action.argument); break;
      case ActionKind::script: script(action.argument); break;
      case ActionKind::save: return save(action);
      case ActionKind::plot: return plot(action);
      case ActionKind::list: list(); break;
      case ActionKind::audit: audit(); break;
    }
    return true;
  }

 private:
  void load(const std::string& file) {
    if (!std::filesystem::exists(file)) throw FileError(file, 0, "fichier introuvable");
    document_.load(file);
  }

  void evaluate(const std::string& expression) {
    std::string printed;
    if (!document_.evaluate(expression, &printed) || printed.empty()) return;
    endLine();
    std::printf("%s\n", printed.c_str());
    std::fflush(stdout);
  }

  void script(const std::string& file) {
    if (file == "-") {
      const std::string bytes{std::istreambuf_iterator<char>(std::cin), {}};
      LinesSource lines(decodeScript(bytes), "entrée standard");
      document_.run(lines);
    } else {
      LinesSource lines(readScript(file), file);
      document_.run(lines);
    }
  }

  bool save(const Action& action) {
    const std::string& file = action.argument;
    if (upperCase(std::filesystem::path(file).extension().string()) != ".DXF")
      throw FileError(file, 0, "les dessins s'enregistrent en .dxf");
    const std::string& release = action.settings.release;
    if (!release.empty() && dxf::acadVersion(release).empty()) {
      complain("version de dessin inconnue: " + release);
      return false;
    }
    try {
      document_.checkSaving();
    } catch (const Error& error) {
      document_.fail("kavel: " + file + ": " + error.what());
      return true;
    }
    for (const std::string& lost : document_.saveAs(file, release, options_.form())) complain(lost);
    if (!options_.quiet) complain("dessin enregistré: " + file);
    return true;
  }

  bool plot(const Action& action) {
    const Settings& asked = action.settings;
    render::PlotOptions plotOptions;
    try {
      if (!asked.scale.empty()) plotOptions.page.scale = render::parseScale(asked.scale);
      if (!asked.paper.empty()) plotOptions.page.paper = render::parsePaper(asked.paper);
      if (!asked.window.empty()) plotOptions.page.window = render::parseWindow(asked.window);
      if (!asked.dpi.empty()) plotOptions.dpi = render::parseDpi(asked.dpi);
      if (!asked.colours.empty()) plotOptions.inks = render::inksNamed(asked.colours);
    } catch (const render::PlotError& error) {
      complain(error.what());
      return false;
    }
    sayWhatIsStale();
    if (equalNoCase(std::filesystem::path(action.argument).extension().string(), ".html")) page(action.argument);
    else
      for (const std::string& warning : plotted(action, plotOptions)) complain(warning);
    return true;
  }

  // The front-end writes pages.
  void page(const std::string& file) {
    const std::string name = document_.interpreter().printed(document_.interpreter().string(file));
    const auto trouble = textOf(
        "((lambda (r) (if (vl-catch-all-error-p r) (vl-catch-all-error-message r) T))"
        " (vl-catch-all-apply 'plv-page (list (plv-profils) " +
        name + ")))");
    if (trouble) throw FileError(*trouble);
  }

  // What the profiles' tables and hatches were made from may have changed since; the front-end knows.
  void sayWhatIsStale() {
    if (document_.interpreter().get("PLV-AVANT-TRACE").isNil()) return;
    if (const auto stale = textOf("(plv-avant-trace)")) complain(*stale);
  }

  // The value of an expression; nothing where it is no text.
  std::optional<std::string> textOf(const std::string& expression) {
    std::string value;  // as a program writes it
    if (!document_.evaluate(expression, &value) || !value.starts_with('"')) return std::nullopt;
    return value.substr(1, value.size() - 2);
  }

  // A layout that is asked for; all of them for a drawing with nothing in its model space; else the model space.
  std::vector<std::string> plotted(const Action& action, const render::PlotOptions& plotOptions) {
    const std::string& layout = action.settings.layout;
    const AcDbDatabase& database = document_.database();
    if (!layout.empty() && !equalNoCase(layout, "Model"))
      return render::plotLayouts(database, {layout}, action.argument, plotOptions);
    render::WholeScene scene(database);
    render::addTransients(scene.above, document_.transients());
    const std::vector<std::string> layouts =
        scene.empty() && layout.empty() ? render::layoutsOf(database) : std::vector<std::string>();
    return layouts.empty() ? render::plot(scene, action.argument, plotOptions)
                           : render::plotLayouts(database, layouts, action.argument, plotOptions);
  }

  void list() {
    std::fputs(listing(document_).c_str(), stdout);
    if (!document_.interpreter().get("PLV-DECRIRE").isNil()) document_.evaluate("(plv-decrire)");
  }

  void audit() {
    const auto toStdout = [](std::string_view line) { std::fwrite(line.data(), 1, line.size(), stdout); };
    if (auditDrawing(document_, options_.fix, toStdout).errors > 0) unsound_ = true;
  }

  const Options& options_;
  Document& document_;
  bool unsound_ = false;  // the audit has found errors: a failure, but none of a command
};

void print(std::string_view text) {
  if (text.empty()) return;
  lineIsOpen = text.back() != '\n';
  std::fwrite(text.data(), 1, text.size(), stdout);
}

// Whether something was given on the standard input: a file, or a pipe that somebody writes to.
bool inputWaits() {
  constexpr int kPatience = 200;  // milliseconds
  struct stat info {};
  if (fstat(STDIN_FILENO, &info) != 0) return false;
  if (S_ISREG(info.st_mode)) return info.st_size > 0;
  if (!S_ISFIFO(info.st_mode)) return false;
  pollfd input{STDIN_FILENO, POLLIN, 0};
  int bytes = 0;
  return poll(&input, 1, kPatience) > 0 && ioctl(STDIN_FILENO, FIONREAD, &bytes) == 0 && bytes > 0;
}

std::unique_ptr<Document> openDocument(const Options& options, const Printer& printer) {
  std::vector<std::string> messages;
  try {
    auto document = std::make_unique<OpenDrawing>(printer, options.drawing, options.recover ? &messages : nullptr);
    for (const std::string& message : messages) complain(options.drawing + ": " + message);
    document->imp().mayOverwriteDamaged = options.overwrite;
    return document;
  } catch (const FileError&) {
    throw;
  } catch (const Error& error) {
    throw Error(std::string(error.what()) + (options.recover ? "" : "\nkavel: --recover ouvre ce qui peut l'être"));
  }
}

// A run that reads a drawing only doesn't keep others from saving it.
bool savesItsDrawing(const Options& options) {
  return std::any_of(options.actions.begin(), options.actions.end(), [&](const Action& action) {
    return action.kind == ActionKind::save && action.argument == options.drawing;
  });
}

int carryOutAll(const Options& options) {
  const bool interactive = options.actions.empty() && isTerminal();
  if (options.actions.empty() && !interactive && inputWaits()) {
    complain("l'entrée standard n'est lue que par -s -: kavel DESSIN.dxf -s - < script.scr");
    return kBadUsage;
  }
  // A terminal shows what a program prints at once, even without a line feed.
  if (isatty(STDOUT_FILENO)) std::setvbuf(stdout, nullptr, _IONBF, 0);
  // Under --quiet what programs print is left of what the command line shows.
  const Printer printer = options.quiet ? Printer([](std::string_view) {}) : Printer(print);
  ProgressReport progress(interactive ? Progress::never : options.progress, options.actions.size() + 1);
  progress.begin("open", options.drawing);
  const auto opened = openDocument(options, printer);
  Document& document = *opened;
  document.endWithProcess();
  document.failurePrinter = [](std::string_view text) {
    std::fflush(stdout);
    std::fwrite(text.data(), 1, text.size(), stderr);
  };
  document.stopsAtFailure = options.strict;
  document.overwritesOthers = options.force;
  if (interactive || savesItsDrawing(options)) document.holdLock();
  document.savesOnlyWithoutFailure = !interactive && !options.keepGoing;
  std::signal(SIGINT, onInterrupt);
  std::signal(SIGXFSZ, SIG_IGN);  // a file above the limit is an error of the write, not the end of the program
  if (const std::string trouble = installationTrouble(); !trouble.empty()) complain(trouble);
  if (options.frontal && !loadFrontal(document)) return kFileTrouble;
  if (options.quiet) document.programPrinter = print;
  Run run(options, document);
  for (const Action& action : options.actions) {
    progress.begin(std::string(actionName(action.kind)), action.argument);
    if (!run.carryOut(action)) return kBadUsage;
    // What follows was to build on it: a save would keep half of the work.
    if (interruptions) throw Interrupted();
    if (options.strict && run.failed()) break;
  }
  if (interactive) runTerminal(document);
  std::fflush(stdout);
  return run.failed() ? kFailed : kDone;
}

int runProgram(int argc, char** argv) {
  int status = kDone;
  const auto options = parseOptions(argc, argv, status);
  if (!options) return status;
  exchange::provideExchange();
  render::providePlots();
  try {
    return carryOutAll(*options);
  } catch (const Interrupted& interrupted) {
    std::fflush(stdout);
    complain(interrupted.what());
    return kFailed;
  } catch (const Error& error) {
    std::fflush(stdout);
    complain(error.what());
    return kFileTrouble;
  }
}

}  // namespace

// What has been printed is of use only when it has arrived.
int run(int argc, char** argv) {
  const int status = runProgram(argc, argv);
  std::cout.flush();
  errno = 0;
  if (std::fflush(stdout) == 0 && !std::ferror(stdout) && std::cout) return status;
  complain("sortie standard: écriture interrompue: " + systemReason(errno ? errno : EIO));
  return kFileTrouble;
}

}  // namespace atelier::console
