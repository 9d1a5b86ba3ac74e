// The builder that all drawing functions of entities use. Inner header of the room.
// A drawing function gets an Entity and hands paths in the entity's own plane to the builder.
#pragma once

#include <map>
#include <vector>

#include "atelier/render/scene/properties.h"
#include "atelier/render/scene/scene.h"

namespace atelier::render {

// Where the entities of a block are drawn, and what they inherit.
struct Placement {
  AcGeMatrix3d toWorld;
  Inherited inherited;
  double scale = 1;          // of lengths along lines, for line types
  std::uint64_t source = 0;  // the reference in the model space; 0: each entity for itself
  int depth = 0;
  std::shared_ptr<const Clip> clip = {};
};

struct Entity {
  AcDbStub& stub;
  const Record& record;
  Groups groups;
  const Placement& at;
  Look look;

  std::uint64_t source() const;
  // From coordinates in the plane of the entity (group 210, height above it) to the drawing in plan.
  Affine plane(double elevation = 0) const;
  // From world coordinates to the drawing in plan.
  Pt world(const AcGePoint3d& point) const;
};

class SceneBuilder {
 public:
  // Stops, with a warning, once it has made that many primitives.
  SceneBuilder(AcDbImpDatabase& database, const SceneOptions& options, std::size_t most, const Receiver& receive);

  // Draws a stub that is not erased; a child of a block, an attribute of a reference.
  void entity(AcDbStub& stub, const Placement& at);
  // Draws the entities of a block at a placement. Does nothing beyond the limits of depth and number, or for a block
  // inside itself.
  void block(AcDbStub& record, const Placement& at);

  // Draws a record that is no entity of the drawing, as part of one.
  void part(AcDbStub& owner, const Record& record, const Placement& at);

  void stroke(const Entity& e, Path path);
  void fill(const Entity& e, Path path, bool evenOdd);
  void fill(const Entity& e, Path path, bool evenOdd, Colour colour);
  void add(const Entity& e, Shape shape);
  Pen pen(const Entity& e);

  // Adds a warning, a French sentence; it is given once, with the number of entities.
  void cannotShow(const std::string& what);
  // Counts an entity of which nothing, or not all, can be shown.
  void leaveOut(std::string_view what);

  AcDbImpDatabase& database() { return database_; }
  Properties& properties() { return properties_; }
  Groups groupsOf(AcDbStub& stub);
  // Children of a stub that are not erased.
  std::vector<AcDbStub*> children(const AcDbStub& stub) const;
  const fonts::Font& font(const fonts::FontStyle& style);
  bool full() const { return stopped_; }
  std::vector<std::string> warnings() const;

 private:
  void draw(const Entity& e);
  void marks(const Entity& e, const Path& path);  // of the entity's line type
  bool roomLeft();                                // counts a visit

  AcDbImpDatabase& database_;
  SceneOptions options_;
  std::size_t most_;  // primitives
  Properties properties_;
  const Receiver& receive_;
  std::size_t made_ = 0;
  std::vector<const AcDbStub*> open_;  // blocks being drawn
  std::map<std::string, std::size_t> unshown_, leftOut_;
  std::map<std::string, fonts::Font, std::less<>> fonts_;
  std::size_t visits_ = 0;
  bool stopped_ = false;
};

// Whether entities of that type are drawn, or have nothing to draw.
bool isDrawn(std::string_view type);

using DrawFunction = void (*)(SceneBuilder&, const Entity&);

// One function for each kind of entity; the table in scene.cpp gives the types.
void drawLine(SceneBuilder& scene, const Entity& e);
void drawCircle(SceneBuilder& scene, const Entity& e);
void drawArc(SceneBuilder& scene, const Entity& e);
void drawEllipse(SceneBuilder& scene, const Entity& e);
void drawSpline(SceneBuilder& scene, const Entity& e);
void drawPoint(SceneBuilder& scene, const Entity& e);
void drawUnbounded(SceneBuilder& scene, const Entity& e);
void drawSolid(SceneBuilder& scene, const Entity& e);
void drawFace(SceneBuilder& scene, const Entity& e);
void drawLwPolyline(SceneBuilder& scene, const Entity& e);
void drawPolyline(SceneBuilder& scene, const Entity& e);
void drawText(SceneBuilder& scene, const Entity& e);
void drawAttribute(SceneBuilder& scene, const Entity& e);
void drawAttributeDefinition(SceneBuilder& scene, const Entity& e);
void drawMText(SceneBuilder& scene, const Entity& e);
void drawInsert(SceneBuilder& scene, const Entity& e);
void drawParts(SceneBuilder& scene, const Entity& e);
void drawWipeout(SceneBuilder& scene, const Entity& e);
void drawImage(SceneBuilder& scene, const Entity& e);
void drawHatch(SceneBuilder& scene, const Entity& e);
void drawViewport(SceneBuilder& scene, const Entity& e);

}  // namespace atelier::render
