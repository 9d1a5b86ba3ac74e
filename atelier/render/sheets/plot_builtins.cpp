// etendue-tracee and tracer-feuilles: the extent of entities as they are drawn, and sheet sets.
// The front-end decides what is on a sheet; see frontal/feuilles/plv-feuilles.lsp.
#include "atelier/render/sheets/plot_builtins.h"

#include "atelier/database/objects/stub.h"
#include "atelier/document/document.h"
#include "atelier/document/services.h"
#include "atelier/document/values.h"
#include "atelier/dxf/versions/old_form.h"
#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/evaluator/root.h"
#include "atelier/render/scene/old_form.h"
#include "atelier/render/scene/scene.h"
#include "atelier/render/sheets/atomic_file.h"
#include "atelier/render/sheets/layout_page.h"
#include "atelier/render/sheets/sheets.h"

namespace atelier::render {
namespace {

using lisp::Arguments;
using lisp::Interpreter;
using lisp::Items;
using lisp::Value;

Value extentsDrawn(Interpreter& in, Arguments arguments) {
  std::vector<AcDbStub*> stubs;
  for (const Value item : Items(lisp::listArgument(in, arguments[0])))
    if (AcDbStub* stub = stubOfValue(item); stub && !stub->is(AcDbStub::kErased)) stubs.push_back(stub);
  try {
    const Box box = drawEntities(Document::needed().database(), stubs).bounds();
    if (box.empty()) return lisp::nil;
    return in.list({in.point(box.xMin, box.yMin), in.point(box.xMax, box.yMax)});
  } catch (const Error& error) {
    in.fail(error.what());
  }
}

std::string foundPath(Interpreter& in, Value name) {
  const std::string path(lisp::stringArgument(in, name));
  return in.search().find(path).value_or(path);
}

// ((mark . text) ...)
std::vector<std::pair<std::string, std::string>> textsOf(Interpreter& in, Value list) {
  std::vector<std::pair<std::string, std::string>> texts;
  for (const Value text : Items(lisp::listArgument(in, list))) {
    if (!text.isPair()) in.failType("consp", text);
    texts.emplace_back(lisp::stringArgument(in, text.car()), lisp::stringArgument(in, text.cdr()));
  }
  return texts;
}

// The numbers of a list, at least so many; lists in it are left out.
std::vector<double> numbersOf(Interpreter& in, Value list, std::size_t least) {
  std::vector<double> numbers;
  for (const Value item : Items(lisp::listArgument(in, list)))
    if (!item.isList()) numbers.push_back(lisp::numberArgument(in, item));
  if (numbers.size() < least) in.failType("liste de nombres", list);
  return numbers;
}

// (x1 y1 x2 y2 (x y1 y2) ...)
SheetView viewOf(Interpreter& in, Value list) {
  const auto corners = numbersOf(in, list, 4);
  SheetView view;
  view.window.add(Pt{corners[0], corners[1]});
  view.window.add(Pt{corners[2], corners[3]});
  for (const Value item : Items(list)) {
    if (!item.isPair()) continue;
    const auto cut = numbersOf(in, item, 3);
    view.cuts.push_back({cut[0], cut[1], cut[2]});
  }
  return view;
}

// (x1 y1 x2 y2 dx dy)
Inset insetOf(Interpreter& in, Value list) {
  const auto numbers = numbersOf(in, list, 6);
  Inset inset;
  inset.window.add(Pt{numbers[0], numbers[1]});
  inset.window.add(Pt{numbers[2], numbers[3]});
  inset.shift = {numbers[4], numbers[5]};
  return inset;
}

// (width y1 y2 height (y . label) ...)
std::optional<Graduation> graduationOf(Interpreter& in, Value list) {
  if (list.isNil()) return {};
  const auto numbers = numbersOf(in, list, 4);
  Graduation axis{numbers[0], numbers[1], numbers[2], numbers[3], {}};
  for (const Value item : Items(list))
    if (item.isPair())
      axis.marks.emplace_back(lisp::numberArgument(in, item.car()), lisp::stringArgument(in, item.cdr()));
  return axis;
}

// (height x y angle abscissa ((x1 y1 x2 y2 ["C"]) ...) ((x y text) ...)), C for a match line
std::optional<PlanStrip> planOf(Interpreter& in, Value list) {
  if (list.isNil()) return {};
  const auto numbers = numbersOf(in, list, 5);
  PlanStrip plan{numbers[0], {numbers[1], numbers[2]}, numbers[3], numbers[4], {}, {}};
  for (const Value group : Items(list)) {
    if (!group.isPair()) continue;
    for (const Value item : Items(group)) {
      std::vector<double> places;
      std::string text;
      for (const Value part : Items(lisp::listArgument(in, item)))
        if (part.isString()) text = lisp::stringArgument(in, part);
        else places.push_back(lisp::numberArgument(in, part));
      if (places.size() == 4) plan.lines.push_back({{places[0], places[1]}, {places[2], places[3]}, text == "C"});
      else if (places.size() == 2) plan.labels.push_back({{places[0], places[1]}, text});
      else in.failType("repère de plan", item);
    }
  }
  return plan;
}

// ("L" weight x y x y ...), ("T" height side text x y), ("A" x y x y x y ...), ("B" ...) a blank area
PaperItem itemOf(Interpreter& in, Value list) {
  PaperItem item;
  std::vector<double> numbers;
  std::vector<std::string> words;
  for (const Value part : Items(lisp::listArgument(in, list)))
    if (part.isString()) words.emplace_back(lisp::stringArgument(in, part));
    else numbers.push_back(lisp::numberArgument(in, part));
  const std::string kind = words.empty() ? "" : words[0];
  std::size_t at = 0;
  if (kind == "L" && numbers.size() >= 5) {
    item.size = numbers[at++];
  } else if (kind == "T" && numbers.size() == 4 && words.size() == 2) {
    item.kind = PaperItem::Kind::text, item.text = words[1];
    item.size = numbers[at++], item.side = static_cast<int>(numbers[at++]);
  } else if ((kind == "A" || kind == "B") && numbers.size() >= 6) {
    item.kind = kind == "A" ? PaperItem::Kind::area : PaperItem::Kind::blank;
  } else {
    in.failType("dessin de feuille", list);
  }
  for (; at + 1 < numbers.size(); at += 2) item.points.push_back({numbers[at], numbers[at + 1]});
  return item;
}

// (scale (view ...) ((mark . text) ...) [(inset ...) [graduation [plan [(item ...)]]]])
Sheet sheetOf(Interpreter& in, Value list) {
  std::vector<Value> parts;
  for (const Value item : Items(lisp::listArgument(in, list))) parts.push_back(item);
  if (parts.size() < 3 || parts.size() > 7) in.failType("feuille", list);
  Sheet sheet;
  sheet.scale = lisp::numberArgument(in, parts[0]);
  if (!(sheet.scale > 0)) in.failType("echelle", parts[0]);
  for (const Value view : Items(lisp::listArgument(in, parts[1]))) sheet.views.push_back(viewOf(in, view));
  sheet.texts = textsOf(in, parts[2]);
  parts.resize(7, lisp::nil);
  for (const Value inset : Items(lisp::listArgument(in, parts[3]))) sheet.insets.push_back(insetOf(in, inset));
  sheet.graduation = graduationOf(in, parts[4]);
  sheet.plan = planOf(in, parts[5]);
  for (const Value item : Items(lisp::listArgument(in, parts[6]))) sheet.items.push_back(itemOf(in, item));
  return sheet;
}

// ((key . text) ...): titre auteur sujet couleurs
SetInfo infoOf(Interpreter& in, Value list) {
  SetInfo info;
  for (const Value item : Items(lisp::listArgument(in, list))) {
    if (!item.isPair()) in.failType("consp", item);
    const std::string key(lisp::stringArgument(in, item.car())), text(lisp::stringArgument(in, item.cdr()));
    if (key == "titre") info.title = text;
    else if (key == "auteur") info.author = text;
    else if (key == "sujet") info.subject = text;
    else if (key == "couleurs") info.inks = text == "Gris" ? Inks::greys : text == "Noir" ? Inks::black : Inks::colours;
  }
  return info;
}

Value filledTemplate(Interpreter& in, Arguments arguments) {
  try {
    AtomicFile out{std::string(lisp::stringArgument(in, arguments[2]))};
    const std::string bytes = filled(readTemplate(foundPath(in, arguments[0])), textsOf(in, arguments[1]));
    out.write(bytes.data(), bytes.size());
    out.commit();
  } catch (const Error& error) {
    in.fail(error.what());
  }
  return in.t();
}

Value roomOfTemplate(Interpreter& in, Arguments arguments) {
  const std::string path = foundPath(in, arguments[0]);
  try {
    const Template model = readTemplate(path);
    return in.list({in.point(model.sheet.width(), model.sheet.height()),
                    in.point(model.room.width(), model.room.height()), in.point(model.sheet.xMin, model.sheet.yMin),
                    in.point(model.room.xMin, model.room.yMin)});
  } catch (const Error& error) {
    in.fail(error.what());
  }
}

// From the template's place among the arguments on: template, sheets and what readers are told. Throws Error.
SheetSet setOf(Interpreter& in, Arguments arguments, std::size_t first) {
  const std::string path = foundPath(in, arguments[first]);
  std::vector<Sheet> sheets;
  for (const Value item : Items(lisp::listArgument(in, arguments[first + 1]))) sheets.push_back(sheetOf(in, item));
  return {Document::needed().database(), readTemplate(path), std::move(sheets),
          infoOf(in, lisp::optional(arguments, first + 2))};
}

Value showSheetSet(Interpreter& in, Arguments arguments) {
  if (!sheetPreview()) return lisp::nil;
  try {
    SheetSet sheets = setOf(in, arguments, 0);
    sheetPreview()(sheets);
  } catch (const Error& error) {
    in.fail(error.what());
  }
  return in.t();
}

Value plotSheetSet(Interpreter& in, Arguments arguments) {
  const std::string file(lisp::stringArgument(in, arguments[0]));
  Document& document = Document::needed();
  try {
    SheetSet sheets = setOf(in, arguments, 1);
    plotSheets(sheets, file);
    for (const std::string& warning : sheets.warnings) document.print("\n" + warning);
  } catch (const Error& error) {
    in.fail(error.what());
  }
  return in.t();
}

constexpr lisp::Builtin kTable[] = {
    {"etendue-tracee", extentsDrawn, 1, 1, "(etendue-tracee entités)",
     "Les deux coins de ce que des entités couvrent, textes compris, ou nil."},
    {"modele-feuille", roomOfTemplate, 1, 1, "(modele-feuille fichier)",
     "Largeur et hauteur en mm de la feuille d'un dessin modèle, puis de la place du dessin, puis leurs coins en bas à "
     "gauche."},
    {"modele-remplir", filledTemplate, 3, 3, "(modele-remplir modèle textes fichier)",
     "Écrit un dessin modèle dont les marques sont remplacées par leurs textes, des paires (marque . texte)."},
    {"apercu-feuilles", showSheetSet, 2, 3, "(apercu-feuilles modèle feuilles [infos])",
     "Montre des feuilles dans la fenêtre, page par page, comme tracer-feuilles les trace; nil sans fenêtre."},
    {"tracer-feuilles", plotSheetSet, 3, 4, "(tracer-feuilles pdf modèle feuilles [infos])",
     "Trace des feuilles (échelle vues textes [encarts [graduation [plan [dessins]]]]) en un PDF; une vue est (x1 y1 "
     "x2 y2 (x y1 y2) "
     "...), "
     "coupures derrière, un encart (x1 y1 x2 y2 dx dy), la graduation de la dernière vue (largeur y1 y2 hauteur (y . "
     "texte) ...), le plan au-dessus (hauteur-mm x y angle abscisse ((x1 y1 x2 y2 [\"C\"]) ...) ((x y texte) ...)), "
     "son point "
     "étant au-dessus de l'abscisse, C une coupure; les dessins, en mm depuis le bas de la place, (\"L\" épaisseur x y "
     "...), (\"T\" hauteur 0|1|2 texte x y), (\"A\" x y ...), ou (\"B\" x y ...) qui efface. Les infos sont titre, "
     "auteur, sujet et couleurs (Gris ou Noir), le "
     "texte de <SIGNET> le signet d'une feuille."},
};

// For the command -PLOT.
std::vector<std::string> plotWished(Document& document, const PlotWish& wish) {
  PlotOptions options;
  if (!wish.scale.empty()) options.page.scale = parseScale(wish.scale);
  if (!wish.paper.empty()) options.page.paper = parsePaper(wish.paper);
  if (!wish.window.empty()) options.page.window = parseWindow(wish.window);
  if (!wish.layout.empty() && !equalNoCase(wish.layout, "Model"))
    return plotLayouts(document.database(), {wish.layout}, wish.file, options);
  return plot(WholeScene(document.database()), wish.file, options);
}

}  // namespace

SheetPreview& sheetPreview() {
  static SheetPreview preview;
  return preview;
}

void providePlots() {
  addDrawingBuiltins(kTable);
  plotFunction() = plotWished;
  dxf::provideOldForm(oldForm);
}

}  // namespace atelier::render
