// A field of rows: a table whose rows are added, taken away and dragged, with cells that are typed or chosen; a spreadsheet's cells
// can be pasted into it and copied from it.
#pragma once
#include <memory>

#include "atelier/desktop/forms/form_fields.h"

namespace atelier::desktop {

// The columns are (title kind choices) each; a cell of kind "mot" is one of the choices, so is one of kind "image", whose choices are
// (word items) with a small picture each; one of kind "lire" is the name of a file, the
// choices being its filter. Other choices are (column word ...) for each column that has them.
std::unique_ptr<FormField> makeRowsField(const QVariant& columns, std::function<void()> changed, QWidget* parent);

}  // namespace atelier::desktop
