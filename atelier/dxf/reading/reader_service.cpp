// The dxf room as the database's reader, and the drawing that new ones start from.
// The text of that drawing is built in from new_drawing.dxf.
#include "atelier/dxf/reading/reader.h"

namespace atelier::dxf {
namespace {

class Service : public DrawingReader {
 public:
  void readFile(AcDbDatabase& database, const std::string& path) override { dxf::readFile(database, path); }
  void readNewDrawing(AcDbDatabase& database) override { dxf::readNewDrawing(database); }
};

}  // namespace

void readNewDrawing(AcDbDatabase& database) { readBytes(database, "nouveau dessin", newDrawingText(), nullptr); }

bool beganAsNew(const AcDbDatabase& database) {
  const auto layout = std::static_pointer_cast<FileLayout>(AcDbImpDatabase::of(&database).layout);
  return layout && layout->bytes.data() == newDrawingText().data();
}

void provideDrawingReader() { setDrawingReader(std::make_unique<Service>()); }

}  // namespace atelier::dxf
