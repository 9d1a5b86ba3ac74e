// Longitudinal profiles in LandXML: alignments with their ground and their project lines.
// In memory all lengths are in metres; stations are those of the file, along the alignment.
#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace atelier::exchange {

struct StationLevel {
  double station = 0, level = 0;
};

// A ProfSurf. Each PntList2D is a piece; between two pieces there is no ground.
struct Ground {
  std::string name, state;  // state: "existing", "proposed" ...; may be empty
  std::vector<std::vector<StationLevel>> pieces;
};

// A vertex of a ProfAlign, with its vertical curve. Lengths of parabolas are horizontal; that of a circle is its arc.
struct Vertex {
  enum class Curve { none, parabola, unsymmetric, circle };
  StationLevel at;
  Curve curve = Curve::none;
  double length = 0;     // of the curve, worked out on writing a circle; of the part before the vertex when unsymmetric
  double lengthOut = 0;  // of the part after the vertex, when it is unsymmetric
  double radius = 0;     // of a circle, always positive: the sign follows from the grades
};

struct Project {
  std::string name;
  std::vector<Vertex> vertices;
  bool bare = false;  // read without its curves, which can't be drawn
};

// A vertex of the plan geometry, x east; the bulge is that of the segment which begins here.
struct PlanVertex {
  double x = 0, y = 0, bulge = 0;
};

struct Alignment {
  std::string name;
  double start = 0;
  std::vector<PlanVertex> plan;  // written only: other rooms read it as an axis
  std::vector<Ground> grounds;
  std::vector<Project> projects;
};

struct LandXml {
  double metres = 1;  // of the file's unit of length
  std::vector<Alignment> alignments;
  std::vector<std::string> warnings;  // French: what was left out or corrected
};

// Reads LandXML 1.0, 1.1, 1.2 and InfraModel files: elements are known by their local names, whatever the namespace.
// A malformed value, a station that goes back, a vertical curve without room or radius costs its ground or line only: it is told among the
// warnings, with alignment, element and station. Throws FileError when the file can't be read, and the first of these faults as an Error
// when nothing is left.
LandXml readLandXml(const std::string& path);

// Writes LandXML 1.2 in metres, numbers to the nanometre; a circle's radius is positive in a sag. An existing file
// becomes .bak. Throws FileError.
void writeLandXml(const std::string& path, std::string_view project, const std::vector<Alignment>& alignments);

}  // namespace atelier::exchange
