// The session of the tests.
// The entry point is registered once for the whole program.
#include "tests/support/session.h"

#include "atelier/exchange/exchange.h"
#include "atelier/lisp/evaluator/printer.h"
#include "atelier/plugin/published.h"
#include "atelier/render/sheets/plot_builtins.h"
#include "programs/applications.h"

namespace kaveltest {
namespace {

void registerModule() {
  static const bool once = [] {
    kavel::registerApplications();
    return true;
  }();
  (void)once;
}

}  // namespace

Session::Session(bool withModule, const std::string& path) {
  if (withModule) registerModule();
  atelier::setStrictHandlers(true);
  atelier::exchange::provideExchange();
  atelier::render::providePlots();
  document_ = std::make_unique<atelier::OpenDrawing>(nullptr, path);
}

Session::~Session() = default;

std::string Session::eval(std::string_view lisp) {
  document_->makeCurrent();
  try {
    const std::string printed = atelier::lisp::prin1(document_->interpreter().evaluate(lisp));
    document_->finishCommand();
    return printed;
  } catch (const std::runtime_error&) {
    document_->cancelCommand();
    throw;
  }
}

std::string Session::feed(std::string_view lines) {
  document_->takeTranscript();
  atelier::LinesSource source(lines);
  document_->run(source);
  return document_->takeTranscript();
}

std::string Session::transcript() { return document_->takeTranscript(); }

}  // namespace kaveltest
