// Small drawings for tests, written as text and opened through the host's own reader.
// A record is "TYPE code=value code=value ..."; a value with blanks stands between bars: 1=|deux mots|.
#pragma once

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "atelier/base/text.h"
#include "atelier/dxf/reading/reader.h"
#include "atelier/render/scene/scene.h"

namespace atelier::render {

using Records = std::vector<std::string>;

struct TestDrawing {
  Records layers = {}, linetypes = {}, styles = {};
  Records blocks = {};  // BLOCK ... ENDBLK as they follow
  Records entities = {};
  Records header = {};  // "$NAME code=value"
};

inline std::string groupsOf(std::string_view record, int nameCode = 0) {
  std::size_t i = record.find(' ');
  std::string out = std::to_string(nameCode) + '\n' + std::string(record.substr(0, i)) + '\n';
  while (i != std::string_view::npos && ++i < record.size()) {
    const std::size_t equals = record.find('=', i);
    const bool barred = record[equals + 1] == '|';
    const std::size_t start = equals + (barred ? 2 : 1),
                      end = std::min(record.find(barred ? '|' : ' ', start), record.size());
    out += std::string(record.substr(i, equals - i)) + '\n' + std::string(record.substr(start, end - start)) + '\n';
    i = record.find(' ', end);
  }
  return out;
}

inline std::string table(const std::string& name, const Records& records) {
  std::string out = "0\nTABLE\n2\n" + name + "\n70\n" + std::to_string(records.size()) + '\n';
  for (const std::string& record : records) out += groupsOf(name + ' ' + record);
  return out + "0\nENDTAB\n";
}

inline std::string dxfText(const TestDrawing& d) {
  std::string out = "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1009\n";
  for (const std::string& variable : d.header) out += groupsOf(variable, 9);
  out += "0\nENDSEC\n0\nSECTION\n2\nTABLES\n" + table("LTYPE", d.linetypes) + table("LAYER", d.layers) +
         table("STYLE", d.styles) + "0\nENDSEC\n0\nSECTION\n2\nBLOCKS\n";
  for (const std::string& record : d.blocks) out += groupsOf(record);
  out += "0\nENDSEC\n0\nSECTION\n2\nENTITIES\n";
  for (const std::string& record : d.entities) out += groupsOf(record);
  return out + "0\nENDSEC\n0\nEOF\n";
}

inline std::unique_ptr<AcDbDatabase> openDrawing(const TestDrawing& d) {
  static const bool once = (dxf::provideDrawingReader(), true);
  const auto path = std::filesystem::temp_directory_path() / ("kavel-scene-" + std::to_string(::getpid()) + ".dxf");
  std::ofstream(path, std::ios::binary) << dxfText(d);
  auto database = std::make_unique<AcDbDatabase>(!once);
  const Acad::ErrorStatus status = database->readDwgFile(toWide(path.string()).c_str());
  std::filesystem::remove(path);
  if (status != Acad::eOk) throw std::runtime_error("test drawing not read: " + std::to_string(status));
  return database;
}

inline DisplayList sceneOf(const TestDrawing& d, const SceneOptions& options = {}) {
  return drawScene(*openDrawing(d), options);
}

template <class Shape>
std::vector<const Shape*> shapes(const DisplayList& list) {
  std::vector<const Shape*> out;
  for (const Primitive& item : list.items())
    if (const auto* shape = std::get_if<Shape>(&item.shape)) out.push_back(shape);
  return out;
}

}  // namespace atelier::render
