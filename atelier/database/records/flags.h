// The bits of groups that hold flags, and what else is a number in a record but means a choice.
// Reference: DXF reference, group 70 of the records named; group 71 of TEXT.
#pragma once
#include <cstdint>

namespace atelier {

// LWPOLYLINE and POLYLINE.
struct PolylineFlags {
  static constexpr std::int64_t kClosed = 1, kCurveFit = 2, kSplineFit = 4, kSpace = 8, kMesh = 16,
                                kMeshClosedAcross = 32, kPolyface = 64;
  static constexpr std::int64_t kRunsThrough = 128;  // the line type, through the vertices
};
// Group 75 of POLYLINE.
struct Smoothing {
  static constexpr std::int64_t kNone = 0, kQuadratic = 5, kCubic = 6, kBezier = 8;
};

struct VertexFlags {
  static constexpr std::int64_t kCurveFit = 1, kSplineFit = 8, kFrame = 16, kSpace = 32, kPlaced = 64;
  static constexpr std::int64_t kFace = 128;  // of a polyface: one of its faces, unless it is also placed
};

struct SplineFlags {
  static constexpr std::int64_t kClosed = 1, kPeriodic = 2, kRational = 4, kPlanar = 8;
};

struct LayerFlags {
  static constexpr std::int64_t kFrozen = 1, kLocked = 4;
};

// ATTRIB and ATTDEF.
struct AttributeFlags {
  static constexpr std::int64_t kInvisible = 1, kConstant = 2;
};

// Group 71 of TEXT, ATTRIB, ATTDEF and STYLE.
struct TextMirror {
  static constexpr std::int64_t kBackwards = 2, kUpsideDown = 4;
};
// Group 73 of MTEXT.
struct LineSpacing {
  static constexpr std::int64_t kAtLeast = 1, kExact = 2;
};
// Group 1071 of the XDATA of a STYLE that is made from a family of fonts.
struct FontBits {
  static constexpr std::int64_t kItalic = 0x1000000, kBold = 0x2000000;
};

}  // namespace atelier
