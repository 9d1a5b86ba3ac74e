// AutoLISP functions on selection sets.
// Signatures and results are those of the AutoLISP reference.
#include <cmath>

#include "atelier/document/cancelling.h"
#include "atelier/document/document.h"
#include "atelier/document/values.h"
#include "atelier/functions/builtin_tables.h"
#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/selecting/filter_forms.h"
#include "atelier/selecting/pick.h"
#include "atelier/selecting/selection_modes.h"
#include "atelier/selecting/snaps.h"

namespace atelier {
namespace {

using lisp::Arguments;
using lisp::Interpreter;
using lisp::Value;

SelectionSet& setArgument(Interpreter& in, Value value) {
  if (!value.isSelection()) in.failType("lselsetp", value);
  return *static_cast<SelectionSet*>(value.selection().get());
}

AcDbStub* entityStub(Interpreter& in, Value value) {
  AcDbStub* stub = stubOfValue(value);
  if (!stub) in.failType("lentityp", value);
  return stub;
}

AcGePoint3d placeArgument(Interpreter& in, Value value) {
  const auto p = lisp::pointArgument(in, value);
  return {p[0], p[1], p[2]};
}

// (ssget [mode] [point] [point] [points] [filter]): a list whose first item is a pair is a filter or a list
// of points.
Value ssget(Interpreter& in, Arguments arguments) {
  Document& document = Document::needed();
  std::size_t next = 0;
  ModeText mode;
  if (!arguments.empty() && arguments[0].isString()) {
    mode = parseMode(arguments[0].text());
    if (mode.mode == SelectionMode::unknown) in.fail("bad SSGET mode string");
    ++next;
  } else if (!arguments.empty() && pointFromValue(arguments[0])) {
    mode.mode = arguments.size() > 1 && pointFromValue(arguments[1]) ? SelectionMode::window : SelectionMode::point;
  } else if (!arguments.empty() && arguments[0].isNil()) {
    ++next;
  }
  std::vector<AcGePoint3d> points;
  for (int i = 0; i < pointsOf(mode.mode); ++i, ++next) {
    if (next >= arguments.size()) in.fail("bad SSGET list");
    points.push_back(placeArgument(in, arguments[next]));
  }
  if (pointsOf(mode.mode) < 0) {
    for (const Value point : lisp::Items(lisp::optional(arguments, next))) points.push_back(placeArgument(in, point));
    ++next;
  }
  const SelectionFilter filter = filterOfList(in, lisp::listArgument(in, lisp::optional(arguments, next)));
  const Selected selected = cancelling(in, [&] { return select(document, mode, points, filter); });
  if (selected.cancelled) in.fail(kCancelled);
  return selected.set ? in.selection(selected.set, selected.set->weight()) : lisp::nil;
}

Value sslength(Interpreter& in, Arguments arguments) {
  return Value::integerOrReal(static_cast<std::int64_t>(setArgument(in, arguments[0]).list().size()));
}

Value ssname(Interpreter& in, Arguments arguments) {
  const SelectionSet::List& list = setArgument(in, arguments[0]).list();
  const double index = std::floor(lisp::numberArgument(in, arguments[1]));
  if (index < 0 || index >= static_cast<double>(list.size())) return lisp::nil;
  return entityValue(in, list[static_cast<std::size_t>(index)]);
}

Value ssadd(Interpreter& in, Arguments arguments) {
  const Value given = lisp::optional(arguments, 1);
  if (!given.isNil()) {
    setArgument(in, given).add(entityStub(in, arguments[0]));
    return given;
  }
  const auto made = std::make_shared<SelectionSet>();
  if (!arguments.empty() && !arguments[0].isNil()) made->add(entityStub(in, arguments[0]));
  return in.selection(made, made->weight());
}

Value ssdel(Interpreter& in, Arguments arguments) {
  return setArgument(in, arguments[1]).remove(entityStub(in, arguments[0])) ? arguments[1] : lisp::nil;
}

Value ssmemb(Interpreter& in, Arguments arguments) {
  return setArgument(in, arguments[1]).contains(entityStub(in, arguments[0])) ? arguments[0] : lisp::nil;
}

// How an entity was selected is not kept: every item has the method "other" (0), the entity and its marker.
Value ssnamex(Interpreter& in, Arguments arguments) {
  const SelectionSet::List& list = setArgument(in, arguments[0]).list();
  const auto item = [&](AcDbStub* stub) {
    return in.list({Value::integer(0), entityValue(in, stub), Value::integer(0)});
  };
  if (arguments.size() > 1) {
    const std::int32_t index = lisp::integerArgument(in, arguments[1]);
    if (index < 0 || static_cast<std::size_t>(index) >= list.size()) return lisp::nil;
    return in.list({item(list[static_cast<std::size_t>(index)])});
  }
  Value result;
  for (std::size_t i = list.size(); i-- > 0;) result = in.cons(item(list[i]), result);
  return result;
}

Value sssetfirst(Interpreter& in, Arguments arguments) {
  Document& document = Document::needed();
  const Value pick = lisp::optional(arguments, 1);
  document.firstSelection =
      pick.isNil() ? nullptr : (setArgument(in, pick), std::static_pointer_cast<SelectionSet>(pick.selection()));
  document.selectedByProgram = document.firstSelection;
  return in.list({lisp::nil, pick});
}

Value ssgetfirst(Interpreter& in, Arguments) {
  const auto& first = Document::needed().firstSelection;
  return in.list({lisp::nil, first ? in.selection(first, first->weight()) : lisp::nil});
}

Value osnap(Interpreter& in, Arguments arguments) {
  Document& document = Document::needed();
  const auto p = lisp::pointArgument(in, arguments[0]);
  const auto found = findSnap(document, {p[0], p[1], p[2]}, pickRadius(document),
                              snapModesOf(lisp::stringArgument(in, arguments[1])), document.prompter().lastPoint);
  return found ? in.point(found->point.x, found->point.y, found->point.z) : lisp::nil;
}

constexpr lisp::Builtin kTable[] = {
    {"ssget", ssget, 0, 5, "(ssget [mode] [point] [point] [points] [filtre])",
     "Jeu de sélection choisi par l'utilisateur, par un lieu ou par un filtre, ou nil."},
    {"sslength", sslength, 1, 1, "(sslength jeu)", "Nombre d'entités d'un jeu de sélection."},
    {"ssname", ssname, 2, 2, "(ssname jeu rang)", "Entité d'un jeu de sélection par son rang, à partir de 0, ou nil."},
    {"ssadd", ssadd, 0, 2, "(ssadd [entité [jeu]])", "Ajoute une entité à un jeu de sélection, ou crée un jeu."},
    {"ssdel", ssdel, 2, 2, "(ssdel entité jeu)", "Retire une entité d'un jeu de sélection; rend le jeu, ou nil."},
    {"ssmemb", ssmemb, 2, 2, "(ssmemb entité jeu)", "L'entité si elle est dans le jeu, sinon nil."},
    {"ssnamex", ssnamex, 1, 2, "(ssnamex jeu [rang])", "Entités d'un jeu avec la façon dont elles ont été choisies."},
    {"sssetfirst", sssetfirst, 1, 2, "(sssetfirst poignées [jeu])", "Montre un jeu comme la sélection en cours."},
    {"osnap", osnap, 2, 2, "(osnap point modes)",
     "Le point remarquable près d'un point, par modes tels que \"_end,_mid\", ou nil."},
    {"ssgetfirst", ssgetfirst, 0, 0, "(ssgetfirst)", "Liste de nil et de la sélection en cours."},
};

}  // namespace

std::span<const lisp::Builtin> selectionBuiltins() { return kTable; }

}  // namespace atelier
