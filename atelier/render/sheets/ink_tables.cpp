// A row is "couleur;of the drawing;on paper[;weight[;of areas]]"; the table's own words are French, as those of styles.
#include "atelier/render/sheets/ink_tables.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "atelier/base/files.h"
#include "atelier/base/text.h"
#include "atelier/database/objects/imp_database.h"
#include "atelier/database/objects/layouts.h"
#include "atelier/document/document.h"
#include "atelier/render/scene/colours.h"
#include "atelier/render/shapes/plot_error.h"

namespace atelier::render {
namespace {

namespace fs = std::filesystem;

constexpr double kHeaviestMm = 2.11;  // of the line weights that drawings know
constexpr std::array<std::string_view, 3> kShipped{"monochrome", "nuances", "bureau"};
constexpr const char* kColourWords = "#RRVVBB, noir ou un numéro de 1 à 255";

std::vector<std::string> fieldsOf(std::string_view line) {
  std::vector<std::string> fields;
  for (std::size_t end = 0; end != line.npos;) {
    end = line.find(';');
    fields.emplace_back(trimmed(line.substr(0, end)));
    if (end != line.npos) line.remove_prefix(end + 1);
  }
  return fields;
}

std::optional<int> indexIn(std::string_view text) {
  const auto number = parseInteger(text);
  return number && *number >= 1 && *number <= 255 ? std::optional(static_cast<int>(*number)) : std::nullopt;
}

std::optional<Colour> colourIn(std::string_view text) {
  if (equalNoCase(text, "noir")) return kForeground;
  if (text.size() == 7 && text[0] == '#') {
    std::uint32_t rgb = 0;
    const auto [end, error] = std::from_chars(text.data() + 1, text.data() + 7, rgb, 16);
    return error == std::errc() && end == text.data() + 7 ? std::optional(trueColour(rgb)) : std::nullopt;
  }
  const auto index = indexIn(text);
  return index ? std::optional(aciColour(*index)) : std::nullopt;
}

// One file while it is read.
class Reading {
 public:
  explicit Reading(const std::string& file) : file_(file) {}

  Inks table() {
    std::ifstream in(file_, std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    if (!in) throw FileError(file_, 0, "fichier introuvable ou illisible");
    std::string text = bytes.str();
    if (!isValidUtf8(text)) text = CodePage::named("ANSI_1252").decode(text);
    if (text.starts_with("\xEF\xBB\xBF")) text.erase(0, 3);
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
      ++number_;
      const std::string_view row = trimmed(line);
      if (!row.empty() && row[0] != '#' && row[0] != ';') take(fieldsOf(row));
    }
    if (rows_ == 0) throw FileError(file_, 0, "aucune rangée \"couleur;...\"");
    return table_;
  }

 private:
  [[noreturn]] void refuse(const std::string& what) const { throw FileError(file_, number_, what); }

  void take(const std::vector<std::string>& fields) {
    if (!equalNoCase(fields[0], "couleur")) refuse("\"" + fields[0] + "\" inconnu: couleur est attendu");
    if (fields.size() < 3 || fields.size() > 5)
      refuse("couleur: de 2 à 4 champs sont attendus, " + std::to_string(fields.size() - 1) + " sont donnés");
    const InkRow row{inkIn(fields[2]), inkIn(fields.size() > 4 ? fields[4] : fields[2]),
                     fields.size() > 3 ? weightIn(fields[3]) : std::nullopt};
    ++rows_;
    setFor(fields[1], row);
  }

  // "*" for the colours that no row names, a colour, or a range of numbers.
  void setFor(const std::string& drawn, const InkRow& row) {
    if (drawn == "*") return table_->setOthers(row);
    if (const auto colour = colourIn(drawn)) return table_->set(*colour, row);
    const auto dash = drawn.find('-');
    const auto first = indexIn(drawn.substr(0, dash)),
               last = dash == drawn.npos ? first : indexIn(drawn.substr(dash + 1));
    if (!first || !last || *first > *last)
      refuse("couleur \"" + drawn + "\": " + kColourWords + ", des numéros (10-49) ou * est attendu");
    for (int i = *first; i <= *last; ++i) table_->set(aciColour(i), row);
  }

  Ink inkIn(const std::string& text) const {
    if (text.empty() || equalNoCase(text, "dessin")) return {};
    if (equalNoCase(text, "gris")) return {Ink::Kind::grey};
    const auto colour = colourIn(text);
    if (!colour) refuse("couleur sur le papier \"" + text + "\": " + kColourWords + ", gris ou dessin est attendu");
    return {Ink::Kind::given, *colour};
  }

  std::optional<double> weightIn(std::string text) const {
    if (text.empty() || equalNoCase(text, "dessin")) return std::nullopt;
    const std::string given = text;
    std::ranges::replace(text, ',', '.');
    const auto weight = parseReal(text);
    if (!weight || !(*weight >= 0 && *weight <= kHeaviestMm))
      refuse("épaisseur \"" + given + "\": de 0 à 2.11 mm est attendu");
    return weight;
  }

  std::string file_;
  std::int64_t number_ = 0;
  std::size_t rows_ = 0;
  std::shared_ptr<InkTable> table_ = std::make_shared<InkTable>();
};

// One's own, else one of the program's; nothing when there is none of the name.
std::optional<std::string> tableFile(const std::string& name) {
  if (name.empty() || name.find('/') != name.npos) return std::nullopt;
  if (const auto own = pathInAnyCase(inkFolder() + "/" + name + ".txt")) return own;
  const auto shipped = std::ranges::find_if(kShipped, [&](std::string_view s) { return equalNoCase(s, name); });
  Document* const document = Document::current();
  if (shipped == kShipped.end() || !document) return std::nullopt;
  return document->interpreter().search().find("trace-" + std::string(*shipped) + ".txt");
}

std::string joined(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += ", " + name;
  return text;
}

std::optional<Inks> known(const std::string& name) {
  const auto is = [&](const char* english, const char* french) {
    return equalNoCase(name, english) || equalNoCase(name, french);
  };
  if (is("colour", "couleurs")) return nullptr;
  if (is("grey", "gris") || equalNoCase(name, "grayscale")) return greyInks();  // the last is a table of other programs
  if (is("black", "noir")) return blackInks();
  const auto file = tableFile(name);
  return file ? std::optional(readInks(*file)) : std::nullopt;
}

}  // namespace

Inks readInks(const std::string& file) { return Reading(file).table(); }

Inks inksNamed(const std::string& name) {
  if (const auto table = known(name)) return *table;
  std::error_code error;
  if (!fs::is_regular_file(name, error))
    throw PlotError("couleurs \"" + name + "\" : attendu colour, grey, black, une table" + joined(inkTables()) +
                    " ou un fichier");
  return readInks(name);
}

std::string inkFolder() { return installationFolder() + "/traces"; }

std::vector<std::string> inkTables() {
  std::vector<std::string> names;
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(inkFolder(), error))
    if (equalNoCase(entry.path().extension().string(), ".txt")) names.push_back(entry.path().stem().string());
  std::ranges::sort(names);
  for (const std::string_view name : kShipped)
    if (std::ranges::none_of(names, [&](const std::string& own) { return equalNoCase(own, name); }))
      names.emplace_back(name);
  return names;
}

std::string tableOf(AcDbStub& space) {
  AcDbStub* const layout = layoutOf(space);
  if (!layout) return {};
  return fs::path(AcDbImpObject::of(&space.database->object(*layout)).record.text(kTableField)).stem().string();
}

Inks inksOfTable(const std::string& name) { return known(fs::path(name).stem().string()).value_or(nullptr); }

Inks inksOf(AcDbStub& space) { return inksOfTable(tableOf(space)); }

}  // namespace atelier::render
