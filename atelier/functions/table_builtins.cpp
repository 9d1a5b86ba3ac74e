// AutoLISP functions on symbol tables and registered applications.
// tblsearch and tblnext give the groups of a record without its handle and marks, as the reference does.
#include "atelier/database/tables/symbol_names.h"
#include "atelier/document/document.h"
#include "atelier/document/groups_as_lists.h"
#include "atelier/document/values.h"
#include "atelier/functions/builtin_tables.h"
#include "hote/acdb.h"

namespace atelier {
namespace {

using lisp::Arguments;
using lisp::Interpreter;
using lisp::Value;

std::string textArgument(Interpreter& interpreter, Value value) {
  if (!value.isString()) interpreter.failType("stringp", value);
  return std::string(value.text());
}

// "BLOCK" names the table of block records.
std::string tableArgument(Interpreter& interpreter, Value value) {
  const std::string name = upperCase(textArgument(interpreter, value));
  const std::string table = name == "BLOCK" ? "BLOCK_RECORD" : name;
  if (!Document::needed().imp().table(table)) interpreter.fail("bad argument value: " + name);
  return table;
}

// The list of a block is that of its BLOCK, which has the base point and the first entity.
Value recordList(Interpreter& interpreter, AcDbStub& stub) {
  AcDbImpDatabase& db = *stub.database;
  AcDbStub* source = &stub;
  const auto ends = db.blockEnds.find(&stub);
  if (ends != db.blockEnds.end() && ends->second.begin) source = ends->second.begin;
  const GroupList all = groupsOf(*source, {});
  GroupList shown;
  for (std::size_t i = 0; i < all.size(); ++i) {
    const int code = all[i].code();
    const bool hidden = code == 5 || code == 105 || code == 100 || code == 102 || (code >= 330 && code < 400) ||
                        (code == 8 && source != &stub) || (source != &stub && (code == 3 || code == 1));
    if (!hidden) shown.keep(all[i]);
  }
  return listOfGroups(interpreter, source, shown).cdr();
}

Value tblsearch(Interpreter& interpreter, Arguments arguments) {
  AcDbStub* stub = Document::needed().imp().tableRecord(tableArgument(interpreter, arguments[0]),
                                                        textArgument(interpreter, arguments[1]));
  return stub ? recordList(interpreter, *stub) : lisp::nil;
}

Value tblobjname(Interpreter& interpreter, Arguments arguments) {
  AcDbImpDatabase& db = Document::needed().imp();
  const std::string table = tableArgument(interpreter, arguments[0]);
  AcDbStub* stub = db.tableRecord(table, textArgument(interpreter, arguments[1]));
  if (!stub) return lisp::nil;
  // For a block the AutoLISP reference gives the BLOCK entity; its owner (330) is the record.
  const auto ends = db.blockEnds.find(stub);
  return entityValue(interpreter, ends != db.blockEnds.end() && ends->second.begin ? ends->second.begin : stub);
}

// The place reached in each table is kept in a variable of the interpreter, so that each document has its own.
Value tblnext(Interpreter& interpreter, Arguments arguments) {
  AcDbImpDatabase& db = Document::needed().imp();
  const std::string table = tableArgument(interpreter, arguments[0]);
  const std::string place = "*TBLNEXT-" + table + "*";
  const bool rewind = arguments.size() > 1 && !arguments[1].isNil();
  const Value kept = interpreter.get(place);
  std::size_t i = !rewind && kept.isInteger() ? static_cast<std::size_t>(kept.integer()) : 0;
  const std::vector<AcDbStub*>& records = *db.table(table)->children;
  while (i < records.size() && records[i]->is(AcDbStub::kErased)) ++i;
  interpreter.set(place, Value::integer(static_cast<std::int32_t>(i + 1)));
  return i < records.size() ? recordList(interpreter, *records[i]) : lisp::nil;
}

Value regapp(Interpreter& interpreter, Arguments arguments) {
  const std::string name = textArgument(interpreter, arguments[0]);
  return acdbRegApp(toWide(name).c_str()) == RTNORM ? arguments[0] : lisp::nil;
}

Value snvalid(Interpreter& interpreter, Arguments arguments) {
  return interpreter.boolean(isSymbolName(textArgument(interpreter, arguments[0])));
}

constexpr lisp::Builtin kTable[] = {
    {"tblsearch", tblsearch, 2, 3, "(tblsearch table nom [suite])", "Enregistrement d'une table de symboles, ou nil."},
    {"tblnext", tblnext, 1, 2, "(tblnext table [début])", "Enregistrement suivant d'une table de symboles."},
    {"tblobjname", tblobjname, 2, 2, "(tblobjname table nom)", "Nom d'objet d'un enregistrement de table, ou nil."},
    {"regapp", regapp, 1, 1, "(regapp application)",
     "Enregistre une application pour ses données étendues; nil si elle l'est déjà."},
    {"snvalid", snvalid, 1, 2, "(snvalid nom [barre])", "T si une table de symboles accepte ce nom."},
};

}  // namespace

std::span<const lisp::Builtin> tableBuiltins() { return kTable; }

}  // namespace atelier
