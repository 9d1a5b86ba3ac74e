// The shape files that a drawing names.
#pragma once
#include <memory>
#include <string>

#include "atelier/database/objects/imp_database.h"
#include "atelier/fonts/shape_file.h"

namespace atelier {

// The file beside the drawing, with or without its extension; null when it isn't there or isn't a shape file.
std::shared_ptr<const fonts::ShapeFile> shapeFile(const AcDbImpDatabase& database, const std::string& name);

}  // namespace atelier
