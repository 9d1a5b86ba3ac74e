// Calls the front-end's functions from the window, with results as Qt values.
#pragma once
#include <QString>
#include <QVariant>

#include "atelier/document/document.h"

namespace atelier::desktop {

// The value of an expression: a list becomes a QVariantList, nil an invalid QVariant, T true, a dotted pair a list of
// two. Errors give an invalid value; nothing is printed. It may be called while a prompt waits.
QVariant ask(Document& document, const QString& expression);
// A string as AutoLISP reads it, quotes included.
QString quoted(const QString& text);
// A real with a decimal point, as AutoLISP reads it.
QString number(double value);

}  // namespace atelier::desktop
