// What the panel of layers reads of a drawing. Inner header of the room.
#pragma once
#include "atelier/desktop/panels/layers_panel.h"

namespace atelier::desktop {

// The layers by name.
std::vector<LayerRow> layersOf(Document& document);
QStringList linetypesOf(Document& document);
// Those of the program's file that the drawing lacks, as (name, description).
QList<std::pair<QString, QString>> linetypesToLoad(Document& document);
// A name as a pattern that fits it alone.
QString asPattern(const QString& name);

}  // namespace atelier::desktop
