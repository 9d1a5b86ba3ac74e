// Carrying out the actions of the command line, one after the other.
// The first file that can't be read or written ends the run; LISP errors and failed commands are counted.
#include "atelier/console/console.h"

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

#include "atelier/console/frontal_folder.h"
#include "atelier/console/listing.h"
#include "atelier/console/options.h"
#include "atelier/console/terminal.h"
#include "atelier/dxf/audit.h"
#include "atelier/editor/document.h"
#include "atelier/render/plot.h"
#include "atelier/render/plot_error.h"
#include "atelier/render/scene.h"
#include "atelier/render/transients.h"

namespace atelier::console {
namespace {

constexpr int kDone = 0, kFailed = 1, kBadUsage = 2, kFileTrouble = 3;

void complain(const std::string& message) { std::fprintf(stderr, "kavel: %s\n", message.c_str()); }

void onInterrupt(int) {
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
      case ActionKind::save: save(action.argument); break;
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

  void save(const std::string& file) {
    if (upperCase(std::filesystem::path(file).extension().string()) != ".DXF")
      throw FileError(file, 0, "les dessins s'enregistrent en .dxf");
    document_.save(file);
    if (!options_.quiet) std::fprintf(stderr, "kavel: dessin enregistre: %s\n", file.c_str());
  }

  bool plot(const Action& action) {
    render::PlotOptions plotOptions;
    try {
      if (!action.scale.empty()) plotOptions.page.scale = render::parseScale(action.scale);
      if (!action.paper.empty()) plotOptions.page.paper = render::parsePaper(action.paper);
      if (!action.window.empty()) plotOptions.page.window = render::parseWindow(action.window);
    } catch (const render::PlotError& error) {
      complain(error.what());
      return false;
    }
    render::DisplayList list = render::drawScene(document_.database());
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
    std::size_t errors = 0, repaired = 0;
    const auto findings = dxf::audit(document_.database(), options_.fix);
    for (const dxf::Finding& finding : findings) {
      std::printf("%s\n", dxf::line(finding).c_str());
      errors += finding.severity == dxf::Severity::error && !finding.repaired;
      repaired += finding.repaired;
    }
    // The records of profiles and matrices are the front-end's to check; it gives the number of its findings.
    if (!document_.interpreter().get("PLV-AUDIT").isNil()) {
      std::string printed;
      document_.takeTranscript();
      document_.evaluate("(plv-audit)", &printed);
      if (options_.quiet) std::fputs(document_.takeTranscript().c_str(), stdout);
      errors += static_cast<std::size_t>(parseInteger(printed).value_or(0));
    }
    std::printf("%zu erreurs, %zu reparees, %zu constats\n", errors, repaired, findings.size());
    if (errors > 0) document_.countFailure();
  }

  const Options& options_;
  Document& document_;
};

// What the command line prints; dropped under --quiet, except what an expression or an error prints through stderr.
void print(const Options& options, std::string_view text) {
  if (options.quiet) return;
  std::fwrite(text.data(), 1, text.size(), stdout);
}

int carryOutAll(const Options& options) {
  bool interactive = options.actions.empty() && isTerminal();
  const Printer printer = [&options](std::string_view text) { print(options, text); };
  Document document(printer, options.drawing);
  std::signal(SIGINT, onInterrupt);
  std::signal(SIGXFSZ, SIG_IGN);  // a file above the limit is an error of the write, not the end of the program
  if (options.frontal && !loadFrontal(document)) return kFileTrouble;
  Run run(options, document);
  for (const Action& action : options.actions)
    if (!run.carryOut(action)) return kBadUsage;
  if (interactive) runTerminal(document);
  std::fflush(stdout);
  return document.failures() > 0 ? kFailed : kDone;
}

}  // namespace

int run(int argc, char** argv) {
  int status = kDone;
  const auto options = parseOptions(argc, argv, status);
  if (!options) return status;
  try {
    return carryOutAll(*options);
  } catch (const Error& error) {
    std::fflush(stdout);
    complain(error.what());
    return kFileTrouble;
  }
}

}  // namespace atelier::console
