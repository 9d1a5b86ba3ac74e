// vl-sort, vl-sort-i, acad_strlsort.
#include <algorithm>
#include <vector>

#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/evaluator/root.h"
#include "atelier/lisp/functions/comparison.h"
#include "atelier/lisp/functions/families.h"
#include "atelier/lisp/text/encoding.h"

namespace atelier::lisp {
namespace {

// A stable merge sort. Unlike std::sort it ends and loses no element even when a program's predicate isn't an order.
// `room` is as long as `values`.
template <class Item, class Before>
void mergeSort(Interpreter& in, std::span<Item> values, std::span<Item> room, Before& before) {
  if (values.size() < 2) return;
  in.poll();
  const std::size_t half = values.size() / 2;
  mergeSort(in, values.first(half), room.first(half), before);
  mergeSort(in, values.subspan(half), room.subspan(half), before);
  if (!before(values[half], values[half - 1])) return;
  std::copy_n(values.begin(), half, room.begin());
  std::size_t left = 0, right = half, out = 0;
  while (left < half && right < values.size())
    values[out++] = before(values[right], room[left]) ? values[right++] : room[left++];
  while (left < half) values[out++] = room[left++];
}

// Calls `sort` with a comparison of two values: a direct one for the built-in order on numbers, else the
// function.
template <class Sort>
void withOrder(Interpreter& in, Value function, std::span<const Value> values, Sort sort) {
  const Value bound = function.isSymbol() ? function.symbol()->value : function;
  const bool numbers = std::all_of(values.begin(), values.end(), [](Value value) { return value.isNumber(); });
  const std::string name = numbers && bound.tag() == Value::kSubr ? bound.primitive()->name : "";
  if (name == "<") {
    auto before = [](Value a, Value b) { return a.number() < b.number(); };
    sort(before);
  } else if (name == ">") {
    auto before = [](Value a, Value b) { return a.number() > b.number(); };
    sort(before);
  } else {
    auto before = [&in, function](Value a, Value b) {
      in.poll();
      const Value pair[] = {a, b};
      return static_cast<bool>(in.apply(function, pair));
    };
    sort(before);
  }
}

// Of elements that are the same integer, symbol or object one is kept, as in the AutoLISP reference; equal reals and
// strings, which are different objects there, are all kept.
Value sortFunction(Interpreter& in, Arguments arguments) {
  ValueStack stack(in);
  stack.pushAll(listArgument(in, arguments[0]));
  const std::size_t count = stack.values().size();
  for (std::size_t i = 0; i < count; ++i) stack.push(nil);
  const auto values = stack.values().first(count), room = stack.values().subspan(count);
  withOrder(in, arguments[1], values, [&](auto& before) { mergeSort(in, values, room, before); });
  Value result = nil;
  for (std::size_t i = count; i-- > 0;)
    if (!result || values[i] != result.car() || values[i].isReal()) result = in.cons(values[i], result);
  return result;
}

Value sortIndices(Interpreter& in, Arguments arguments) {
  ValueStack stack(in);
  stack.pushAll(listArgument(in, arguments[0]));
  const auto values = stack.values();
  std::vector<std::int32_t> indices(values.size()), room(values.size());
  for (std::size_t i = 0; i < indices.size(); ++i) indices[i] = static_cast<std::int32_t>(i);
  withOrder(in, arguments[1], values, [&](auto& before) {
    auto byValue = [&](std::int32_t a, std::int32_t b) {
      return before(values[static_cast<std::size_t>(a)], values[static_cast<std::size_t>(b)]);
    };
    mergeSort(in, std::span(indices), std::span(room), byValue);
  });
  Value result = nil;
  for (std::size_t i = indices.size(); i-- > 0;) result = in.cons(Value::integer(indices[i]), result);
  return result;
}

// Alphabetical, without regard to case; the capital comes first between words that differ in case only.
Value sortStrings(Interpreter& in, Arguments arguments) {
  struct Keyed {
    std::string key;
    Value value;
  };
  ValueStack stack(in);
  stack.pushAll(listArgument(in, arguments[0]));
  std::vector<Keyed> keyed;
  for (Value value : stack.values()) {
    in.poll();
    keyed.push_back({upperCase(stringArgument(in, value)), value});
  }
  std::vector<const Keyed*> order, room(keyed.size());
  for (const Keyed& one : keyed) order.push_back(&one);
  const auto before = [](const Keyed* a, const Keyed* b) {
    return a->key != b->key ? a->key < b->key : a->value.text() < b->value.text();
  };
  mergeSort(in, std::span(order), std::span(room), before);
  stack.clear();
  for (const Keyed* one : order) stack.push(one->value);
  return stack.list();
}

constexpr Builtin kTable[] = {
    {"vl-sort", sortFunction, 2, 2, "(vl-sort liste fonction)",
     "La liste triée selon la fonction de comparaison, sans les doublons."},
    {"vl-sort-i", sortIndices, 2, 2, "(vl-sort-i liste fonction)", "Les rangs des éléments dans l'ordre du tri."},
    {"acad_strlsort", sortStrings, 1, 1, "(acad_strlsort liste)", "Liste de chaînes triée par ordre alphabétique."},
};

}  // namespace

std::span<const Builtin> sortingFamily() { return kTable; }

}  // namespace atelier::lisp
