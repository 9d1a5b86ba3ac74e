// AutoLISP's functions for dialogs that are described in DCL.
// The desktop shows them as windows, the command line asks for their tiles one at a time.
#include <array>
#include <fstream>
#include <sstream>

#include "atelier/dialogs/dcl_dialog.h"
#include "atelier/document/document.h"
#include "atelier/functions/builtin_tables.h"
#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/evaluator/root.h"
#include "atelier/lisp/evaluator/session.h"
#include "atelier/lisp/text/encoding.h"

namespace atelier {
namespace {

using lisp::Arguments;
using lisp::Interpreter;
using lisp::Value;

struct DclSession {
  std::map<int, dcl::Definitions> files;
  int lastFile = 0;
  std::vector<std::unique_ptr<dcl::TileDialog>> dialogs;  // the open ones, the one on top last
  struct {
    std::string key;
    dcl::TileDialog::Change change = dcl::TileDialog::Change::all;
    std::size_t index = 0;
    std::vector<std::string> texts;
  } filling;
  struct {
    std::string key;
    std::vector<dialogues::Picture::Stroke> strokes;
  } drawing;
};

DclSession& session(Interpreter& in) {
  auto& kept = in.session().dialogs;
  if (!kept) kept = std::make_shared<DclSession>();
  return *static_cast<DclSession*>(kept.get());
}

// The dialog on top when it has a tile with that key; null otherwise.
dcl::TileDialog* withTile(Interpreter& in, Value key) {
  auto& dialogs = session(in).dialogs;
  const std::string name(lisp::stringArgument(in, key));
  return !dialogs.empty() && dialogs.back()->has(name) ? dialogs.back().get() : nullptr;
}

int numberIn(Value value, int otherwise) {
  if (value.isInteger()) return value.integer();
  const auto number = value.isString() ? parseInteger(value.text()) : std::nullopt;
  return number ? static_cast<int>(*number) : otherwise;
}

Value loadDialog(Interpreter& in, Arguments arguments) {
  const std::string name(lisp::stringArgument(in, arguments[0]));
  auto found = in.search().find(name);
  if (!found) found = in.search().find(name + ".dcl");
  std::ifstream file(found.value_or(std::string()), std::ios::binary);
  std::ostringstream bytes;
  bytes << file.rdbuf();
  if (!found || !file) return Value::integer(-1);
  try {
    session(in).files[++session(in).lastFile] = dcl::read(*found, lisp::decodeFile(bytes.str()));
  } catch (const Error& error) {
    Document::needed().print(std::string("\n") + error.what() + "\n");
    return Value::integer(-1);
  }
  return Value::integer(session(in).lastFile);
}

Value unloadDialog(Interpreter& in, Arguments arguments) {
  session(in).files.erase(lisp::integerArgument(in, arguments[0]));
  return lisp::nil;
}

Value newDialog(Interpreter& in, Arguments arguments) {
  const std::string name(lisp::stringArgument(in, arguments[0]));
  const auto file = session(in).files.find(lisp::integerArgument(in, arguments[1]));
  const Value action = lisp::optional(arguments, 2);
  std::string lower = name;
  for (char& c : lower)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
  if (file == session(in).files.end() || !file->second.contains(lower) || file->second.at(lower).type != "dialog")
    return lisp::nil;
  const auto act = [](const std::string& expression, const std::string& key, const std::string& value) {
    Interpreter& now = Document::needed().interpreter();
    now.set("$KEY", now.string(key));
    now.set("$VALUE", now.string(value));
    now.set("$REASON", Value::integer(1));
    now.evaluate(expression);
  };
  session(in).dialogs.push_back(std::make_unique<dcl::TileDialog>(
      file->second.at(lower), action.isString() ? std::string(action.text()) : std::string(), act));
  return in.boolean(true);
}

Value startDialog(Interpreter& in, Arguments) {
  if (session(in).dialogs.empty()) return lisp::nil;
  // Removes the dialog when it has ended, by an exception, too.
  struct Gone {
    DclSession& all;
    ~Gone() { all.dialogs.pop_back(); }
  } gone{session(in)};
  return Value::integer(gone.all.dialogs.back()->run());
}

Value doneDialog(Interpreter& in, Arguments arguments) {
  if (session(in).dialogs.empty()) return lisp::nil;
  session(in).dialogs.back()->finish(numberIn(lisp::optional(arguments, 0), 0));
  const lisp::Root y(in, in.cons(Value::integer(0), lisp::nil));
  return in.cons(Value::integer(0), y);  // a place on the screen, which is not used
}

Value actionTile(Interpreter& in, Arguments arguments) {
  dcl::TileDialog* dialog = withTile(in, arguments[0]);
  if (dialog) dialog->setAction(std::string(arguments[0].text()), std::string(lisp::stringArgument(in, arguments[1])));
  return in.boolean(dialog != nullptr);
}

Value setTile(Interpreter& in, Arguments arguments) {
  dcl::TileDialog* dialog = withTile(in, arguments[0]);
  if (dialog) dialog->setValue(std::string(arguments[0].text()), std::string(lisp::stringArgument(in, arguments[1])));
  return lisp::nil;
}

Value getTile(Interpreter& in, Arguments arguments) {
  const dcl::TileDialog* dialog = withTile(in, arguments[0]);
  return dialog ? in.string(dialog->value(std::string(arguments[0].text()))) : lisp::nil;
}

Value getAttribute(Interpreter& in, Arguments arguments) {
  const dcl::TileDialog* dialog = withTile(in, arguments[0]);
  return dialog ? in.string(dialog->attribute(std::string(arguments[0].text()), lisp::stringArgument(in, arguments[1])))
                : lisp::nil;
}

Value modeTile(Interpreter& in, Arguments arguments) {
  if (dcl::TileDialog* dialog = withTile(in, arguments[0]))
    dialog->setMode(std::string(arguments[0].text()), numberIn(arguments[1], 0));
  return lisp::nil;
}

Value startList(Interpreter& in, Arguments arguments) {
  auto& filling = session(in).filling;
  filling.key = lisp::stringArgument(in, arguments[0]);
  filling.change = static_cast<dcl::TileDialog::Change>(std::clamp(numberIn(lisp::optional(arguments, 1), 3), 1, 3));
  filling.index = static_cast<std::size_t>(std::max(numberIn(lisp::optional(arguments, 2), 0), 0));
  filling.texts.clear();
  return arguments[0];
}

Value addList(Interpreter& in, Arguments arguments) {
  session(in).filling.texts.emplace_back(lisp::stringArgument(in, arguments[0]));
  return arguments[0];
}

Value endList(Interpreter& in, Arguments) {
  auto& [key, change, index, texts] = session(in).filling;
  auto& dialogs = session(in).dialogs;
  if (!dialogs.empty() && dialogs.back()->has(key)) dialogs.back()->changeList(key, change, index, texts);
  texts.clear();
  return lisp::nil;
}

Value startImage(Interpreter& in, Arguments arguments) {
  auto& drawing = session(in).drawing;
  drawing.key = lisp::stringArgument(in, arguments[0]);
  drawing.strokes.clear();
  const dcl::TileDialog* dialog = withTile(in, arguments[0]);
  return dialog && dialog->picture(drawing.key) ? arguments[0] : lisp::nil;
}

// x y width height colour: a box; or the two ends of a line and its colour.
Value stroke(Interpreter& in, Arguments arguments, bool filled) {
  int v[5];
  for (std::size_t i = 0; i < 5; ++i) v[i] = static_cast<int>(lisp::numberArgument(in, arguments[i]));
  if (filled) v[2] += v[0], v[3] += v[1];
  session(in).drawing.strokes.push_back({v[0], v[1], v[2], v[3], v[4], filled});
  return arguments[4];
}
Value fillImage(Interpreter& in, Arguments arguments) { return stroke(in, arguments, true); }
Value vectorImage(Interpreter& in, Arguments arguments) { return stroke(in, arguments, false); }

// A frame with a cross stands for a slide.
Value slideImage(Interpreter& in, Arguments arguments) {
  int v[4];
  for (std::size_t i = 0; i < 4; ++i) v[i] = static_cast<int>(lisp::numberArgument(in, arguments[i]));
  const int x = v[0], y = v[1], x2 = x + v[2] - 1, y2 = y + v[3] - 1;
  constexpr int kGrey = 8;
  auto& strokes = session(in).drawing.strokes;
  for (const auto& [a, b, c, d] :
       {std::array{x, y, x2, y}, {x2, y, x2, y2}, {x2, y2, x, y2}, {x, y2, x, y}, {x, y, x2, y2}, {x, y2, x2, y}})
    strokes.push_back({a, b, c, d, kGrey, false});
  return arguments[4];
}

Value endImage(Interpreter& in, Arguments) {
  auto& [key, strokes] = session(in).drawing;
  auto& dialogs = session(in).dialogs;
  if (!dialogs.empty() && dialogs.back()->has(key)) dialogs.back()->draw(key, strokes);
  strokes.clear();
  return lisp::nil;
}

// The last pixel, as programs count them.
Value imageSize(Interpreter& in, Value key, bool width) {
  const dcl::TileDialog* dialog = withTile(in, key);
  const dialogues::Picture* picture = dialog ? dialog->picture(std::string(key.text())) : nullptr;
  return picture ? Value::integer((width ? picture->width() : picture->height()) - 1) : lisp::nil;
}
Value imageWidth(Interpreter& in, Arguments arguments) { return imageSize(in, arguments[0], true); }
Value imageHeight(Interpreter& in, Arguments arguments) { return imageSize(in, arguments[0], false); }

Value endAll(Interpreter& in, Arguments) {
  for (const auto& dialog : session(in).dialogs) dialog->finish(0);
  return lisp::nil;
}

constexpr lisp::Builtin kTable[] = {
    {"load_dialog", loadDialog, 1, 1, "(load_dialog fichier)",
     "Lit un fichier DCL; rend son numéro, négatif quand il ne peut être lu."},
    {"unload_dialog", unloadDialog, 1, 1, "(unload_dialog numéro)", "Oublie un fichier DCL."},
    {"new_dialog", newDialog, 2, 4, "(new_dialog nom numéro [action [point]])",
     "Prépare un dialogue; rend T, ou nil quand il n'existe pas."},
    {"start_dialog", startDialog, 0, 0, "(start_dialog)",
     "Montre le dialogue préparé; rend 1, 0 pour un abandon, ou le nombre de done_dialog."},
    {"done_dialog", doneDialog, 0, 1, "(done_dialog [nombre])", "Termine le dialogue en cours."},
    {"term_dialog", endAll, 0, 0, "(term_dialog)", "Abandonne tous les dialogues."},
    {"action_tile", actionTile, 2, 2, "(action_tile clé expression)",
     "L'expression qu'un changement évalue, avec $key et $value."},
    {"set_tile", setTile, 2, 2, "(set_tile clé valeur)", "Fixe la valeur d'un champ."},
    {"get_tile", getTile, 1, 1, "(get_tile clé)", "La valeur d'un champ, ou nil."},
    {"get_attr", getAttribute, 2, 2, "(get_attr clé attribut)", "L'attribut d'un champ tel que le fichier le donne."},
    {"mode_tile", modeTile, 2, 2, "(mode_tile clé mode)", "Permet (0) ou interdit (1) un champ."},
    {"start_list", startList, 1, 3, "(start_list clé [opération [rang]])",
     "Commence à remplir une liste: 1 change, 2 ajoute, 3 remplace."},
    {"add_list", addList, 1, 1, "(add_list texte)", "Un texte de la liste commencée."},
    {"start_image", startImage, 1, 1, "(start_image clé)", "Commence à dessiner dans une image."},
    {"fill_image", fillImage, 5, 5, "(fill_image x y largeur hauteur couleur)",
     "Remplit un rectangle de l'image commencée."},
    {"vector_image", vectorImage, 5, 5, "(vector_image x1 y1 x2 y2 couleur)", "Un trait de l'image commencée."},
    {"slide_image", slideImage, 5, 5, "(slide_image x y largeur hauteur cliché)",
     "La place d'un cliché dans l'image commencée; les clichés ne sont pas lus."},
    {"end_image", endImage, 0, 0, "(end_image)", "Montre ce qui a été dessiné."},
    {"dimx_tile", imageWidth, 1, 1, "(dimx_tile clé)", "Le dernier pixel d'une image en largeur, ou nil."},
    {"dimy_tile", imageHeight, 1, 1, "(dimy_tile clé)", "Le dernier pixel d'une image en hauteur, ou nil."},
    {"end_list", endList, 0, 0, "(end_list)", "Termine la liste commencée."},
};

}  // namespace

std::span<const lisp::Builtin> dclBuiltins() { return kTable; }

}  // namespace atelier
