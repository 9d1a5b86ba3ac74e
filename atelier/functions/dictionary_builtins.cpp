// AutoLISP functions on dictionaries.
// dictremove removes an entry without erasing the object; objects without an owner are erased on saving.
#include "atelier/document/document.h"
#include "atelier/document/groups_as_lists.h"
#include "atelier/document/values.h"
#include "atelier/functions/builtin_tables.h"
#include "hote/dbdict.h"

namespace atelier {
namespace {

using lisp::Arguments;
using lisp::Interpreter;
using lisp::Value;

AcDbObjectId dictionaryArgument(Interpreter& interpreter, Value value) {
  AcDbStub* stub = stubOfValue(value);
  if (!stub) interpreter.failType("lentityp", value);
  const AcDbObjectPointer<AcDbDictionary> dictionary{AcDbObjectId(stub)};
  return dictionary.openStatus() == Acad::eOk ? AcDbObjectId(stub) : AcDbObjectId();
}

std::wstring keyArgument(Interpreter& interpreter, Value value) {
  if (!value.isString()) interpreter.failType("stringp", value);
  return toWide(value.text());
}

Value namedobjdict(Interpreter& interpreter, Arguments) {
  Document& document = Document::needed();
  document.imp().namedDictionary("ACAD_GROUP");  // makes the root dictionary, too
  return entityValue(interpreter, document.imp().rootDictionary);
}

Value entry(Interpreter& interpreter, AcDbObjectId id) {
  AcDbStub* stub = id;
  return stub ? listOfGroups(interpreter, stub, groupsOf(*stub, {})) : lisp::nil;
}

Value dictsearch(Interpreter& interpreter, Arguments arguments) {
  const AcDbObjectPointer<AcDbDictionary> dictionary(dictionaryArgument(interpreter, arguments[0]));
  AcDbObjectId id;
  if (dictionary.openStatus() != Acad::eOk ||
      dictionary->getAt(keyArgument(interpreter, arguments[1]).c_str(), id) != Acad::eOk)
    return lisp::nil;
  return entry(interpreter, id);
}

Value dictnext(Interpreter& interpreter, Arguments arguments) {
  const AcDbObjectPointer<AcDbDictionary> dictionary(dictionaryArgument(interpreter, arguments[0]));
  if (dictionary.openStatus() != Acad::eOk) return lisp::nil;
  const std::string place = "*DICTNEXT-" + handleText(dictionary->objectId().handle().value()) + "*";
  const bool rewind = arguments.size() > 1 && !arguments[1].isNil();
  const Value kept = interpreter.get(place);
  const int i = !rewind && kept.isInteger() ? kept.integer() : 0;
  const AcArray<AcString> keys = dictionary->keys();
  interpreter.set(place, Value::integer(i + 1));
  AcDbObjectId id;
  if (i >= keys.length() || dictionary->getAt(keys[i].kACharPtr(), id) != Acad::eOk) return lisp::nil;
  return entry(interpreter, id);
}

Value dictadd(Interpreter& interpreter, Arguments arguments) {
  AcDbStub* stub = stubOfValue(arguments[2]);
  const AcDbObjectPointer<AcDbDictionary> dictionary(dictionaryArgument(interpreter, arguments[0]), AcDb::kForWrite);
  const std::wstring key = keyArgument(interpreter, arguments[1]);
  if (!stub || dictionary.openStatus() != Acad::eOk || dictionary->has(key.c_str())) return lisp::nil;
  const AcDbObjectPointer<AcDbObject> object(AcDbObjectId(stub), AcDb::kForWrite);
  AcDbObjectId id;
  if (object.openStatus() != Acad::eOk || dictionary->setAt(key.c_str(), object.object(), id) != Acad::eOk)
    return lisp::nil;
  object->setOwnerId(dictionary->objectId());
  object->addPersistentReactor(dictionary->objectId());
  return arguments[2];
}

Value dictremove(Interpreter& interpreter, Arguments arguments) {
  const AcDbObjectPointer<AcDbDictionary> dictionary(dictionaryArgument(interpreter, arguments[0]), AcDb::kForWrite);
  AcDbObjectId id;
  const std::wstring key = keyArgument(interpreter, arguments[1]);
  if (dictionary.openStatus() != Acad::eOk || dictionary->getAt(key.c_str(), id) != Acad::eOk) return lisp::nil;
  dictionary->remove(key.c_str());
  return entityValue(interpreter, id);
}

Value dictrename(Interpreter& interpreter, Arguments arguments) {
  const AcDbObjectId owner = dictionaryArgument(interpreter, arguments[0]);
  const std::wstring from = keyArgument(interpreter, arguments[1]), to = keyArgument(interpreter, arguments[2]);
  const AcDbObjectPointer<AcDbDictionary> dictionary(owner, AcDb::kForWrite);
  AcDbObjectId id;
  if (dictionary.openStatus() != Acad::eOk || dictionary->has(to.c_str()) ||
      dictionary->getAt(from.c_str(), id) != Acad::eOk)
    return lisp::nil;
  Record* record = AcDbImpObject::of(dictionary.object()).writable();
  for (std::size_t i = 0; i + 1 < record->groups.size(); ++i)
    if (record->groups[i].code() == 3 && record->groups[i + 1].handle() == id.handle().value())
      record->groups[i] = Group::text(3, toUtf8(to));
  return arguments[2];
}

constexpr lisp::Builtin kTable[] = {
    {"namedobjdict", namedobjdict, 0, 0, "(namedobjdict)", "Dictionnaire des objets nommés du dessin."},
    {"dictsearch", dictsearch, 2, 3, "(dictsearch dictionnaire clé [suite])",
     "Groupes de l'entrée d'un dictionnaire, ou nil."},
    {"dictnext", dictnext, 1, 2, "(dictnext dictionnaire [début])", "Entrée suivante d'un dictionnaire."},
    {"dictadd", dictadd, 3, 3, "(dictadd dictionnaire clé objet)",
     "Ajoute un objet à un dictionnaire; rend l'objet, ou nil."},
    {"dictremove", dictremove, 2, 2, "(dictremove dictionnaire clé)",
     "Retire une entrée d'un dictionnaire; rend son objet, ou nil."},
    {"dictrename", dictrename, 3, 3, "(dictrename dictionnaire ancien nouveau)",
     "Renomme une entrée d'un dictionnaire."},
};

}  // namespace

std::span<const lisp::Builtin> dictionaryBuiltins() { return kTable; }

}  // namespace atelier
