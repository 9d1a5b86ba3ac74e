// Functions called here must not change the drawing: the journal gets no step for them.
#include "atelier/desktop/document/lisp_bridge.h"

#include "atelier/lisp/evaluator/interpreter.h"

namespace atelier::desktop {
namespace {

// The front-end reads the current drawing: while it lives, that of this document.
class Turn {
 public:
  explicit Turn(Document& document) : before_(Document::current()) { document.makeCurrent(); }
  ~Turn() {
    if (before_) before_->makeCurrent();
  }
  Turn(const Turn&) = delete;
  Turn& operator=(const Turn&) = delete;

 private:
  Document* const before_;
};

QVariant valueOf(lisp::Value value) {
  if (value.isInteger()) return value.integer();
  if (value.isReal()) return value.real();
  if (value.isString()) return QString::fromUtf8(value.text().data(), static_cast<qsizetype>(value.text().size()));
  if (value.isSymbol()) return true;
  if (!value.isPair()) return {};
  QVariantList list;
  for (; value.isPair(); value = value.cdr()) list.push_back(valueOf(value.car()));
  if (!value.isNil()) list.push_back(valueOf(value));
  return list;
}

}  // namespace

QVariant ask(Document& document, const QString& expression) {
  const Turn turn(document);
  const bool muted = document.exchangeMuted(true);
  QVariant result;
  try {
    result = valueOf(document.interpreter().evaluate(expression.toStdString()));
  } catch (const lisp::Error&) {
    result = {};
  }
  document.exchangeMuted(muted);
  return result;
}

QString quoted(const QString& text) {
  QString out = text;
  out.replace('\\', "\\\\").replace('"', "\\\"");
  return '"' + out + '"';
}

QString number(double value) { return QString::fromStdString(realText(value)); }

}  // namespace atelier::desktop
