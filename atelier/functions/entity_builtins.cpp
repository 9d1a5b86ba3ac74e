// AutoLISP functions on entities: reading, changing, making, walking.
// Signatures and results are those of the AutoLISP reference.
#include <algorithm>

#include "atelier/database/lists/entity_walk.h"
#include "atelier/document/document.h"
#include "atelier/document/groups_as_lists.h"
#include "atelier/document/values.h"
#include "atelier/functions/builtin_tables.h"
#include "atelier/lisp/evaluator/arguments.h"
#include "hote/acdb.h"
#include "hote/dbents.h"

namespace atelier {
namespace {

using lisp::Arguments;
using lisp::Interpreter;
using lisp::Value;

AcDbStub* entityStub(Interpreter& interpreter, Value value) {
  AcDbStub* stub = stubOfValue(value);
  if (!stub) interpreter.failType("lentityp", value);
  return stub;
}

Value entget(Interpreter& interpreter, Arguments arguments) {
  AcDbStub* stub = entityStub(interpreter, arguments[0]);
  if (stub->is(AcDbStub::kErased)) return lisp::nil;
  std::vector<std::string> applications;
  if (arguments.size() > 1)
    for (const Value name : lisp::Items(arguments[1]))
      if (name.isString()) applications.emplace_back(name.text());
  return listOfGroups(interpreter, stub, groupsOf(*stub, applications));
}

Value entmod(Interpreter& interpreter, Arguments arguments) {
  AcDbStub* stub = nullptr;
  std::vector<Group> groups = groupsOfList(interpreter, arguments[0], &stub);
  if (!stub || stub->is(AcDbStub::kErased)) return lisp::nil;
  return changeObject(*stub, std::move(groups)) ? arguments[0] : lisp::nil;
}

Value entupd(Interpreter& interpreter, Arguments arguments) {
  return entityStub(interpreter, arguments[0])->is(AcDbStub::kErased) ? lisp::nil : arguments[0];
}

Value entmake(Interpreter& interpreter, Arguments arguments) {
  if (arguments.empty() || arguments[0].isNil()) return lisp::nil;
  Document& document = Document::needed();
  const auto result = document.entityMaker().make(groupsOfList(interpreter, arguments[0], nullptr));
  if (!result.ok) return lisp::nil;
  // At the end of a block definition the result is the block's name.
  if (result.stub && document.imp().typeName(*result.stub) == "BLOCK_RECORD")
    return interpreter.string(document.imp().recordName(*result.stub));
  return arguments[0];
}

Value entmakex(Interpreter& interpreter, Arguments arguments) {
  Document& document = Document::needed();
  std::vector<Group> groups = groupsOfList(interpreter, arguments[0], nullptr);
  if (!groups.empty() && !groups.front().text().empty()) {
    const RecordFormat* format = formatOf(upperCase(groups.front().text()));
    const auto marked = [&groups](std::string_view mark) {
      return std::any_of(groups.begin(), groups.end(),
                         [mark](const Group& g) { return g.code() == 100 && (mark.empty() || g.text() == mark); });
    };
    // A type that the host doesn't know is judged by its subclass marks; without marks it is a misspelt one.
    const bool entity = format ? !format->subclasses.empty() && format->subclasses.front() == "AcDbEntity"
                               : marked("AcDbEntity") || !marked({});
    const bool object = !entity && (!format || tableForType(format->type).empty());
    if (object) return entityValue(interpreter, makeLooseObject(document.imp(), std::move(groups)));
  }
  return entityValue(interpreter, document.entityMaker().make(std::move(groups)).stub);
}

Value entnext(Interpreter& interpreter, Arguments arguments) {
  AcDbStub* after = arguments.empty() || arguments[0].isNil() ? nullptr : entityStub(interpreter, arguments[0]);
  return entityValue(interpreter, nextEntity(Document::needed().imp(), after));
}

Value entlast(Interpreter& interpreter, Arguments) {
  return entityValue(interpreter, lastEntity(Document::needed().imp()));
}

Value entdel(Interpreter& interpreter, Arguments arguments) {
  ads_name name;
  name[0] = reinterpret_cast<std::int64_t>(entityStub(interpreter, arguments[0]));
  name[1] = 0;
  return acdbEntDel(name) == RTNORM ? arguments[0] : lisp::nil;
}

Value handent(Interpreter& interpreter, Arguments arguments) {
  if (!arguments[0].isString()) interpreter.failType("stringp", arguments[0]);
  AcDbStub* stub = Document::needed().imp().stubOf(parseHandle(arguments[0].text()).value_or(0));
  return entityValue(interpreter, stub);  // an erased one too: entdel brings it back
}

// Corners of the text's box in its own frame, as the reference gives them.
Value textbox(Interpreter& interpreter, Arguments arguments) {
  const std::vector<Group> groups = groupsOfList(interpreter, arguments[0], nullptr);
  AcDbText text;
  for (const Group& group : groups) {
    if (group.code() == 1) text.setTextString(toWide(group.text()).c_str());
    else if (group.code() == 40) text.setHeight(group.real());
    else if (group.code() == 41) text.setWidthFactor(group.real());
    else if (group.code() == 7)
      text.setTextStyle(AcDbObjectId(Document::needed().imp().tableRecord("STYLE", group.text())));
  }
  if (text.height() == 0) text.setHeight(Document::needed().imp().header.real("$TEXTSIZE", 2.5));
  AcDbExtents box;
  if (text.getGeomExtents(box) != Acad::eOk) return lisp::nil;
  return interpreter.list({pointValue(interpreter, box.minPoint()), pointValue(interpreter, box.maxPoint())});
}

constexpr lisp::Builtin kTable[] = {
    {"entget", entget, 1, 2, "(entget entité [applications])",
     "Liste des groupes d'un objet, avec les données étendues des applications nommées."},
    {"entmod", entmod, 1, 1, "(entmod liste)", "Modifie l'objet nommé par le groupe -1; rend la liste, ou nil."},
    {"entupd", entupd, 1, 1, "(entupd entité)", "Met à jour l'affichage d'une entité."},
    {"entmake", entmake, 0, 1, "(entmake [liste])",
     "Crée une entité, un enregistrement de table ou une partie de bloc; rend la liste, ou nil."},
    {"entmakex", entmakex, 1, 1, "(entmakex liste)", "Comme entmake; rend le nom de l'objet créé, ou nil."},
    {"entnext", entnext, 0, 1, "(entnext [entité])", "Entité suivante du dessin, attributs et sommets compris."},
    {"entlast", entlast, 0, 0, "(entlast)", "Dernière entité principale du dessin."},
    {"entdel", entdel, 1, 1, "(entdel entité)", "Efface une entité, ou la rétablit si elle était effacée."},
    {"handent", handent, 1, 1, "(handent handle)", "Objet d'un identifiant hexadecimal, ou nil."},
    {"textbox", textbox, 1, 1, "(textbox liste)", "Coins du rectangle d'un texte donné par ses groupes."},
};

}  // namespace

std::span<const lisp::Builtin> entityBuiltins() { return kTable; }

}  // namespace atelier
