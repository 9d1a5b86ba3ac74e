// How a built-in function presents itself: name, arity, signature and one line of help, in a table per
// family. Rooms above register their own tables in the same form (Interpreter::add).
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "atelier/lisp/values/value.h"

namespace atelier::lisp {

class Interpreter;

using Arguments = std::span<const Value>;

// An ordinary function. The arguments are evaluated, their number is checked, and the collector sees them for
// as long as the call lasts. Values that the function keeps in local variables are safe too (the machine
// stack is scanned); values kept elsewhere need a Root or a ValueStack. Failures go through
// Interpreter::fail.
using SubrFunction = Value (*)(Interpreter&, Arguments);

// A special form receives the rest of its form, unevaluated.
using SpecialFunction = Value (*)(Interpreter&, Value rest);

// A function that a host application publishes: its context, the index it was registered under, the
// arguments.
using ExternalFunction = Value (*)(void* context, int index, Interpreter&, Arguments);

inline constexpr int kAnyNumber = -1;  // as `most`: no upper limit

// One row of a registration table. The strings are literals and are kept by address.
// Signature as in "(nth n liste)", optional arguments in brackets; help is one French sentence.
struct Builtin {
  const char* name;
  SubrFunction subr = nullptr;
  SpecialFunction special = nullptr;
  int least = 0, most = kAnyNumber;
  const char* signature;
  const char* help;

  constexpr Builtin(const char* name_, SubrFunction function, int least_, int most_, const char* signature_,
                    const char* help_)
      : name(name_), subr(function), least(least_), most(most_), signature(signature_), help(help_) {}
  constexpr Builtin(const char* name_, SpecialFunction function, const char* signature_, const char* help_)
      : name(name_), special(function), signature(signature_), help(help_) {}
};

// A registered function: what SUBR and external values point to. Lives as long as the interpreter.
struct alignas(16) Primitive {
  // Half the range, so that a count below `least`, which wraps around, is beyond it.
  static constexpr std::size_t kUnlimited = ~std::size_t{0} / 2;

  SubrFunction subr = nullptr;
  SpecialFunction special = nullptr;
  ExternalFunction external = nullptr;
  void* context = nullptr;
  int index = 0;
  int least = 0, most = kAnyNumber;
  std::size_t span = kUnlimited;  // most - least
  std::string name;               // upper case
  std::string signature, help;
};

}  // namespace atelier::lisp
