// AutoLISP functions that show things: alerts, vectors on the screen, texts in its corners.
// Vectors go to the document's transient graphics, which are kept even without a window.
#include "atelier/document/cancelling.h"
#include "atelier/document/document.h"
#include "atelier/document/values.h"
#include "atelier/functions/builtin_tables.h"
#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/evaluator/printer.h"
#include "atelier/lisp/text/diesel.h"

namespace atelier {
namespace {

using lisp::Arguments;
using lisp::Interpreter;
using lisp::Value;

AcGePoint3d pointOf(Interpreter& in, Value value) {
  const auto p = lisp::pointArgument(in, value);
  return {p[0], p[1], p[2]};
}

void draw(const AcGePoint3d& from, const AcGePoint3d& to, int color, bool highlighted) {
  Transients& transients = Document::needed().transients();
  transients.vectors.push_back({from, to, color, highlighted});
  ++transients.revision;
}

// A point as its ordinates with commas.
std::string pointText(Value list) {
  std::string text;
  for (const Value ordinate : lisp::Items(list)) text += (text.empty() ? "" : ",") + lisp::princ(ordinate);
  return text;
}

Value alert(Interpreter& in, Arguments arguments) {
  const std::string text(lisp::stringArgument(in, arguments[0]));
  Document::needed().print((text.starts_with('\n') ? "" : "\n") + text + "\n");
  return lisp::nil;
}

Value grdraw(Interpreter& in, Arguments arguments) {
  const Value highlight = lisp::optional(arguments, 3);
  draw(pointOf(in, arguments[0]), pointOf(in, arguments[1]), lisp::integerArgument(in, arguments[2]),
       highlight.isInteger() && highlight.integer() != 0);
  return lisp::nil;
}

AcGeMatrix3d matrixOf(Interpreter& in, Value rows) {
  AcGeMatrix3d matrix;
  int row = 0;
  for (const Value list : lisp::Items(rows)) {
    int column = 0;
    for (const Value number : lisp::Items(list))
      if (row < 4 && column < 4) matrix(row, column++) = lisp::numberArgument(in, number);
    ++row;
  }
  return matrix;
}

// (grvecs ([color] from to [color] from to ...) [matrix]): a negative colour is highlighted.
Value grvecs(Interpreter& in, Arguments arguments) {
  const AcGeMatrix3d matrix = matrixOf(in, lisp::optional(arguments, 1));
  int color = 7;
  std::optional<AcGePoint3d> from;
  for (const Value item : lisp::Items(lisp::listArgument(in, arguments[0]))) {
    if (item.isInteger()) {
      color = item.integer();
    } else if (!from) {
      from = pointOf(in, item);
    } else {
      draw(matrix * *from, matrix * pointOf(in, item), std::abs(color), color < 0);
      from.reset();
    }
  }
  return lisp::nil;
}

// The area -1 is the status line, which a window shows beside the cursor; other areas don't exist here.
Value grtext(Interpreter& in, Arguments arguments) {
  constexpr int kStatusLine = -1;
  Transients& transients = Document::needed().transients();
  if (arguments.empty()) transients.note.clear();
  if (arguments.size() < 2) return lisp::nil;
  if (arguments[0] == Value::integer(kStatusLine)) transients.note = lisp::stringArgument(in, arguments[1]);
  return arguments[1];
}

constexpr int kKeyboard = 2, kPoint = 3, kMove = 5;

// The code point of a character.
int codeOf(std::string_view utf8) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(utf8[i]); };
  if (byte(0) < 0x80) return byte(0);
  int code = byte(0) & (0x7F >> utf8.size());
  for (std::size_t i = 1; i < utf8.size(); ++i) code = code << 6 | (byte(i) & 0x3F);
  return code;
}

// With tracking: the cursor's places and what is typed, key by key.
Value followed(Interpreter& in) {
  Document& document = Document::needed();
  const Input input = cancelling(in, [&] { return document.prompter().follow(); });
  switch (input.kind) {
    case Input::Kind::move: return in.list({Value::integer(kMove), pointValue(in, input.point)});
    case Input::Kind::pick: return in.list({Value::integer(kPoint), pointValue(in, input.point)});
    case Input::Kind::text: return in.list({Value::integer(kKeyboard), Value::integer(codeOf(input.text))});
    default: in.fail(kCancelled);
  }
}

// Without tracking one answer is read as for a point.
Value grread(Interpreter& in, Arguments arguments) {
  if (!lisp::optional(arguments, 0).isNil()) return followed(in);
  constexpr int kEnter = 13;
  Document& document = Document::needed();
  const Input input = cancelling(in, [&] { return document.prompter().read({}); });
  if (input.kind == Input::Kind::pick) return in.list({Value::integer(kPoint), pointValue(in, input.point)});
  if (input.kind != Input::Kind::text) in.fail(kCancelled);
  if (const auto point = parsePoint(input.text, document.prompter().lastPoint))
    return in.list({Value::integer(kPoint), pointValue(in, *point)});
  const int key = input.text.empty() ? kEnter : static_cast<unsigned char>(input.text.front());
  return in.list({Value::integer(kKeyboard), Value::integer(key)});
}

// (redraw [entity [mode]]): 3 highlights, 4 removes the highlight; without an entity the vectors are removed.
Value redraw(Interpreter& in, Arguments arguments) {
  constexpr int kHighlight = 3, kUnhighlight = 4;
  Document& document = Document::needed();
  if (arguments.empty() || arguments[0].isNil()) {
    document.transients().clearVectors();
    return lisp::nil;
  }
  const AcDbEntityPointer entity{AcDbObjectId(stubOfValue(arguments[0]))};
  const Value mode = lisp::optional(arguments, 1);
  if (entity.openStatus() != Acad::eOk) in.failType("lentityp", arguments[0]);
  if (mode == Value::integer(kHighlight)) entity->highlight();
  if (mode == Value::integer(kUnhighlight)) entity->unhighlight();
  return lisp::nil;
}

Value nothing(Interpreter&, Arguments) { return lisp::nil; }
Value firstOf(Interpreter&, Arguments arguments) { return arguments[0]; }

// (menucmd "area=text"): the area M evaluates the text; the areas of screen and tablet menus don't exist here.
Value menucmd(Interpreter& in, Arguments arguments) {
  const std::string text(lisp::stringArgument(in, arguments[0]));
  if (upperCase(text.substr(0, 2)) != "M=") return lisp::nil;
  const auto called = [&in](const char* function, std::initializer_list<Value> values) {
    const std::vector<Value> list(values);
    const Value value = in.call(in.symbol(function), Arguments(list.data(), list.size()));
    return value.isNil() ? std::string() : value.isList() ? pointText(value) : lisp::princ(value);
  };
  const auto formatted = [&](const char* function) {
    return [&, function](double number, int mode, int precision) {
      if (mode < 0) return called(function, {Value::real(number)});
      if (precision < 0) return called(function, {Value::real(number), Value::integer(mode)});
      return called(function, {Value::real(number), Value::integer(mode), Value::integer(precision)});
    };
  };
  lisp::DieselHost host;
  host.variable = [&](std::string_view name) {
    const Value name1 = in.string(name);
    const Value value = in.call(in.symbol("GETVAR"), Arguments(&name1, 1));
    // All digits: dates have many.
    return value.isReal() ? realText(value.number()) : called("GETVAR", {name1});
  };
  host.environment = [&](std::string_view name) { return called("GETENV", {in.string(name)}); };
  host.distance = formatted("RTOS");
  host.angle = formatted("ANGTOS");
  return in.string(lisp::dieselText(host, std::string_view(text).substr(2)));
}

constexpr lisp::Builtin kTable[] = {
    {"alert", alert, 1, 1, "(alert texte)", "Montre un avertissement."},
    {"grdraw", grdraw, 3, 4, "(grdraw de à couleur [surbrillance])", "Trace un vecteur à l'écran seulement."},
    {"grvecs", grvecs, 1, 2, "(grvecs vecteurs [matrice])", "Trace plusieurs vecteurs à l'écran seulement."},
    {"grtext", grtext, 0, 3, "(grtext [case texte [surbrillance]])",
     "Écrit dans une zone de texte de l'écran, -1 étant la ligne d'état, montrée au curseur; rend le texte."},
    {"grread", grread, 0, 3, "(grread [suivi [bits [curseur]]])",
     "Lit une entrée: (2 code) d'une touche ou (3 point); avec suivi T aussi (5 point) quand le curseur bouge."},
    {"redraw", redraw, 0, 2, "(redraw [entité [mode]])", "Redessine; 3 met l'entité en surbrillance, 4 l'enlève."},
    {"menucmd", menucmd, 1, 1, "(menucmd texte)",
     "Évalue une expression DIESEL, \"M=$(...)\"; rend nil pour les menus."},
    {"graphscr", nothing, 0, 0, "(graphscr)", "Montre l'écran graphique."},
    {"textscr", nothing, 0, 0, "(textscr)", "Montre l'écran de texte."},
    {"grclear", nothing, 0, 0, "(grclear)", "nil : l'écran se redessine de lui-même."},
    {"initdia", nothing, 0, 1, "(initdia [drapeau])", "nil : les commandes posent leurs questions en ligne."},
    {"initcommandversion", nothing, 0, 1, "(initcommandversion [version])", "nil : chaque commande n'a qu'une forme."},
    {"setfunhelp", firstOf, 1, 4, "(setfunhelp \"c:nom\" [fichier [sujet [commande]]])", "Rend le nom."},
    {"help", nothing, 0, 3, "(help [fichier [sujet [commande]]])", "nil : AIDE explique les commandes."},
    {"menugroup", nothing, 1, 1, "(menugroup nom)", "nil : il n'y a pas de groupes de menus."},
    {"tablet", nothing, 1, 5, "(tablet code [...])", "nil : il n'y a pas de tablette."},
    {"acdimenableupdate", nothing, 1, 1, "(acdimenableupdate drapeau)", "nil."},
    {"textpage", nothing, 0, 0, "(textpage)", "Montre une page de texte vide."},
};

}  // namespace

std::span<const lisp::Builtin> screenBuiltins() { return kTable; }

}  // namespace atelier
