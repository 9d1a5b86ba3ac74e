// Opening, closing and reading files; findfile and load.
#include "atelier/base/files.h"
#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/evaluator/file_object.h"
#include "atelier/lisp/evaluator/printer.h"
#include "atelier/lisp/evaluator/session.h"
#include "atelier/lisp/functions/families.h"
#include "atelier/lisp/text/encoding.h"

namespace atelier::lisp {

Value Interpreter::load(const std::string& path) {
  const auto bytes = readWholeFile(path);
  if (!bytes) fail("LOAD failed: \"" + path + "\"");
  return runForms(decodeFile(*bytes), path);
}

namespace {

// (open nom mode [codage]): nil when the file cannot be opened.
Value openFile(Interpreter& in, Arguments arguments) {
  const std::string path = nativePath(stringArgument(in, arguments[0]));
  const std::string mode = lowerCase(stringArgument(in, arguments[1]));
  if (mode != "r" && mode != "w" && mode != "a") in.fail("bad argument value: open mode: " + prin1(arguments[1]));
  const Value encoding = optional(arguments, 2);
  const bool utf8 = encoding && lowerCase(stringArgument(in, encoding)).starts_with("utf8");
  auto file = FileObject::open(mode == "r" ? pathInAnyCase(path).value_or(path) : path, mode[0], utf8);
  return file ? in.file(std::move(file)) : nil;
}

Value closeFile(Interpreter& in, Arguments arguments) {
  if (!arguments[0].isFile()) in.failType("FILE", arguments[0]);
  FileObject& file = *static_cast<FileObject*>(arguments[0].selection().get());
  failWriting(in, file.path(), file.close());
  return nil;
}

Value readLine(Interpreter& in, Arguments arguments) {
  const Value file = optional(arguments, 0);
  const auto line = file ? fileArgument(in, file, true).readLine() : in.console().readLine();
  return line ? in.string(*line) : nil;
}

// A line of the console is given character by character, its end as 10.
Value readChar(Interpreter& in, Arguments arguments) {
  if (const Value file = optional(arguments, 0)) {
    const auto code = fileArgument(in, file, true).readCharacter();
    return code ? Value::integer(static_cast<std::int32_t>(*code)) : nil;
  }
  std::string& pending = in.session().pendingInput;
  if (pending.empty()) {
    const auto line = in.console().readLine();
    if (!line) return nil;
    pending = *line + "\n";
  }
  std::size_t length = 0;
  const std::uint32_t code = nextCodePoint(pending, length);
  pending.erase(0, length);
  return Value::integer(static_cast<std::int32_t>(code));
}

Value findfile(Interpreter& in, Arguments arguments) {
  const auto found = in.search().find(stringArgument(in, arguments[0]));
  return found ? in.string(*found) : nil;
}

// Without extension ".lsp" is tried first.
std::optional<std::string> findProgram(Interpreter& in, std::string_view name) {
  const std::size_t slash = name.find_last_of("/\\");
  const std::string_view base = slash == std::string_view::npos ? name : name.substr(slash + 1);
  if (base.find('.') == std::string_view::npos)
    if (auto found = in.search().findProgram(std::string(name) + ".lsp")) return found;
  return in.search().findProgram(name);
}

// For a missing file the result is the second argument, or its value when it is a function.
Value loadFunction(Interpreter& in, Arguments arguments) {
  const std::string_view name = stringArgument(in, arguments[0]);
  if (const auto path = findProgram(in, name)) {
    const std::string refusal = in.search().refusal(*path);
    if (!refusal.empty()) in.fail(refusal);
    return in.load(*path);
  }
  if (arguments.size() < 2) in.fail("LOAD failed: " + prin1(arguments[0]));
  const Value otherwise = arguments[1];
  if (otherwise.isPair() && !Interpreter::isFunction(otherwise)) return in.eval(otherwise);
  return Interpreter::isFunction(otherwise) ? in.apply(otherwise, {}) : otherwise;
}

constexpr Builtin kTable[] = {
    {"open", openFile, 2, 3, "(open nom mode [codage])",
     "Ouvre un fichier en lecture \"r\", écriture \"w\" ou ajout \"a\" ; codage \"utf8\" ou ANSI."},
    {"close", closeFile, 1, 1, "(close fichier)", "Ferme un fichier."},
    {"read-line", readLine, 0, 1, "(read-line [fichier])", "Lit une ligne, nil à la fin."},
    {"read-char", readChar, 0, 1, "(read-char [fichier])", "Lit un caractère et renvoie son code."},
    {"findfile", findfile, 1, 1, "(findfile nom)", "Le chemin complet d'un fichier du chemin de recherche, ou nil."},
    {"load", loadFunction, 1, 2, "(load nom [sinon])", "Charge un fichier AutoLISP."},
};

}  // namespace

std::span<const Builtin> fileFamily() { return kTable; }

}  // namespace atelier::lisp
