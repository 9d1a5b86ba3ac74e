// Lists of the front-end as sheets; see frontal/feuilles/plv-feuilles.lsp.
#include "atelier/render/sheets/sheet_arguments.h"

#include "atelier/base/files.h"
#include "atelier/database/objects/stub.h"
#include "atelier/document/document.h"
#include "atelier/document/values.h"
#include "atelier/lisp/evaluator/arguments.h"

namespace atelier::render {

using lisp::Interpreter;
using lisp::Items;
using lisp::Value;

namespace {

// The numbers of a list, at least so many; lists and entities in it are left out.
std::vector<double> numbersOf(Interpreter& in, Value list, std::size_t least) {
  std::vector<double> numbers;
  for (const Value item : Items(lisp::listArgument(in, list)))
    if (!item.isList() && !item.isEntity()) numbers.push_back(lisp::numberArgument(in, item));
  if (numbers.size() < least) in.failType("liste de nombres", list);
  return numbers;
}

// (x1 y1 x2 y2 (x y1 y2) ... entity ...)
SheetView viewOf(Interpreter& in, Value list) {
  const auto corners = numbersOf(in, list, 4);
  SheetView view;
  view.window.add(Pt{corners[0], corners[1]});
  view.window.add(Pt{corners[2], corners[3]});
  for (const Value item : Items(list)) {
    if (const AcDbStub* entity = stubOfValue(item)) view.hidden.insert(entity->handle);
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

// ("L" weight x y x y ...), ("T" height side text x y [angle]), ("A" x y x y x y ...), ("B" ...) a blank area, ("I" file x1 y1 x2 y2)
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
  } else if (kind == "T" && (numbers.size() == 4 || numbers.size() == 5) && words.size() == 2) {
    item.kind = PaperItem::Kind::text, item.text = words[1];
    item.size = numbers[at++], item.side = static_cast<int>(numbers[at++]);
    if (numbers.size() == 5) item.angle = numbers[4];
  } else if ((kind == "A" || kind == "B") && numbers.size() >= 6) {
    item.kind = kind == "A" ? PaperItem::Kind::area : PaperItem::Kind::blank;
  } else if (kind == "I" && numbers.size() == 4 && words.size() == 2) {
    item.kind = PaperItem::Kind::picture;
    item.text = fileBeside(Document::needed().path(), words[1]).value_or(words[1]);
  } else {
    in.failType("dessin de feuille", list);
  }
  for (; at + 1 < numbers.size(); at += 2) item.points.push_back({numbers[at], numbers[at + 1]});
  return item;
}

}  // namespace

std::vector<std::pair<std::string, std::string>> textsOf(Interpreter& in, Value list) {
  std::vector<std::pair<std::string, std::string>> texts;
  for (const Value text : Items(lisp::listArgument(in, list))) {
    if (!text.isPair()) in.failType("consp", text);
    texts.emplace_back(lisp::stringArgument(in, text.car()), lisp::stringArgument(in, text.cdr()));
  }
  return texts;
}

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

SetInfo infoOf(Interpreter& in, Value list) {
  SetInfo info;
  for (const Value item : Items(lisp::listArgument(in, list))) {
    if (!item.isPair()) in.failType("consp", item);
    const std::string key(lisp::stringArgument(in, item.car())), text(lisp::stringArgument(in, item.cdr()));
    if (key == "titre") info.title = text;
    else if (key == "auteur") info.author = text;
    else if (key == "sujet") info.subject = text;
    else if (key == "police") info.font.file = text;
    else if (key == "couleurs") info.colours = text;
  }
  return info;
}

}  // namespace atelier::render
