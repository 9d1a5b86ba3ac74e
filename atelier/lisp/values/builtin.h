// Registration of built-in functions: name, numbers of arguments, signature and one line of help, in a table per
// family. Other rooms register their own tables in the same form (Interpreter::add).
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "atelier/lisp/values/value.h"

namespace atelier::lisp {

class Interpreter;

using Arguments = std::span<const Value>;

// An ordinary function. The arguments are evaluated, their number is checked, and they are kept alive during the call.
// So are values in local variables (the collector scans the machine stack); values kept elsewhere need a Root or a
// ValueStack. Failures are raised with Interpreter::fail.
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
  // Half the range: a count below `least` wraps around to a greater number and is refused.
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
