// AutoLISP functions that ask the user.
// A keyword is answered as a string, Enter as nil; a cancel ends the program with "Function cancelled".
#include <filesystem>

#include "atelier/document/cancelling.h"
#include "atelier/document/document.h"
#include "atelier/document/values.h"
#include "atelier/functions/builtin_tables.h"
#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/selecting/pick.h"

namespace atelier {
namespace {

using lisp::Arguments;
using lisp::Interpreter;
using lisp::Value;

Prompter& prompter() { return Document::needed().prompter(); }

std::optional<AcGePoint3d> baseArgument(Value value) { return pointFromValue(value); }

std::string textArgument(Interpreter& in, Value value) {
  return value.isNil() ? std::string() : std::string(lisp::stringArgument(in, value));
}

// The AutoLISP value of an answer; `value` makes that of an answer that is neither a keyword nor Enter.
template <class VALUE>
Value answered(Interpreter& in, Answer answer, VALUE value) {
  switch (answer) {
    case Answer::value: return value();
    case Answer::keyword: return in.string(prompter().lastKeyword());
    case Answer::none: return lisp::nil;
    default: in.fail(kCancelled);
  }
}

// The arguments ([base] [text]) of the asking functions.
struct Asked {
  std::optional<AcGePoint3d> base;
  std::string text;
};
Asked askedArguments(Interpreter& in, Arguments arguments) {
  Asked asked;
  for (const Value argument : arguments) {
    if (argument.isString()) asked.text = argument.text();
    else if (const auto point = baseArgument(argument)) asked.base = point;
    else if (!argument.isNil()) in.failType("point", argument);
  }
  return asked;
}

Value initget(Interpreter& in, Arguments arguments) {
  int flags = 0;
  std::string keywords;
  for (const Value argument : arguments) {
    if (argument.isInteger()) flags = argument.integer();
    else keywords = textArgument(in, argument);
  }
  prompter().initGet(flags, keywords);
  return lisp::nil;
}

Value getkword(Interpreter& in, Arguments arguments) {
  const std::string text = textArgument(in, lisp::optional(arguments, 0));
  const Answer answer = cancelling(in, [&] { return prompter().getKeyword(text); });
  return answered(in, answer, [] { return lisp::nil; });
}

template <bool CORNER>
Value getpoint(Interpreter& in, Arguments arguments) {
  const Asked asked = askedArguments(in, arguments);
  AcGePoint3d point;
  const Answer answer = cancelling(in, [&] { return prompter().getPoint(asked.base, asked.text, point, CORNER); });
  return answered(in, answer, [&] { return pointValue(in, point); });
}

Value getdist(Interpreter& in, Arguments arguments) {
  const Asked asked = askedArguments(in, arguments);
  double distance = 0;
  const Answer answer = cancelling(in, [&] { return prompter().getDistance(asked.base, asked.text, distance); });
  return answered(in, answer, [&] { return Value::real(distance); });
}

Value getangle(Interpreter& in, Arguments arguments) {
  const Asked asked = askedArguments(in, arguments);
  double angle = 0;
  const Answer answer = cancelling(in, [&] { return prompter().getAngle(asked.base, asked.text, angle); });
  return answered(in, answer, [&] { return Value::real(angle); });
}

Value getint(Interpreter& in, Arguments arguments) {
  const std::string text = textArgument(in, lisp::optional(arguments, 0));
  int number = 0;
  const Answer answer = cancelling(in, [&] { return prompter().getInteger(text, number); });
  return answered(in, answer, [&] { return Value::integer(number); });
}

Value getreal(Interpreter& in, Arguments arguments) {
  const std::string text = textArgument(in, lisp::optional(arguments, 0));
  double number = 0;
  const Answer answer = cancelling(in, [&] { return prompter().getReal(text, number); });
  return answered(in, answer, [&] { return Value::real(number); });
}

// (getstring [spaces] [text])
Value getstring(Interpreter& in, Arguments arguments) {
  bool spaces = false;
  std::string text, result;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (arguments[i].isString() && i + 1 == arguments.size()) text = arguments[i].text();
    else spaces = !arguments[i].isNil();
  }
  const Answer answer = cancelling(in, [&] { return prompter().getText(spaces, text, result); });
  return answered(in, answer, [&] { return in.string(result); });
}

// The values of ERRNO for a pick without an entity.
constexpr int kMissed = 7, kEnterOnly = 52;

Value selected(Interpreter& in, Arguments arguments, bool nested) {
  std::string text = textArgument(in, lisp::optional(arguments, 0));
  if (text.empty()) text = "\nChoix de l'objet: ";
  AcDbObjectId id;
  AcGePoint3d point;
  Document& document = Document::needed();
  const Answer answer = cancelling(in, [&] { return prompter().getEntity(text, id, point); });
  if (answer == Answer::none) document.variables().set("ERRNO", kEnterOnly);
  return answered(in, answer, [&]() -> Value {
    if (id.isNull()) {
      document.variables().set("ERRNO", kMissed);
      return lisp::nil;
    }
    if (nested) return nestedPick(document, id, point);
    return in.list({entityValue(in, id), pointValue(in, point)});
  });
}

Value entsel(Interpreter& in, Arguments arguments) { return selected(in, arguments, false); }
Value nentsel(Interpreter& in, Arguments arguments) { return selected(in, arguments, true); }

// (nentselp [prompt] [point]): with a point nothing is asked.
Value nentselp(Interpreter& in, Arguments arguments) {
  Document& document = Document::needed();
  const bool asks = arguments.empty() || !pointFromValue(arguments.back());
  if (!asks) {
    const AcGePoint3d point = *pointFromValue(arguments.back());
    const AcDbObjectId id = pickAt(document, point);
    return id.isNull() ? lisp::nil : nestedPick(document, id, point, MatrixForm::square);
  }
  const Value picked = entsel(in, arguments.first(std::min<std::size_t>(arguments.size(), 1)));
  if (!picked.isPair()) return picked;
  return nestedPick(document, AcDbObjectId(stubOfValue(picked.car())), *pointFromValue(picked.cdr().car()),
                    MatrixForm::square);
}

// (getfiled title default extension flags): without a dialog the path is asked for as a line.
Value getfiled(Interpreter& in, Arguments arguments) {
  const std::string title = textArgument(in, arguments[0]), proposed = textArgument(in, arguments[1]),
                    extension = textArgument(in, arguments[2]);
  constexpr int kNewFile = 1;
  const bool fresh = (lisp::integerArgument(in, arguments[3]) & kNewFile) != 0;
  std::string path;
  const std::string text = "\n" + title + (proposed.empty() ? "" : " <" + proposed + ">") + ": ";
  const Answer answer = cancelling(in, [&] { return prompter().getText(true, text, path); });
  if (answer == Answer::cancel) return lisp::nil;
  path = std::string(trimmed(path));
  if (path.empty()) path = proposed;
  if (path.empty()) return lisp::nil;
  if (!extension.empty() && std::filesystem::path(path).extension().empty() && extension.find(';') == extension.npos)
    path += "." + extension;
  if (fresh) return in.string(path);
  const auto found = in.search().find(path);
  if (!found) {
    Document::needed().print("\nFichier introuvable: " + path);
    return lisp::nil;
  }
  return in.string(*found);
}

constexpr lisp::Builtin kTable[] = {
    {"initget", initget, 0, 2, "(initget [bits] [mots])",
     "Règle la prochaine question: valeurs refusées et mots-clés."},
    {"getkword", getkword, 0, 1, "(getkword [texte])", "Demande un des mots-clés de initget."},
    {"getpoint", getpoint<false>, 0, 2, "(getpoint [base] [texte])", "Demande un point."},
    {"getcorner", getpoint<true>, 1, 2, "(getcorner base [texte])", "Demande le coin opposé d'un rectangle."},
    {"getdist", getdist, 0, 2, "(getdist [base] [texte])", "Demande une distance: un nombre ou des points."},
    {"getangle", getangle, 0, 2, "(getangle [base] [texte])", "Demande un angle, rendu en radians."},
    {"getorient", getangle, 0, 2, "(getorient [base] [texte])", "Demande une orientation, rendue en radians."},
    {"getint", getint, 0, 1, "(getint [texte])", "Demande un entier."},
    {"getreal", getreal, 0, 1, "(getreal [texte])", "Demande un nombre."},
    {"getstring", getstring, 0, 2, "(getstring [espaces] [texte])",
     "Demande un texte; avec espaces s'il y a un premier argument non nil."},
    {"entsel", entsel, 0, 1, "(entsel [texte])", "Demande une entité; rend l'entité et le point, ou nil."},
    {"nentselp", nentselp, 0, 2, "(nentselp [texte] [point])",
     "Comme nentsel, en un point donné; la matrice a quatre colonnes."},
    {"nentsel", nentsel, 0, 1, "(nentsel [texte])", "Comme entsel, mais descend dans les blocs jusqu'à l'entité."},
    {"getfiled", getfiled, 4, 4, "(getfiled titre proposition extension bits)",
     "Demande le chemin d'un fichier, ou nil."},
};

}  // namespace

std::span<const lisp::Builtin> promptBuiltins() { return kTable; }

}  // namespace atelier
