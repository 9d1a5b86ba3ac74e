// texte-ecrire and fichier-remplacer: files of the front-end, written completely or not at all; classeur-lire.
#include <cerrno>
#include <cstdio>

#include "atelier/base/error.h"
#include "atelier/dxf/writing/replaced_file.h"
#include "atelier/exchange/exchange.h"
#include "atelier/exchange/workbook_read.h"
#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/evaluator/file_object.h"
#include "atelier/lisp/evaluator/root.h"
#include "atelier/lisp/text/encoding.h"

namespace atelier::exchange {
namespace {

using lisp::Arguments;
using lisp::Interpreter;
using lisp::Value;

Value writeText(Interpreter& in, Arguments arguments) {
  const std::string path = lisp::nativePath(lisp::stringArgument(in, arguments[0]));
  const bool utf8 = arguments.size() > 2 && !arguments[2].isNil();
  std::string text;
  for (const Value line : lisp::Items(lisp::listArgument(in, arguments[1]))) {
    const std::string given(lisp::stringArgument(in, line));
    text += (utf8 ? given : lisp::toWindows1252(given)) + "\n";
  }
  try {
    dxf::ReplacedFile file(path);
    file.write(text);
    file.keep();
  } catch (const Error& error) {
    in.fail(error.what());
  }
  return in.t();
}

// The other file is there at every moment, in its old or its new form.
Value replaceFile(Interpreter& in, Arguments arguments) {
  const std::string fresh = lisp::nativePath(lisp::stringArgument(in, arguments[0]));
  const std::string path = lisp::nativePath(lisp::stringArgument(in, arguments[1]));
  if (dxf::isWriteProtected(path)) in.fail(path + ": " + dxf::kWriteProtected);
  if (std::rename(fresh.c_str(), path.c_str()) != 0)
    in.fail(path + ": remplacement impossible: " + systemReason(errno));
  return in.t();
}

Value readWorkbookLines(Interpreter& in, Arguments arguments) {
  lisp::ValueStack lines(in);
  try {
    for (const std::string& line : readWorkbook(lisp::nativePath(lisp::stringArgument(in, arguments[0]))))
      lines.push(in.string(line));
  } catch (const Error& error) {
    in.fail(error.what());
  }
  return lines.list();
}

constexpr lisp::Builtin kTable[] = {
    {"classeur-lire", readWorkbookLines, 1, 1, "(classeur-lire fichier)",
     "La première feuille d'un classeur .xlsx en lignes, les cellules séparées par des points-virgules."},
    {"texte-ecrire", writeText, 2, 3, "(texte-ecrire fichier lignes [utf8])",
     "Écrit des lignes dans un fichier, en entier ou pas du tout; l'ancien fichier devient .bak. Sans utf8, les lettres "
     "qu'ANSI_1252 n'a pas deviennent \\U+XXXX. Rend T."},
    {"fichier-remplacer", replaceFile, 2, 2, "(fichier-remplacer neuf ancien)",
     "Met un fichier à la place d'un autre; rend T."},
};

}  // namespace

std::span<const lisp::Builtin> textBuiltins() { return kTable; }

}  // namespace atelier::exchange
