// An interpreter's start and end, its symbols, its registered functions and its roots.
#include "atelier/lisp/evaluator/interpreter.h"

#include <sys/mman.h>

#include <algorithm>
#include <numbers>

#include "atelier/lisp/evaluator/machine_stack.h"
#include "atelier/lisp/evaluator/session.h"
#include "atelier/lisp/text/encoding.h"

namespace atelier::lisp {
namespace {

constexpr std::ptrdiff_t kValues = std::ptrdiff_t{1} << 24;    // arguments and elements that are being gathered
constexpr std::ptrdiff_t kBindings = std::ptrdiff_t{1} << 21;  // nested parameters and locals

// Reserves address space; the system gives memory for a page when it is first used.
template <class Element>
Element* reserve(std::ptrdiff_t count) {
  void* memory = mmap(nullptr, static_cast<std::size_t>(count) * sizeof(Element), PROT_READ | PROT_WRITE,
                      MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (memory == MAP_FAILED) throw std::bad_alloc();
  return static_cast<Element*>(memory);
}

template <class Interface, class Default>
void settle(Interface*& given, std::unique_ptr<Interface>& own) {
  if (given) return;
  own = std::make_unique<Default>();
  given = own.get();
}

// Whether a function was taken back by the application that had published it.
bool isRemoved(const Primitive& primitive) { return !primitive.subr && !primitive.special && !primitive.external; }

}  // namespace

Interpreter::Interpreter(Host host)
    : heap_(*this),
      host_(host),
      machine_(std::make_unique<MachineStack>()),
      sources_(std::make_unique<SourceMap>()),
      session_(std::make_unique<Session>()) {
  settle<Console, StandardConsole>(host_.console, ownConsole_);
  settle<PathSearch, FolderSearch>(host_.search, ownSearch_);
  settle<SystemVariables, DefaultVariables>(host_.variables, ownVariables_);
  stack_ = top_ = reserve<Value>(kValues);
  stackEnd_ = stack_ + kValues - kErrorReserve;
  bindingStack_ = bindings_ = reserve<Binding>(kBindings);
  bindingsEnd_ = bindingStack_ + kBindings - kErrorReserve;
  slash_ = symbol("/");
  lambda_ = symbol("LAMBDA");
  errorFunction_ = symbol("*ERROR*");
  t_ = symbol("T");
  set("T", t_);
  set("PI", Value::real(std::numbers::pi));
  symbols_.push_back({nil, ""});
  quiet_ = Value::pointing(&symbols_.back(), Value::kSymbol);
  set("PAUSE", string("\\"));  // at this value `command` asks the user
}

Interpreter::~Interpreter() {
  // Roots that outlive the interpreter must not refer to it any more.
  for (RootLink* link = roots_.next; link != &roots_;) {
    RootLink* const next = link->next;
    link->previous = link->next = link;
    link = next;
  }
  munmap(stack_, kValues * sizeof(Value));
  munmap(bindingStack_, kBindings * sizeof(Binding));
}

// --- Symbols

Value Interpreter::symbol(std::string_view name) {
  const std::string upper = upperCase(name);
  if (upper == "NIL") return nil;
  auto found = symbolNames_.find(upper);
  if (found == symbolNames_.end()) {
    symbols_.push_back({nil, upper});
    Symbol* made = &symbols_.back();
    found = symbolNames_.emplace(made->name, made).first;
  }
  return Value::pointing(found->second, Value::kSymbol);
}

void Interpreter::set(std::string_view name, Value value) {
  const Value target = symbol(name);
  if (!target.isSymbol()) failType("symbolp:", target);
  target.symbol()->value = value;
}

Value Interpreter::get(std::string_view name) {
  const auto found = symbolNames_.find(upperCase(name));
  return found == symbolNames_.end() ? nil : found->second->value;
}

std::vector<std::string> Interpreter::boundNames() const {
  std::vector<std::string> names;
  for (const Symbol& symbol : symbols_)
    if (symbol.value && !symbol.name.empty()) names.push_back(symbol.name);
  return names;
}

// --- Values in boxes

Value Interpreter::entity(std::uint64_t id) {
  Box* box = heap_.box(Value::kEntity);
  box->entity = id;
  return Value::pointing(box, Value::kEntity);
}

Value Interpreter::object(std::shared_ptr<void> object, Value::Tag kind, std::size_t weight) {
  Box* box = heap_.box(kind, weight);
  box->object = std::make_unique<std::shared_ptr<void>>(std::move(object)).release();
  return Value::pointing(box, kind);
}

// --- Functions

Primitive* Interpreter::newPrimitive(std::string_view name) {
  Primitive* primitive = &primitives_.emplace_back();
  primitive->name = symbol(name).name();
  primitiveNames_.insert_or_assign(primitive->name, primitive);
  return primitive;
}

void Interpreter::add(std::span<const Builtin> table) {
  for (const Builtin& builtin : table) {
    Primitive* primitive = newPrimitive(builtin.name);
    primitive->subr = builtin.subr;
    primitive->special = builtin.special;
    primitive->least = builtin.least;
    primitive->most = builtin.most;
    if (builtin.most != kAnyNumber) primitive->span = static_cast<std::size_t>(builtin.most - builtin.least);
    primitive->signature = builtin.signature;
    primitive->help = builtin.help;
    set(builtin.name, Value::pointing(primitive, builtin.special ? Value::kSpecial : Value::kSubr));
  }
}

// A function that comes back is the one that went: values kept meanwhile work again, and what a program has put under the name
// stays there.
void Interpreter::addExternal(std::string_view name, ExternalFunction function, void* context, int index,
                              std::string signature, std::string help) {
  const auto known = primitiveNames_.find(upperCase(name));
  const bool back = known != primitiveNames_.end() && isRemoved(*known->second) && known->second->context == context &&
                    known->second->index == index;
  Primitive* primitive = back ? known->second : newPrimitive(name);
  primitive->external = function;
  primitive->context = context;
  primitive->index = index;
  primitive->signature = std::move(signature);
  primitive->help = std::move(help);
  if (!back || get(name).isNil()) set(name, Value::pointing(primitive, Value::kExternal));
}

bool Interpreter::removeExternal(std::string_view name, const void* context) {
  const auto found = primitiveNames_.find(upperCase(name));
  if (found == primitiveNames_.end()) return false;
  Primitive* primitive = found->second;
  if (!primitive->external || primitive->context != context) return false;
  primitive->external = nullptr;  // values that still point here fail when they are called
  const Value bound = get(name);
  if (bound.tag() == Value::kExternal && bound.primitive() == primitive) set(name, nil);
  return true;
}

std::vector<const Primitive*> Interpreter::primitives() const {
  std::vector<const Primitive*> all;
  for (const auto& [name, primitive] : primitiveNames_)
    if (!isRemoved(*primitive)) all.push_back(primitive);
  std::sort(all.begin(), all.end(), [](const auto* a, const auto* b) { return a->name < b->name; });
  return all;
}

const Primitive* Interpreter::primitive(std::string_view name) const {
  const auto found = primitiveNames_.find(upperCase(name));
  return found == primitiveNames_.end() || isRemoved(*found->second) ? nullptr : found->second;
}

// --- Words

Value Interpreter::word(std::string_view utf8) {
  constexpr std::size_t kMost = 1000;  // beyond it the texts are no small vocabulary
  if (const auto known = words_.find(utf8); known != words_.end()) return known->second;
  const Value value = string(utf8);
  if (words_.size() < kMost) words_.emplace(value.text(), value);
  return value;
}

// --- Roots

void Interpreter::markRoots(Heap& heap) {
  for (const auto& [text, value] : words_) heap.mark(value);
  for (const Symbol& symbol : symbols_) heap.mark(symbol.value);
  for (const Value* value = stack_; value != top_; ++value) heap.mark(*value);
  for (const Binding* binding = bindingStack_; binding != bindings_; ++binding) heap.mark(binding->value);
  for (const RootLink* link = roots_.next; link != &roots_; link = link->next) heap.mark(link->value);
  __builtin_unwind_init();  // spills the registers into this frame
  const StackBounds bounds = MachineStack::current();
  if (bounds.high) heap.markConservatively(nullptr, bounds.high);
  if (machine_->running()) heap.markConservatively(machine_->outer().low, machine_->outer().high);
}

void Interpreter::afterMarking(Heap&) { sources_->purge(); }

}  // namespace atelier::lisp
