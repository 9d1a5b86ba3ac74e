// Adds the AutoLISP functions for plots to every drawing opened after the call, and tells exports how entities are drawn.
#pragma once

#include <functional>

#include "atelier/render/sheets/sheets.h"

namespace atelier::render {

// Called once at the start of a program.
void providePlots();

// How a program shows sheets before they are printed; none where there is no window.
using SheetPreview = std::function<void(SheetSet&)>;
SheetPreview& sheetPreview();

}  // namespace atelier::render
