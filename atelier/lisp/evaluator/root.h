// How C++ code keeps values alive: Root for one value held outside the machine stack, ValueStack for many.
#pragma once

#include "atelier/lisp/evaluator/interpreter.h"

namespace atelier::lisp {

// Protects one value for as long as the Root lives, wherever the Root itself is stored.
class Root : private RootLink {
 public:
  explicit Root(Interpreter& interpreter, Value protectedValue = nil) {
    value = protectedValue;
    previous = &interpreter.roots_;
    next = interpreter.roots_.next;
    previous->next = next->previous = this;
  }
  Root(const Root&) = delete;
  Root& operator=(const Root&) = delete;
  ~Root() {
    previous->next = next;
    next->previous = previous;
  }

  Root& operator=(Value newValue) {
    value = newValue;
    return *this;
  }
  operator Value() const { return value; }
  Value get() const { return value; }
};

// Collects values on the interpreter's stack, where the garbage collector finds them, and removes them at its end. For
// functions that the interpreter calls; the one made last must end first.
class ValueStack {
 public:
  explicit ValueStack(Interpreter& interpreter) : interpreter_(interpreter), first_(interpreter.top_) {}
  ValueStack(const ValueStack&) = delete;
  ValueStack& operator=(const ValueStack&) = delete;
  ~ValueStack() { interpreter_.top_ = first_; }

  void push(Value value) { interpreter_.push(value); }
  void pushAll(Value list) {
    for (Value value : Items(list)) push(value);
  }
  void clear() { interpreter_.top_ = first_; }
  std::span<Value> values() const { return {first_, interpreter_.top_}; }
  // The gathered values as a list.
  Value list(Value tail = nil) const { return interpreter_.list(values(), tail); }

 private:
  Interpreter& interpreter_;
  Value* first_;
};

}  // namespace atelier::lisp
