// One AutoLISP interpreter: symbols, heap, evaluator. Several may live at once, one for each document.
// Belongs to one thread; only interrupt() may be called from another.
#pragma once

#include <atomic>
#include <deque>
#include <functional>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "atelier/lisp/evaluator/host.h"
#include "atelier/lisp/values/builtin.h"
#include "atelier/lisp/values/error.h"
#include "atelier/lisp/values/heap.h"
#include "atelier/lisp/values/value.h"

namespace atelier::lisp {

class MachineStack;
class SourceMap;
struct Session;

// A link in the ring of values that C++ code protects; use the class Root of root.h.
struct RootLink {
  Value value;
  RootLink* previous = this;
  RootLink* next = this;
};

class Interpreter final : private RootSource {
 public:
  explicit Interpreter(Host host = {});
  Interpreter(const Interpreter&) = delete;
  Interpreter& operator=(const Interpreter&) = delete;
  ~Interpreter();

  // --- Entry points for C++. They run on the interpreter's own stack and throw Error only; *error* has then been
  // called and every binding is restored. Functions called by the interpreter may call them.

  // Evaluates every form of a UTF-8 text and returns the value of the last one, nil for an empty text.
  // `file` names the text in errors; empty when it comes from a command line.
  Value evaluate(std::string_view text, std::string_view file = {});
  // Loads a file by its path (no search). UTF-8 or Windows-1252, see encoding.h.
  Value loadFile(const std::string& path);
  // Calls a function value, or the function that a name is bound to, with evaluated arguments.
  Value call(Value function, Arguments arguments);
  Value call(std::string_view name, Arguments arguments);
  // The value as prin1 prints it; an interrupt stops it as it stops a program.
  std::string printed(Value value);

  // Makes a running program stop with the error "Function cancelled". Safe from any thread and from signal
  // handlers.
  void interrupt() noexcept { attention_.fetch_or(kInterrupt, std::memory_order_relaxed); }
  // Forgets an interrupt that came while no program ran.
  void clearInterrupt() noexcept { attention_.fetch_and(~kInterrupt, std::memory_order_relaxed); }
  // Makes a running program call the hook soon, between two steps of it. Safe from any thread.
  void requestPoll() noexcept { attention_.fetch_or(kPoll, std::memory_order_relaxed); }
  void onPoll(std::function<void()> hook) { poll_ = std::move(hook); }
  bool interrupted() const noexcept { return attention_.load(std::memory_order_relaxed) & kInterrupt; }

  // --- Symbols. Names are looked up without regard to case.
  Value symbol(std::string_view name);
  Value get(std::string_view name);
  void set(std::string_view name,
           Value value);  // an AutoLISP error for nil, the one name that isn't a symbol
  // The symbols that have a value, upper case, unsorted (for completion and atoms-family).
  std::vector<std::string> boundNames() const;

  // --- Making values.
  Value cons(Value car, Value cdr) { return Value::pointing(heap_.pair(car, cdr), Value::kPair); }
  Value list(Arguments elements, Value tail = nil);
  Value list(std::initializer_list<Value> elements) { return list(Arguments(elements.begin(), elements.size())); }
  Value string(std::string_view utf8) { return heap_.string(utf8); }
  // The string of that text, the same value at every call: for the words that lists repeat thousands of times.
  Value word(std::string_view utf8);
  Value point(double x, double y) { return list({Value::real(x), Value::real(y)}); }
  Value point(double x, double y, double z) { return list({Value::real(x), Value::real(y), Value::real(z)}); }
  Value entity(std::uint64_t id);
  // `weight`: bytes of memory that the object takes, about.
  Value selection(std::shared_ptr<void> object, std::size_t weight) {
    return this->object(std::move(object), Value::kSelection, weight);
  }
  Value file(std::shared_ptr<void> object) { return this->object(std::move(object), Value::kFile); }
  Value errorObject(const Error& error);
  Value boolean(bool truth) const { return truth ? t_ : nil; }
  Value t() const { return t_; }
  Value quiet() const { return quiet_; }  // what (princ) returns: prints as nothing

  // --- Functions. A later registration of a name replaces an earlier one.
  void add(std::span<const Builtin> table);
  void addExternal(std::string_view name, ExternalFunction function, void* context, int index,
                   std::string signature = {}, std::string help = {});
  // Unbinds the name when it still stands for an external function of this context; false otherwise.
  bool removeExternal(std::string_view name, const void* context);
  // Called after each external call, whether it returned or threw, with the function's name.
  void onExternalCall(std::function<void(const std::string& name)> hook) { afterExternal_ = std::move(hook); }
  // Called by vl-propagate with the name of a symbol whose value is to be copied to the other open documents.
  void onPropagate(std::function<void(const std::string& name)> hook) { propagate_ = std::move(hook); }
  void propagate(const std::string& name) {
    if (propagate_) propagate_(name);
  }
  // Every registered function by name: for documentation, completion and `aide`.
  std::vector<const Primitive*> primitives() const;
  const Primitive* primitive(std::string_view name) const;

  // --- For functions that the interpreter calls.

  // Raises an AutoLISP error: calls *error* with the variables as they are, unless a vl-catch-all-apply will catch the
  // error; then throws.
  [[noreturn]] void fail(const std::string& message, Error::Kind kind = Error::Kind::Failure);
  [[noreturn]] void fail(Error error);
  // "bad argument type: " and the expected predicate as the reference prints it, e.g. "numberp:" or
  // "stringp".
  [[noreturn]] void failType(const char* predicate, Value found);
  Value eval(Value form) {
    if (form.isPair()) return evalForm(form);
    return form.isSymbol() ? form.symbol()->value : form;
  }
  // Evaluates the elements of a list in order and returns the last value.
  Value evalBody(Value forms);
  // Calls any function value: SUBR, USUBR, lambda list, symbol, special form.
  Value apply(Value function, Arguments arguments);
  // Whether `apply` would find a function in this value.
  static bool isFunction(Value value);
  // Must be called in loops that may run long: lets the user interrupt.
  void poll() {
    if (attention_.load(std::memory_order_relaxed)) [[unlikely]]
      attend();
  }
  void checkStack() {
    if (__builtin_frame_address(0) < stackLimit_) [[unlikely]]
      overflow();
  }
  // Binds a symbol until unbind(mark); an error undoes it too.
  struct Binding {
    Symbol* symbol;
    Value value;
  };
  Binding* bindingMark() const { return bindings_; }
  void bind(Value symbol, Value value);
  void unbind(Binding* mark) {
    while (bindings_ != mark) {
      --bindings_;
      bindings_->symbol->value = bindings_->value;
    }
  }
  // Runs apply and returns the error object if it fails (vl-catch-all-apply).
  Value applyCatching(Value function, Arguments arguments);
  // The running calls, innermost first.
  std::vector<Value> callChain() const;
  // Loads a file, form by form, for functions that the interpreter calls; C++ uses loadFile.
  Value load(const std::string& path);
  Value read(std::string_view text);  // the first form of a text, nil when there is none

  Console& console() { return *host_.console; }
  PathSearch& search() { return *host_.search; }
  SystemVariables& variables() { return *host_.variables; }
  Heap& heap() { return heap_; }
  Session& session() { return *session_; }

  void trace(Value symbol, bool on);

 private:
  friend class Root;
  friend class ValueStack;
  friend class MachineStack;
  struct Frame {
    Frame* previous;
    Value form;  // the call's form, or the function when C++ called it
  };
  struct State {
    Value* top;
    Binding* bindings;
    Frame* frame;
    int catching;
  };
  static constexpr std::ptrdiff_t kErrorReserve = 4096;  // stack places that only *error* may use
  enum : std::uint32_t { kInterrupt = 1, kTracing = 2, kPoll = 4 };

  Value evalForm(Value form);
  Value evalSubr(Value form, Primitive* primitive);
  Value evalUser(Value form, Value lambda);
  Value evalOther(Value form);
  Value invoke(Value function, Value lambda, Value* first);
  bool isTraced(Value function) const;
  Value invokeTraced(Value function, Value lambda, Value* first);
  Value applySpecial(Primitive* primitive, Arguments arguments);
  Value callExternal(Primitive* primitive, Arguments arguments);
  void checkCount(const Primitive* primitive, std::size_t count);
  void pushArguments(Value forms) {
    for (; forms.isPair(); forms = forms.cdr()) push(eval(forms.car()));
  }
  void push(Value value) {
    if (top_ == stackEnd_) [[unlikely]]
      overflow();
    *top_++ = value;
  }
  template <class Run>
  Value border(Run run);
  void attend();
  [[noreturn]] void overflow();
  [[noreturn]] void noFunction(Value head);
  void locate(Error& error) const;
  void callErrorFunction(Error& error);
  State state() const { return {top_, bindings_, frame_, catching_}; }
  void restore(const State& state);
  Value runForms(std::string_view text, std::string_view file);
  Value object(std::shared_ptr<void> object, Value::Tag kind, std::size_t weight = 0);
  Primitive* newPrimitive(std::string_view name);
  void markRoots(Heap& heap) override;
  void afterMarking(Heap& heap) override;
  void betweenPieces() override { poll(); }
  bool isStopping() const override { return interrupted(); }
  Value lambdaOf(Value function) const;

  // Members that every call uses.
  Value* top_ = nullptr;
  Value* stackEnd_ = nullptr;
  Binding* bindings_ = nullptr;
  Binding* bindingsEnd_ = nullptr;
  Frame* frame_ = nullptr;
  const void* stackLimit_ = nullptr;
  std::atomic<std::uint32_t> attention_{0};
  std::function<void()> poll_;
  int catching_ = 0;  // how many vl-catch-all-apply wait
  bool inErrorFunction_ = false;
  Value slash_, lambda_, t_, quiet_, errorFunction_;
  Heap heap_;

  Host host_;
  std::unique_ptr<Console> ownConsole_;
  std::unique_ptr<PathSearch> ownSearch_;
  std::unique_ptr<SystemVariables> ownVariables_;
  std::unique_ptr<MachineStack> machine_;
  std::unique_ptr<SourceMap> sources_;
  std::unique_ptr<Session> session_;
  Value* stack_ = nullptr;
  Binding* bindingStack_ = nullptr;
  RootLink roots_;
  std::deque<Symbol> symbols_;
  std::unordered_map<std::string_view, Symbol*> symbolNames_;
  std::unordered_map<std::string_view, Value> words_;  // by their own bytes
  std::deque<Primitive> primitives_;
  std::unordered_map<std::string_view, Primitive*> primitiveNames_;
  std::function<void(const std::string&)> afterExternal_, propagate_;
  std::vector<std::string> traced_;
  int traceDepth_ = 0;
};

}  // namespace atelier::lisp
