// etendue-tracee and tracer-feuilles: the extent of entities as they are drawn, and sheet sets.
// The front-end decides what is on a sheet; see frontal/feuilles/plv-feuilles.lsp.
#include "atelier/render/sheets/plot_builtins.h"

#include "atelier/base/files.h"
#include "atelier/database/objects/layouts.h"
#include "atelier/database/objects/stub.h"
#include "atelier/document/document.h"
#include "atelier/document/services.h"
#include "atelier/document/values.h"
#include "atelier/dxf/versions/old_form.h"
#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/evaluator/root.h"
#include "atelier/render/scene/old_form.h"
#include "atelier/render/scene/picture_files.h"
#include "atelier/render/scene/scene.h"
#include "atelier/render/sheets/atomic_file.h"
#include "atelier/render/sheets/ink_tables.h"
#include "atelier/render/sheets/layout_page.h"
#include "atelier/render/sheets/sheet_arguments.h"
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
    lisp::ValueStack measures(in);
    measures.push(in.point(model.sheet.width(), model.sheet.height()));
    measures.push(in.point(model.room.width(), model.room.height()));
    measures.push(in.point(model.sheet.xMin, model.sheet.yMin));
    measures.push(in.point(model.room.xMin, model.room.yMin));
    if (!model.logo.empty()) {
      measures.push(in.point(model.logo.width(), model.logo.height()));
      measures.push(in.point(model.logo.xMin, model.logo.yMin));
    }
    return measures.list();
  } catch (const Error& error) {
    in.fail(error.what());
  }
}

Value sizeOfPicture(Interpreter& in, Arguments arguments) {
  const std::string name(lisp::stringArgument(in, arguments[0]));
  const auto file = fileBeside(Document::needed().path(), name);
  std::string reason = "introuvable";
  const auto picture = file ? pictureOf(*file, reason) : nullptr;
  return picture ? in.point(picture->width, picture->height) : in.string(reason);
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

// A layout names its table; other programs read it there, too.
Value plotTable(Interpreter& in, Arguments arguments) {
  Document& document = Document::needed();
  AcDbStub& space = *static_cast<AcDbStub*>(document.database().currentSpaceId());
  AcDbStub* const layout = layoutOf(space);
  if (!arguments.empty()) {
    const std::string name(lisp::stringArgument(in, arguments[0]));
    AcDbObject* object = nullptr;
    if (!layout || acdbOpenObject(object, AcDbObjectId(layout), AcDb::kForWrite) != Acad::eOk) return lisp::nil;
    AcDbImpObject::of(object).setText(kTableField, name);
    object->close();
  }
  return in.string(tableOf(space));
}

Value plotTables(Interpreter& in, Arguments) {
  lisp::ValueStack names(in);
  for (const std::string& name : inkTables()) names.push(in.string(name));
  return names.list();
}

constexpr lisp::Builtin kTable[] = {
    {"table-de-trace", plotTable, 0, 1, "(table-de-trace [nom])",
     "La table de tracé que nomme la présentation montrée, \"\" sans table; avec un nom, la change."},
    {"tables-de-trace", plotTables, 0, 0, "(tables-de-trace)", "Les noms des tables de tracé connues."},
    {"etendue-tracee", extentsDrawn, 1, 1, "(etendue-tracee entités)",
     "Les deux coins de ce que des entités couvrent, textes compris, ou nil."},
    {"modele-feuille", roomOfTemplate, 1, 1, "(modele-feuille fichier)",
     "Largeur et hauteur en mm de la feuille d'un dessin modèle, puis de la place du dessin, puis leurs coins en bas à "
     "gauche; avec une place pour un logo aussi les siens."},
    {"taille-image", sizeOfPicture, 1, 1, "(taille-image fichier)",
     "Largeur et hauteur en points d'une image, que le dessin nomme ainsi; une phrase quand elle ne se lit pas."},
    {"modele-remplir", filledTemplate, 3, 3, "(modele-remplir modèle textes fichier)",
     "Écrit un dessin modèle dont les marques sont remplacées par leurs textes, des paires (marque . texte)."},
    {"apercu-feuilles", showSheetSet, 2, 3, "(apercu-feuilles modèle feuilles [infos])",
     "Montre des feuilles dans la fenêtre, page par page, comme tracer-feuilles les trace; nil sans fenêtre."},
    {"tracer-feuilles", plotSheetSet, 3, 4, "(tracer-feuilles pdf modèle feuilles [infos])",
     "Trace des feuilles (échelle vues textes [encarts [graduation [plan [dessins]]]]) en un PDF; une vue est (x1 y1 "
     "x2 y2 (x y1 y2) ... entité ...), coupures derrière et ce qu'elle ne montre pas, un encart (x1 y1 x2 y2 dx dy), "
     "la graduation de la dernière vue (largeur y1 y2 hauteur (y . "
     "texte) ...), le plan au-dessus (hauteur-mm x y angle abscisse ((x1 y1 x2 y2 [\"C\"]) ...) ((x y texte) ...)), "
     "son point "
     "étant au-dessus de l'abscisse, C une coupure; les dessins, en mm depuis le bas de la place, (\"L\" épaisseur x y "
     "...), (\"T\" hauteur 0|1|2 texte x y [angle]), (\"A\" x y ...), ou (\"B\" x y ...) qui efface, ou (\"I\" "
     "image x1 y1 x2 y2). Les infos sont titre, "
     "auteur, sujet, couleurs (Gris, Noir ou une table de tracé) et police des textes de la feuille, le "
     "texte de <SIGNET> le signet d'une feuille."},
};

// For the command -PLOT.
std::vector<std::string> plotWished(Document& document, const PlotWish& wish) {
  PlotOptions options;
  if (!wish.scale.empty()) options.page.scale = parseScale(wish.scale);
  if (!wish.paper.empty()) options.page.paper = parsePaper(wish.paper);
  if (!wish.window.empty()) options.page.window = parseWindow(wish.window);
  if (!wish.table.empty()) options.inks = inksOfTable(wish.table);
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
