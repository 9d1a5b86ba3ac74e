// Reading LandXML with pugixml.
// Only what profiles need is read; elements are recognised by their local names, whatever the namespace.
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <fstream>
#include <functional>
#include <optional>
#include <pugixml.hpp>
#include <sstream>

#include "atelier/base/error.h"
#include "atelier/base/text.h"
#include "atelier/exchange/landxml.h"
#include "atelier/exchange/landxml_curves.h"

namespace atelier::exchange {
namespace {

using pugi::xml_node;
using Curve = Vertex::Curve;

std::string_view localName(const xml_node& node) {
  const std::string_view name = node.name();
  const auto colon = name.rfind(':');
  return colon == name.npos ? name : name.substr(colon + 1);
}

void eachChild(const xml_node& parent, std::string_view name, const std::function<void(const xml_node&)>& take) {
  for (const xml_node& child : parent.children())
    if (localName(child) == name) take(child);
}

// No station or altitude is as great, in any unit: a greater number is an error.
constexpr double kGreatest = 1e12;

struct Unit {
  std::string_view name;
  double metres;
};
constexpr std::array<Unit, 9> kUnits{{{"meter", 1},
                                      {"millimeter", 0.001},
                                      {"centimeter", 0.01},
                                      {"kilometer", 1000},
                                      {"foot", 0.3048},
                                      {"feet", 0.3048},
                                      {"USSurveyFoot", 1200.0 / 3937.0},
                                      {"inch", 0.0254},
                                      {"mile", 1609.344}}};

class Reading {
 public:
  explicit Reading(const std::string& path) : path_(path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    if (!in) throw FileError(path, 0, "fichier introuvable ou illisible");
    bytes_ = text.str();
  }

  LandXml read() {
    parse();
    const xml_node root = document_.document_element();
    if (localName(root) != "LandXML")
      fail(root, "ce n'est pas un fichier LandXML: élément LandXML attendu, trouvé " + std::string(root.name()));
    result_.metres = level_ = 1;
    eachChild(root, "Units", [&](const xml_node& units) { readUnits(units); });
    eachChild(root, "Alignments", [&](const xml_node& list) {
      eachChild(list, "Alignment", [&](const xml_node& node) { usable([&] { readAlignment(node); }); });
    });
    const auto empty = [](const Alignment& a) {
      return a.grounds.empty() &&
             std::all_of(a.projects.begin(), a.projects.end(), [](const Project& p) { return p.bare; });
    };
    if (fault_ && std::all_of(result_.alignments.begin(), result_.alignments.end(), empty)) throw *fault_;
    if (result_.alignments.empty()) throw Error(path_, 0, "aucun axe (élément Alignment)" + contents(root));
    return std::move(result_);
  }

 private:
  // What a piece of the file has wrong costs that piece only: it is told, and the others are read.
  template <class Work>
  void usable(const Work& work) {
    try {
      work();
    } catch (const Error& error) {
      if (!fault_) fault_ = error;
      result_.warnings.push_back(std::string("Laissé: ") + error.what());
    }
  }

  // What a file without alignments has instead.
  static std::string contents(const xml_node& root) {
    std::string names;
    bool surfaces = false;
    for (const xml_node& child : root.children()) {
      const std::string name(localName(child));
      if (name == "Units" || name == "Project" || name == "Application" || name == "CoordinateSystem" || name.empty())
        continue;
      surfaces = surfaces || name == "Surfaces";
      if (names.find(name) == names.npos) names += (names.empty() ? "; le fichier contient " : ", ") + name;
    }
    return names + (surfaces ? ": PLV-TERRAIN prend ses surfaces" : "");
  }

  // A text that isn't Unicode is read as Windows-1252, which includes Latin-1, whatever its declaration says.
  void parse() {
    const bool wide = bytes_.starts_with("\xff\xfe") || bytes_.starts_with("\xfe\xff");
    if (!wide && !isValidUtf8(bytes_)) bytes_ = CodePage::named("ANSI_1252").decode(bytes_);
    const auto outcome = document_.load_buffer(bytes_.data(), bytes_.size(), pugi::parse_default,
                                               wide ? pugi::encoding_auto : pugi::encoding_utf8);
    if (!outcome) throw Error(path_, lineAt(outcome.offset), "XML mal formé");
  }

  std::int64_t lineAt(std::ptrdiff_t offset) const {
    const auto end = std::min(bytes_.size(), static_cast<std::size_t>(std::max<std::ptrdiff_t>(offset, 0)));
    return 1 + std::count(bytes_.begin(), bytes_.begin() + static_cast<std::ptrdiff_t>(end), '\n');
  }

  [[noreturn]] void fail(const xml_node& node, const std::string& message) const {
    throw Error(path_, lineAt(node.offset_debug()), where_ + (where_.empty() ? "" : ": ") + message);
  }

  double unit(const xml_node& node, const char* attribute) const {
    const std::string name = node.attribute(attribute).value();
    for (const Unit& known : kUnits)
      if (equalNoCase(known.name, name)) return known.metres;
    fail(node, "unité de longueur inconnue: \"" + name + "\"");
  }

  void readUnits(const xml_node& units) {
    for (const xml_node& node : units.children()) {
      if (localName(node) != "Metric" && localName(node) != "Imperial") continue;
      if (node.attribute("linearUnit")) result_.metres = level_ = unit(node, "linearUnit");
      if (node.attribute("elevationUnit")) level_ = unit(node, "elevationUnit");
    }
  }

  void readAlignment(const xml_node& node) {
    Alignment alignment;
    alignment.name = node.attribute("name").value();
    if (alignment.name.empty()) alignment.name = std::to_string(result_.alignments.size() + 1);
    where_ = "axe \"" + alignment.name + "\"";
    alignment.start = attribute(node, "staStart") * result_.metres;
    eachChild(node, "StaEquation", [&](const xml_node& equation) {
      result_.warnings.push_back(where_ + ": l'équation de station de la ligne " +
                                 std::to_string(lineAt(equation.offset_debug())) + " n'est pas appliquée");
    });
    eachChild(node, "Profile", [&](const xml_node& profile) {
      eachChild(profile, "ProfSurf", [&](const xml_node& surface) {
        usable([&] {
          if (Ground ground = readGround(surface); !ground.pieces.empty())
            alignment.grounds.push_back(std::move(ground));
        });
      });
      eachChild(profile, "ProfAlign",
                [&](const xml_node& line) { usable([&] { readProject(line, alignment.projects); }); });
    });
    where_.clear();
    result_.alignments.push_back(std::move(alignment));
  }

  // An attribute that is missing is 0.
  double attribute(const xml_node& node, const char* name) const {
    const std::string_view text = node.attribute(name).value();
    if (text.empty()) return 0;
    const auto value = parseReal(text);
    if (!value || !std::isfinite(*value))
      fail(node, element(node) + name + ": nombre illisible \"" + std::string(text) + "\"");
    return *value;
  }

  // "CircCurve, station 12.500: ", or the element's name alone when it has no station.
  static std::string element(const xml_node& node) {
    const std::string_view content = trimmed(node.child_value());
    const auto station = parseReal(content.substr(0, content.find_first_of(" \t\r\n")));
    return std::string(localName(node)) + (station ? ", station " + metresText(*station) : "") + ": ";
  }

  // Pairs of a station and a level, separated by blanks.
  std::vector<StationLevel> pairs(const xml_node& node) const {
    std::vector<double> numbers;
    const char* const blanks = " \t\r\n";
    std::string_view rest = node.child_value();
    for (;;) {
      const auto begin = rest.find_first_not_of(blanks);
      if (begin == rest.npos) break;
      const std::string_view word = rest.substr(begin, rest.find_first_of(blanks, begin) - begin);
      rest = rest.substr(begin + word.size());
      const auto value = parseReal(word);
      if (!value || !std::isfinite(*value))
        fail(node, place(node, numbers) + "nombre illisible \"" + std::string(word) + "\"");
      if (std::abs(*value) > kGreatest) fail(node, place(node, numbers) + "valeur hors limites: " + std::string(word));
      numbers.push_back(*value);
    }
    if (numbers.size() % 2 != 0) fail(node, place(node, numbers) + "nombre impair de valeurs");
    std::vector<StationLevel> found;
    for (std::size_t i = 0; i < numbers.size(); i += 2)
      found.push_back({numbers[i] * result_.metres, numbers[i + 1] * level_});
    return found;
  }

  // The element and the last station that could be read before the fault, in the file's unit.
  static std::string place(const xml_node& node, const std::vector<double>& numbers) {
    std::string text = std::string(localName(node));
    if (!numbers.empty()) text += ", station " + metresText(numbers[(numbers.size() - 1) / 2 * 2]);
    return text + ": ";
  }

  Ground readGround(const xml_node& node) {
    const Inside inside(where_, node, "terrain");
    Ground ground{node.attribute("name").value(), node.attribute("state").value(), {}};
    eachChild(node, "PntList2D", [&](const xml_node& list) {
      if (auto piece = pairs(list); !piece.empty()) ground.pieces.push_back(std::move(piece));
    });
    if (ground.pieces.empty()) result_.warnings.push_back("Laissé: " + where_ + ": aucun point (élément PntList2D)");
    return ground;
  }

  // Of a line whose curves can't be drawn the vertices are kept, for whoever wants them.
  void readProject(const xml_node& node, std::vector<Project>& projects) {
    const Inside inside(where_, node, "ligne de projet");
    Project project{node.attribute("name").value(), {}, false};
    std::vector<xml_node> sources;
    for (const xml_node& element : node.children()) {
      const auto vertex = readVertex(element);
      // The last vertex is often written twice.
      if (!vertex || (!project.vertices.empty() && same(project.vertices.back(), *vertex))) continue;
      project.vertices.push_back(*vertex);
      sources.push_back(element);
    }
    if (project.vertices.empty()) fail(node, "aucun sommet");
    const auto fault = checkCurves(project, where_, result_.warnings);
    if (fault && !fault->ofCurve) fail(sources[fault->vertex], element(sources[fault->vertex]) + fault->reason);
    usable([&] {
      projects.push_back(project);
      if (!fault) return;
      projects.back().bare = true;
      for (Vertex& v : projects.back().vertices) v = {v.at};
      fail(sources[fault->vertex], element(sources[fault->vertex]) + fault->reason);
    });
  }

  static bool same(const Vertex& a, const Vertex& b) {
    return std::abs(a.at.station - b.at.station) < 1e-6 && std::abs(a.at.level - b.at.level) < 1e-6 &&
           b.curve == Curve::none;
  }

  std::optional<Vertex> readVertex(const xml_node& node) const {
    const std::string_view name = localName(node);
    Vertex v;
    if (name == "ParaCurve") v.curve = Curve::parabola;
    else if (name == "UnsymParaCurve") v.curve = Curve::unsymmetric;
    else if (name == "CircCurve") v.curve = Curve::circle;
    else if (name != "PVI") return std::nullopt;
    const auto at = pairs(node);
    if (at.size() != 1) fail(node, std::string(name) + ": une station et une altitude attendues");
    v.at = at.front();
    if (v.curve == Curve::none) return v;
    v.length = length(node, v.curve == Curve::unsymmetric ? "lengthIn" : "length");
    if (v.curve == Curve::unsymmetric) v.lengthOut = length(node, "lengthOut");
    if (v.curve == Curve::circle) v.radius = std::abs(attribute(node, "radius")) * result_.metres;
    if (v.length + v.lengthOut == 0 && v.radius == 0) v.curve = Curve::none;
    return v;
  }

  double length(const xml_node& node, const char* name) const {
    const double value = attribute(node, name) * result_.metres;
    if (value < 0) fail(node, element(node) + name + " negatif");
    return value;
  }

  // While it lives, messages name the element that is being read.
  class Inside {
   public:
    Inside(std::string& where, const xml_node& node, const std::string& what) : where_(where), before_(where) {
      where_ += ", " + what + " \"" + node.attribute("name").value() + "\"";
    }
    ~Inside() { where_ = before_; }
    Inside(const Inside&) = delete;
    Inside& operator=(const Inside&) = delete;

   private:
    std::string& where_;
    std::string before_;
  };

  std::string path_, bytes_, where_;
  pugi::xml_document document_;
  LandXml result_;
  std::optional<Error> fault_;  // the first one
  double level_ = 1;            // metres in the file's unit of altitude
};

}  // namespace

LandXml readLandXml(const std::string& path) { return Reading(path).read(); }

}  // namespace atelier::exchange
