// Carrying out the actions of the command line, one after the other.
// The first file that can't be read or written ends the run; LISP errors and failed commands are counted.
#include "atelier/console/console.h"

#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

#include "atelier/application/front_end.h"
#include "atelier/application/open_drawing.h"
#include "atelier/commands/files/audit_report.h"
#include "atelier/console/listing.h"
#include "atelier/console/options.h"
#include "atelier/console/progress.h"
#include "atelier/console/terminal.h"
#include "atelier/dxf/versions/versions.h"
#include "atelier/exchange/exchange.h"
#include "atelier/plugin/installation.h"
#include "atelier/render/scene/scene.h"
#include "atelier/render/scene/transients.h"
#include "atelier/render/shapes/plot_error.h"
#include "atelier/render/sheets/plot.h"
#include "atelier/render/sheets/plot_builtins.h"

namespace atelier::console {
namespace {

constexpr int kDone = 0, kFailed = 1, kBadUsage = 2, kFileTrouble = 3;

void complain(const std::string& message) { std::fprintf(stderr, "kavel: %s\n", message.c_str()); }

volatile std::sig_atomic_t interruptions = 0;

void onInterrupt(int) {
  interruptions = 1;
  if (Document* document = Document::current()) document->interrupt();
}

class Run {
 public:
  Run(const Options& options, Document& document) : options_(options), document_(document) {}

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
    if (document_.evaluate(expression, &printed) && !printed.empty()) std::printf("%s\n", printed.c_str());
    std::fflush(stdout);
  }

  void script(const std::string& file) {
    std::ostringstream text;
    if (file == "-") {
      text << std::cin.rdbuf();
    } else {
      std::ifstream in(file, std::ios::binary);
      if (!in) throw FileError(file, 0, "fichier introuvable ou illisible");
      text << in.rdbuf();
    }
    const std::string bytes = text.str();
    LinesSource lines(isValidUtf8(bytes) ? bytes : CodePage::named("ANSI_1252").decode(bytes));
    document_.run(lines);
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
    for (const std::string& lost : document_.saveAs(file, release, options_.binary)) complain(lost);
    if (!options_.quiet) std::fprintf(stderr, "kavel: dessin enregistré: %s\n", file.c_str());
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
    } catch (const render::PlotError& error) {
      complain(error.what());
      return false;
    }
    render::DisplayList list = render::drawScene(document_.database(), render::forPlot());
    render::addTransients(list, document_.transients());
    for (const std::string& warning : render::plot(list, action.argument, plotOptions)) complain(warning);
    return true;
  }

  void list() {
    std::fputs(listing(document_).c_str(), stdout);
    if (document_.interpreter().get("PLV-DECRIRE").isNil()) return;
    document_.takeTranscript();
    document_.evaluate("(plv-decrire)");
    // Without --quiet it was printed as it came.
    if (options_.quiet) std::fputs(document_.takeTranscript().c_str(), stdout);
  }

  void audit() {
    const auto toStdout = [](std::string_view line) { std::fwrite(line.data(), 1, line.size(), stdout); };
    if (auditDrawing(document_, options_.fix, toStdout, options_.quiet).errors > 0) document_.countFailure();
  }

  const Options& options_;
  Document& document_;
};

// What the command line prints; dropped under --quiet. Errors then go to stderr.
void print(const Options& options, std::string_view text) {
  if (options.quiet) return;
  std::fwrite(text.data(), 1, text.size(), stdout);
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

int carryOutAll(const Options& options) {
  bool interactive = options.actions.empty() && isTerminal();
  // A terminal shows what a program prints at once, even without a line feed.
  if (isatty(STDOUT_FILENO)) std::setvbuf(stdout, nullptr, _IONBF, 0);
  const Printer printer = [&options](std::string_view text) { print(options, text); };
  ProgressReport progress(interactive ? Progress::never : options.progress, options.actions.size() + 1);
  progress.begin("open", options.drawing);
  const auto opened = openDocument(options, printer);
  Document& document = *opened;
  document.endWithProcess();
  if (options.quiet)
    document.failurePrinter = [](std::string_view text) { std::fwrite(text.data(), 1, text.size(), stderr); };
  std::signal(SIGINT, onInterrupt);
  std::signal(SIGXFSZ, SIG_IGN);  // a file above the limit is an error of the write, not the end of the program
  if (const std::string trouble = installationTrouble(); !trouble.empty()) complain(trouble);
  if (options.frontal && !loadFrontal(document)) return kFileTrouble;
  Run run(options, document);
  for (const Action& action : options.actions) {
    progress.begin(std::string(actionName(action.kind)), action.argument);
    if (!run.carryOut(action)) return kBadUsage;
    // What follows was to build on it: a save would keep half of the work.
    if (interruptions) throw Interrupted();
  }
  if (interactive) runTerminal(document);
  std::fflush(stdout);
  return document.failures() > 0 ? kFailed : kDone;
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
