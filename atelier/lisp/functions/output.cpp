// Printing, to the console or to a file.
#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/evaluator/file_object.h"
#include "atelier/lisp/evaluator/printer.h"
#include "atelier/lisp/functions/families.h"
#include "atelier/lisp/text/encoding.h"

namespace atelier::lisp {
namespace {

void emit(Interpreter& in, Value file, std::string_view text) {
  if (!file) return in.console().write(text);
  FileObject& out = fileArgument(in, file, false);
  failWriting(in, out.path(), out.write(text));
}

Value princFunction(Interpreter& in, Arguments arguments) {
  if (arguments.empty()) return in.quiet();
  emit(in, optional(arguments, 1), princ(in, arguments[0]));
  return arguments[0];
}

Value prin1Function(Interpreter& in, Arguments arguments) {
  if (arguments.empty()) return in.quiet();
  emit(in, optional(arguments, 1), prin1(in, arguments[0]));
  return arguments[0];
}

Value printFunction(Interpreter& in, Arguments arguments) {
  if (arguments.empty()) return in.quiet();
  emit(in, optional(arguments, 1), "\n" + prin1(in, arguments[0]) + " ");
  return arguments[0];
}

Value prompt(Interpreter& in, Arguments arguments) {
  in.console().write(stringArgument(in, arguments[0]));
  return nil;
}

Value terpri(Interpreter& in, Arguments) {
  in.console().write("\n");
  return nil;
}

Value writeLine(Interpreter& in, Arguments arguments) {
  emit(in, optional(arguments, 1), std::string(stringArgument(in, arguments[0])) + "\n");
  return arguments[0];
}

Value writeChar(Interpreter& in, Arguments arguments) {
  const std::int32_t code = integerArgument(in, arguments[0]);
  if (code < 0 || code > 0x10ffff) in.fail("bad argument value: character code: " + prin1(arguments[0]));
  std::string text;
  appendUtf8(text,
             code < 256 ? windows1252CodePoint(static_cast<unsigned char>(code)) : static_cast<std::uint32_t>(code));
  emit(in, optional(arguments, 1), text);
  return arguments[0];
}

constexpr Builtin kTable[] = {
    {"princ", princFunction, 0, 2, "(princ [valeur [fichier]])", "Écrit une valeur pour qu'on la lise."},
    {"prin1", prin1Function, 0, 2, "(prin1 [valeur [fichier]])", "Écrit une valeur pour que read la relise."},
    {"print", printFunction, 0, 2, "(print [valeur [fichier]])", "Écrit à la ligne une valeur suivie d'un espace."},
    {"prompt", prompt, 1, 1, "(prompt chaîne)", "Écrit un message sur la ligne de commande."},
    {"terpri", terpri, 0, 0, "(terpri)", "Passe à la ligne."},
    {"write-line", writeLine, 1, 2, "(write-line chaîne [fichier])", "Écrit une ligne."},
    {"write-char", writeChar, 1, 2, "(write-char code [fichier])", "Écrit un caractère."},
};

}  // namespace

std::span<const Builtin> outputFamily() { return kTable; }

}  // namespace atelier::lisp
