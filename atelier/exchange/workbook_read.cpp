// Sheets as the Office Open XML format has them: cells with numbers, or with places in a list of texts.
#include "atelier/exchange/workbook_read.h"

#include <algorithm>
#include <cstring>
#include <pugixml.hpp>

#include "atelier/base/error.h"
#include "atelier/base/text.h"
#include "atelier/exchange/zip_archive.h"

namespace atelier::exchange {
namespace {

constexpr std::size_t kMostRows = 1048576, kMostColumns = 64;  // a survey has few columns

// The part of a name after its namespace prefix.
std::string_view bare(const char* name) {
  const char* colon = std::strchr(name, ':');
  return colon ? colon + 1 : name;
}

template <class TAKE>
void eachNamed(const pugi::xml_node& node, std::string_view name, const TAKE& take) {
  for (const pugi::xml_node& child : node.children()) {
    if (bare(child.name()) == name) take(child);
    else eachNamed(child, name, take);
  }
}

std::string attribute(const pugi::xml_node& node, std::string_view name) {
  for (const pugi::xml_attribute& a : node.attributes())
    if (bare(a.name()) == name) return a.value();
  return {};
}

pugi::xml_document parsed(const ZipArchive& archive, const std::string& path, const std::string& part) {
  const std::string bytes = archive.file(part);
  pugi::xml_document document;
  if (!document.load_buffer(bytes.data(), bytes.size()))
    throw FileError(path, 0, "ce classeur est abîmé ou n'en est pas un");
  return document;
}

std::string textsUnder(const pugi::xml_node& node) {
  std::string text;
  eachNamed(node, "t", [&](const pugi::xml_node& t) { text += t.child_value(); });
  return text;
}

// The first sheet in the order of the tabs.
std::string firstSheet(const ZipArchive& archive, const std::string& path) {
  std::string id, target = "worksheets/sheet1.xml";
  const pugi::xml_document book = parsed(archive, path, "xl/workbook.xml");
  eachNamed(book, "sheet", [&](const pugi::xml_node& sheet) {
    for (const pugi::xml_attribute& a : sheet.attributes())
      if (id.empty() && std::strchr(a.name(), ':') && bare(a.name()) == "id") id = a.value();
  });
  const pugi::xml_document relations = parsed(archive, path, "xl/_rels/workbook.xml.rels");
  eachNamed(relations, "Relationship", [&](const pugi::xml_node& relation) {
    if (attribute(relation, "Id") == id) target = attribute(relation, "Target");
  });
  return target.starts_with('/') ? target.substr(1) : "xl/" + target;
}

// "C7": the column from nought.
std::size_t columnOf(std::string_view place, std::size_t otherwise) {
  std::size_t column = 0;
  for (const char c : place)
    if (c >= 'A' && c <= 'Z' && column < kMostColumns * 26)
      column = column * 26 + static_cast<std::size_t>(c - 'A' + 1);
  return column > 0 ? column - 1 : otherwise;
}

std::string cellText(const pugi::xml_node& cell, const std::vector<std::string>& texts) {
  const std::string type = attribute(cell, "t");
  if (type == "inlineStr") return textsUnder(cell);
  std::string value;
  eachNamed(cell, "v", [&](const pugi::xml_node& v) { value = v.child_value(); });
  if (type != "s") return value;
  const auto place = parseInteger(value);
  return place && *place >= 0 && static_cast<std::size_t>(*place) < texts.size()
             ? texts[static_cast<std::size_t>(*place)]
             : std::string();
}

std::string lineOf(const pugi::xml_node& row, const std::vector<std::string>& texts) {
  std::vector<std::string> cells;
  eachNamed(row, "c", [&](const pugi::xml_node& cell) {
    const std::size_t column = columnOf(attribute(cell, "r"), cells.size());
    if (column >= kMostColumns) return;
    if (cells.size() <= column) cells.resize(column + 1);
    cells[column] = cellText(cell, texts);
  });
  std::string line;
  for (std::string& cell : cells) {
    for (char& c : cell)
      if (c == ';' || c == '\n' || c == '\r') c = ',';
    line += (&cell == cells.data() ? "" : ";") + cell;
  }
  return line.find_first_not_of(';') == line.npos ? std::string() : line;
}

}  // namespace

std::vector<std::string> readWorkbook(const std::string& path) {
  const ZipArchive archive(path);
  std::vector<std::string> texts, lines;
  if (archive.has("xl/sharedStrings.xml"))
    eachNamed(parsed(archive, path, "xl/sharedStrings.xml"), "si",
              [&](const pugi::xml_node& text) { texts.push_back(textsUnder(text)); });
  const pugi::xml_document sheet = parsed(archive, path, firstSheet(archive, path));
  eachNamed(sheet, "row", [&](const pugi::xml_node& row) {
    const auto given = parseInteger(attribute(row, "r"));
    const std::size_t number = given && *given > 0 ? static_cast<std::size_t>(*given) : lines.size() + 1;
    if (number > kMostRows) return;
    if (lines.size() < number) lines.resize(number);
    lines[number - 1] = lineOf(row, texts);
  });
  return lines;
}

}  // namespace atelier::exchange
