// Errors: raising and catching them, calling *error*, and passing them to C++.
#include "atelier/lisp/evaluator/interpreter.h"
#include "atelier/lisp/evaluator/machine_stack.h"
#include "atelier/lisp/evaluator/printer.h"
#include "atelier/lisp/evaluator/session.h"

namespace atelier::lisp {
namespace {

constexpr std::size_t kChainEnds = 40;      // calls that an error keeps at each end of its chain
constexpr int kMostCatches = 10000;         // nested vl-catch-all-apply: an interrupt has to pass them all
constexpr std::size_t kFormWidth = 160;     // characters of a form in the chain
constexpr std::size_t kValueWidth = 10000;  // bytes of a value in a message

std::string shortened(Value form) {
  return form.isUserSubr() && form.cdr().isSymbol() ? form.cdr().name() : prin1Beginning(form, kFormWidth);
}

}  // namespace

void Interpreter::fail(const std::string& message, Error::Kind kind) { fail(Error(message, kind)); }

void Interpreter::failType(const char* predicate, Value found) {
  fail("bad argument type: " + std::string(predicate) + " " + prin1Beginning(found, kValueWidth));
}

void Interpreter::fail(Error error) {
  const bool caught = catching_ > 0 && error.kind != Error::Kind::Interrupt;
  if (!caught) {
    locate(error);
    callErrorFunction(error);
  }
  throw error;
}

// Chain, file and line of an error that nobody catches.
void Interpreter::locate(Error& error) const {
  const std::vector<Value> calls = callChain();
  for (std::size_t i = 0; i < calls.size(); ++i) {
    if (i == kChainEnds && calls.size() > 2 * kChainEnds) {
      error.chain.push_back("...");
      i = calls.size() - kChainEnds;
    }
    error.chain.push_back(shortened(calls[i]));
  }
  for (std::size_t i = 0; i < calls.size() && error.line == 0; ++i) {
    const Place place = sources_->find(calls[i]);
    error.file = place.file;
    error.line = place.line;
  }
}

std::vector<Value> Interpreter::callChain() const {
  std::vector<Value> chain;
  for (const Frame* frame = frame_; frame; frame = frame->previous)
    if (chain.empty() || chain.back() != frame->form) chain.push_back(frame->form);
  return chain;
}

// Calls *error* with the variables as they are at the error. An error inside it is dropped: the first one is reported.
void Interpreter::callErrorFunction(Error& error) {
  const Value function = errorFunction_.symbol()->value;
  if (inErrorFunction_ || !isFunction(function)) return;
  const State before = state();
  const void* const limit = stackLimit_;
  inErrorFunction_ = true;
  if (stackLimit_) stackLimit_ = static_cast<const char*>(stackLimit_) - MachineStack::kReserve / 2;
  catching_ = 0;
  stackEnd_ += kErrorReserve;
  bindingsEnd_ += kErrorReserve;
  error.reported = true;
  try {
    const Value message = string(error.message());
    apply(function, {&message, 1});
  } catch (const std::exception&) {}
  restore(before);
  stackEnd_ -= kErrorReserve;
  bindingsEnd_ -= kErrorReserve;
  stackLimit_ = limit;
  inErrorFunction_ = false;
}

void Interpreter::restore(const State& state) {
  unbind(state.bindings);
  top_ = state.top;
  frame_ = state.frame;
  catching_ = state.catching;
}

void Interpreter::overflow() { fail("hard stack overflow"); }

void Interpreter::attend() {
  if (attention_.fetch_and(~kPoll) & kPoll && poll_) poll_();
  if (!interrupted()) return;
  clearInterrupt();
  fail("Function cancelled", Error::Kind::Interrupt);
}

Value Interpreter::applyCatching(Value function, Arguments arguments) {
  const State before = state();
  if (catching_ == kMostCatches) overflow();
  ++catching_;
  try {
    const Value result = apply(function, arguments);
    --catching_;
    return result;
  } catch (const Error& error) {
    restore(before);
    if (error.kind == Error::Kind::Interrupt) throw;
    return errorObject(error);
  } catch (const std::exception& exception) {
    restore(before);
    return errorObject(Error(exception.what()));
  }
}

// Runs `run` on the large stack; exceptions of other kinds (memory, the standard library) become Error.
template <class Run>
Value Interpreter::border(Run run) {
  const State before = state();
  const void* const limit = stackLimit_;
  Value result;
  try {
    machine_->run([&] {
      const char* low = MachineStack::current().low;
      stackLimit_ = low ? low + 2 * MachineStack::kReserve : nullptr;
      try {
        result = run();
      } catch (const Error&) {
        throw;
      } catch (const std::exception& exception) {
        fail(Error(exception.what()));
      }
    });
    stackLimit_ = limit;
    restore(before);
    return result;
  } catch (...) {
    stackLimit_ = limit;
    restore(before);
    throw;
  }
}

Value Interpreter::evaluate(std::string_view text, std::string_view file) {
  return border([&] { return runForms(text, file); });
}

Value Interpreter::loadFile(const std::string& path) {
  return border([&] { return load(path); });
}

Value Interpreter::call(Value function, Arguments arguments) {
  return border([&] { return apply(function, arguments); });
}

std::string Interpreter::printed(Value value) {
  std::string text;
  border([&] {
    text = prin1(*this, value);
    return nil;
  });
  return text;
}

Value Interpreter::call(std::string_view name, Arguments arguments) { return call(symbol(name), arguments); }

}  // namespace atelier::lisp
