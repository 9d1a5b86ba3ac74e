// The evaluator: calls of built-ins, user functions and lambda lists. The code that catches an error undoes the
// bindings, so that nothing here needs a destructor and special forms can call the evaluator in tail position.
#include <algorithm>

#include "atelier/lisp/evaluator/interpreter.h"
#include "atelier/lisp/evaluator/printer.h"
#include "atelier/lisp/evaluator/root.h"

namespace atelier::lisp {

Value Interpreter::evalForm(Value form) {
  checkStack();
  const Value head = form.car();
  const Value function = head.isSymbol() ? head.symbol()->value : head;
  switch (function.tag()) {
    case Value::kSubr: return evalSubr(form, function.primitive());
    case Value::kSpecial: return function.primitive()->special(*this, form.cdr());
    case Value::kUserSubr: return evalUser(form, function);
    default: return evalOther(form);
  }
}

Value Interpreter::evalSubr(Value form, Primitive* primitive) {
  Frame frame{frame_, form};
  frame_ = &frame;
  Value* const first = top_;
  pushArguments(form.cdr());
  const auto count = static_cast<std::size_t>(top_ - first);
  if (count - static_cast<std::size_t>(primitive->least) > primitive->span) [[unlikely]]
    checkCount(primitive, count);
  const Value result = primitive->subr(*this, {first, count});
  top_ = first;
  frame_ = frame.previous;
  return result;
}

Value Interpreter::evalUser(Value form, Value function) {
  Frame frame{frame_, form};
  frame_ = &frame;
  Value* const first = top_;
  pushArguments(form.cdr());
  const Value result = invoke(function, function.car(), first);
  frame_ = frame.previous;
  return result;
}

// Forms that begin with an external function, a lambda list, a computed head, or something that isn't a function.
Value Interpreter::evalOther(Value form) {
  const Value head = form.car();
  Value function = head.isSymbol() ? head.symbol()->value : head;
  Value lambda = lambdaOf(function);
  if (!lambda && head.isPair()) {
    function = eval(head);
    lambda = lambdaOf(function);
  }
  if (!lambda && !function.isPrimitive()) noFunction(head);
  if (function.tag() == Value::kSpecial) return function.primitive()->special(*this, form.cdr());
  Frame frame{frame_, form};
  frame_ = &frame;
  Value* const first = top_;
  pushArguments(form.cdr());
  const Value result = lambda ? invoke(function, lambda, first) : apply(function, {first, top_});
  top_ = first;
  frame_ = frame.previous;
  return result;
}

void Interpreter::bind(Value symbol, Value value) {
  if (!symbol.isSymbol()) [[unlikely]]
    fail("bad formal argument list: " + prin1(symbol));
  if (bindings_ == bindingsEnd_) [[unlikely]]
    overflow();
  *bindings_++ = {symbol.symbol(), symbol.symbol()->value};
  symbol.symbol()->value = value;
}

// Binds the parameters of `lambda`, (parameters . body), to the values on the stack from `first` on, takes
// these off the stack and runs the body.
Value Interpreter::invoke(Value function, Value lambda, Value* first) {
  if (attention_.load(std::memory_order_relaxed)) [[unlikely]] {
    attend();
    if (isTraced(function)) return invokeTraced(function, lambda, first);
  }
  Binding* const mark = bindings_;
  Value* argument = first;
  Value parameters = lambda.car();
  for (; parameters.isPair(); parameters = parameters.cdr()) {
    const Value name = parameters.car();
    if (name == slash_) {
      // A name that is a parameter too keeps the value it was called with.
      const Binding* const locals = bindings_;
      for (parameters = parameters.cdr(); parameters.isPair(); parameters = parameters.cdr()) {
        const Value local = parameters.car();
        const auto isLocal = [local](const Binding& parameter) { return parameter.symbol == local.symbol(); };
        if (!local.isSymbol() || std::none_of<const Binding*>(mark, locals, isLocal)) bind(local, nil);
      }
      break;
    }
    if (argument == top_) [[unlikely]]
      fail("too few arguments");
    bind(name, *argument++);
  }
  if (argument != top_) [[unlikely]]
    fail("too many arguments");
  top_ = first;
  Value result = nil;
  for (Value body = lambda.cdr(); body.isPair(); body = body.cdr()) result = eval(body.car());
  unbind(mark);
  return result;
}

Value Interpreter::evalBody(Value forms) {
  if (!forms.isPair()) return nil;
  for (; forms.cdr().isPair(); forms = forms.cdr()) eval(forms.car());
  return eval(forms.car());
}

// The (parameters . body) of a user function, of a quoted lambda or of a function kept as a list; else nil.
Value Interpreter::lambdaOf(Value function) const {
  if (function.isUserSubr()) return function.car();
  if (!function.isPair()) return nil;
  if (function.car() == lambda_) return function.cdr().isPair() ? function.cdr() : nil;
  if (!function.car().isList()) return nil;
  for (Value parameter : Items(function.car()))
    if (!parameter.isSymbol()) return nil;
  return function;
}

bool Interpreter::isFunction(Value value) {
  if (value.isSymbol()) value = value.symbol()->value;
  if (value.isPrimitive() || value.isUserSubr()) return true;
  return value.isPair() && (value.car().isList() || (value.car().isSymbol() && value.car().name() == "LAMBDA"));
}

Value Interpreter::apply(Value function, Arguments arguments) {
  checkStack();
  const Value named = function;
  if (function.isSymbol()) function = function.symbol()->value;
  if (function.tag() == Value::kSpecial) return applySpecial(function.primitive(), arguments);
  Frame frame{frame_, named};
  frame_ = &frame;
  Value result;
  if (function.tag() == Value::kSubr) {
    checkCount(function.primitive(), arguments.size());
    result = function.primitive()->subr(*this, arguments);
  } else if (function.tag() == Value::kExternal) {
    result = callExternal(function.primitive(), arguments);
  } else {
    const Value lambda = lambdaOf(function);
    if (!lambda) noFunction(named);
    Value* const first = top_;
    for (Value argument : arguments) push(argument);
    result = invoke(function, lambda, first);
  }
  frame_ = frame.previous;
  return result;
}

// (apply 'and list), (mapcar 'setq names values): the values become a form. Special forms whose arguments are names
// get the values as they are, others get them quoted.
Value Interpreter::applySpecial(Primitive* primitive, Arguments arguments) {
  const Value quote = symbol("QUOTE");
  ValueStack form(*this);
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const Value value = arguments[i];
    const bool selfEvaluating = !value.isPair() && !value.isSymbol();
    const bool isName = primitive->name == "SETQ" && i % 2 == 0;
    const bool takesForms = primitive->name == "QUOTE" || primitive->name == "FUNCTION" ||
                            primitive->name == "LAMBDA" || primitive->name.starts_with("DEFUN");
    form.push(selfEvaluating || isName || takesForms ? value : list({quote, value}));
  }
  return primitive->special(*this, form.list());
}

Value Interpreter::callExternal(Primitive* primitive, Arguments arguments) {
  if (!primitive->external) noFunction(symbol(primitive->name));
  const State before = state();
  std::string failure;
  Value result;
  try {
    result = primitive->external(primitive->context, primitive->index, *this, arguments);
  } catch (const Error&) {
    if (afterExternal_) afterExternal_(primitive->name);
    throw;
  } catch (const std::exception& exception) {
    failure = exception.what();
    if (failure.empty()) failure = "exception";
  }
  if (afterExternal_) afterExternal_(primitive->name);
  restore(before);
  if (!failure.empty()) fail(failure);
  return result;
}

void Interpreter::checkCount(const Primitive* primitive, std::size_t count) {
  if (count < static_cast<std::size_t>(primitive->least)) fail("too few arguments");
  if (primitive->most != kAnyNumber && count > static_cast<std::size_t>(primitive->most)) fail("too many arguments");
}

void Interpreter::noFunction(Value head) {
  if (head.isSymbol() && !head.symbol()->value) fail("no function definition: " + head.name());
  fail("bad function: " + prin1(head.isSymbol() ? head.symbol()->value : head));
}

Value Interpreter::list(Arguments elements, Value tail) {
  for (std::size_t i = elements.size(); i-- > 0;) tail = cons(elements[i], tail);
  return tail;
}

}  // namespace atelier::lisp
