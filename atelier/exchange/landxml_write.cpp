// Writing LandXML 1.2 with pugixml: the elements and attributes that its schema requires, and the profiles.
// Reference: LandXML-1.2.xsd.
#include <charconv>
#include <cmath>
#include <ctime>
#include <pugixml.hpp>

#include "atelier/dxf/writing/replaced_file.h"
#include "atelier/exchange/landxml.h"

namespace atelier::exchange {
namespace {

using pugi::xml_node;
using Curve = Vertex::Curve;

// At most nine decimals, without zeros at the end.
std::string number(double value) {
  char buffer[400];
  std::string text(buffer, std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, 9).ptr);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.ends_with('.')) text.pop_back();
  return text == "-0" ? "0" : text;
}

std::string pairText(const StationLevel& at) { return number(at.station) + " " + number(at.level); }

void set(xml_node node, const char* name, const std::string& value) { node.append_attribute(name) = value.c_str(); }

std::string now(const char* format) {
  const std::time_t seconds = std::time(nullptr);
  std::tm local{};
  localtime_r(&seconds, &local);
  char text[32];
  return {text, std::strftime(text, sizeof text, format, &local)};
}

void writeHead(xml_node root, std::string_view project) {
  set(root, "xmlns", "http://www.landxml.org/schema/LandXML-1.2");
  set(root, "xmlns:xsi", "http://www.w3.org/2001/XMLSchema-instance");
  set(root, "xsi:schemaLocation",
      "http://www.landxml.org/schema/LandXML-1.2 http://www.landxml.org/schema/LandXML-1.2/LandXML-1.2.xsd");
  set(root, "version", "1.2");
  set(root, "date", now("%Y-%m-%d"));
  set(root, "time", now("%H:%M:%S"));
  set(root, "readOnly", "false");
  set(root, "language", "French");
  xml_node units = root.append_child("Units").append_child("Metric");
  for (const auto& [name, value] : {std::pair{"linearUnit", "meter"},
                                    {"areaUnit", "squareMeter"},
                                    {"volumeUnit", "cubicMeter"},
                                    {"temperatureUnit", "celsius"},
                                    {"pressureUnit", "HPA"}})
    set(units, name, value);
  set(root.append_child("Project"), "name", std::string(project));
  set(root.append_child("Application"), "name", "Kavel");
}

// The arc of a circle between two grades.
double arcOf(const Vertex& v, double in, double out) { return v.radius * std::abs(std::atan(out) - std::atan(in)); }

void writeVertex(xml_node line, const std::vector<Vertex>& vertices, std::size_t i) {
  const Vertex& v = vertices[i];
  constexpr const char* kNames[] = {"PVI", "ParaCurve", "UnsymParaCurve", "CircCurve"};
  const bool inner = i > 0 && i + 1 < vertices.size();
  const Curve curve = inner ? v.curve : Curve::none;
  xml_node node = line.append_child(kNames[static_cast<int>(curve)]);
  if (curve == Curve::parabola) set(node, "length", number(v.length));
  if (curve == Curve::unsymmetric) {
    set(node, "lengthIn", number(v.length));
    set(node, "lengthOut", number(v.lengthOut));
  }
  if (curve == Curve::circle) {
    const auto grade = [&](const Vertex& a, const Vertex& b) {
      return (b.at.level - a.at.level) / (b.at.station - a.at.station);
    };
    const double in = grade(vertices[i - 1], v), out = grade(v, vertices[i + 1]);
    set(node, "length", number(arcOf(v, in, out)));
    set(node, "radius", number(std::copysign(v.radius, out - in)));
  }
  node.text().set(pairText(v.at).c_str());
}

void writeGround(xml_node profile, const Ground& ground) {
  xml_node surface = profile.append_child("ProfSurf");
  set(surface, "name", ground.name);
  if (!ground.state.empty()) set(surface, "state", ground.state);
  for (const auto& piece : ground.pieces) {
    std::string text;
    for (const StationLevel& at : piece) text += (text.empty() ? "" : " ") + pairText(at);
    surface.append_child("PntList2D").text().set(text.c_str());
  }
}

// From the first to the last station of all its lines.
double lengthOf(const Alignment& alignment) {
  double end = alignment.start;
  for (const Ground& ground : alignment.grounds)
    for (const auto& piece : ground.pieces)
      if (!piece.empty()) end = std::max(end, piece.back().station);
  for (const Project& project : alignment.projects)
    if (!project.vertices.empty()) end = std::max(end, project.vertices.back().at.station);
  return end - alignment.start;
}

// Points are northing, easting.
void writePlace(xml_node element, const char* name, double x, double y) {
  element.append_child(name).text().set((number(y) + " " + number(x)).c_str());
}

// A straight run, or an arc whose opening is four times the angle of its bulge.
void writeSegment(xml_node geometry, const PlanVertex& a, const PlanVertex& b) {
  const bool straight = std::abs(a.bulge) < 1e-12;
  const double dx = b.x - a.x, dy = b.y - a.y, chord = std::hypot(dx, dy);
  xml_node node = geometry.append_child(straight ? "Line" : "Curve");
  if (straight) {
    set(node, "length", number(chord));
  } else {
    const double radius = chord * (1 + a.bulge * a.bulge) / (4 * std::abs(a.bulge));
    set(node, "rot", a.bulge > 0 ? "ccw" : "cw");
    set(node, "crvType", "arc");
    set(node, "length", number(radius * 4 * std::atan(std::abs(a.bulge))));
    set(node, "radius", number(radius));
  }
  writePlace(node, "Start", a.x, a.y);
  if (!straight) {
    // The centre stands off the middle of the chord, to the left of an arc that turns left by less than half a turn.
    const double off = (1 - a.bulge * a.bulge) / (4 * a.bulge);
    writePlace(node, "Center", (a.x + b.x) / 2 - off * dy, (a.y + b.y) / 2 + off * dx);
  }
  writePlace(node, "End", b.x, b.y);
}

void writePlan(xml_node alignment, const std::vector<PlanVertex>& plan) {
  if (plan.size() < 2) return;
  xml_node geometry = alignment.append_child("CoordGeom");
  for (std::size_t i = 0; i + 1 < plan.size(); ++i) writeSegment(geometry, plan[i], plan[i + 1]);
}

void writeAlignment(xml_node list, const Alignment& alignment) {
  xml_node node = list.append_child("Alignment");
  set(node, "name", alignment.name);
  set(node, "length", number(lengthOf(alignment)));
  set(node, "staStart", number(alignment.start));
  writePlan(node, alignment.plan);
  xml_node profile = node.append_child("Profile");
  set(profile, "name", alignment.name);
  for (const Ground& ground : alignment.grounds) writeGround(profile, ground);
  for (const Project& project : alignment.projects) {
    xml_node line = profile.append_child("ProfAlign");
    set(line, "name", project.name);
    for (std::size_t i = 0; i < project.vertices.size(); ++i) writeVertex(line, project.vertices, i);
  }
}

class ToFile : public pugi::xml_writer {
 public:
  explicit ToFile(dxf::ReplacedFile& file) : file_(file) {}
  void write(const void* data, std::size_t size) override { file_.write({static_cast<const char*>(data), size}); }

 private:
  dxf::ReplacedFile& file_;
};

}  // namespace

void writeLandXml(const std::string& path, std::string_view project, const std::vector<Alignment>& alignments) {
  pugi::xml_document document;
  xml_node declaration = document.append_child(pugi::node_declaration);
  set(declaration, "version", "1.0");
  set(declaration, "encoding", "UTF-8");
  xml_node root = document.append_child("LandXML");
  writeHead(root, project);
  xml_node list = root.append_child("Alignments");
  set(list, "name", std::string(project));
  for (const Alignment& alignment : alignments) writeAlignment(list, alignment);
  dxf::ReplacedFile file(path);
  ToFile writer(file);
  document.save(writer, "  ", pugi::format_default, pugi::encoding_utf8);
  file.keep();
}

}  // namespace atelier::exchange
