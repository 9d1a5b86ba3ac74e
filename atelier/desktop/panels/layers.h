// What the panel of layers reads of a drawing. Inner header of the room.
#pragma once
#include "atelier/desktop/panels/layers_panel.h"

namespace atelier::desktop {

// The layers by name.
std::vector<LayerRow> layersOf(Document& document);
QStringList linetypesOf(Document& document);
// A name as a pattern that fits it alone.
QString asPattern(const QString& name);

}  // namespace atelier::desktop
