// Makes the parts that stand for an entity: records on layer 0 whose look is that of the entity unless a part has its own.
// Inner header of the room. Points are in the world unless a plane is named; angles are in radians.
#pragma once
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "atelier/database/objects/imp_database.h"

namespace atelier {

// What a part has of its own; the rest is the entity's.
struct PartLook {
  std::int64_t colour = 0;  // 0: the entity's, 256: the layer's
  std::int64_t trueColour = -1;
  std::string linetype = "BYBLOCK";
  std::int64_t weight = -2;
};

// Gives each part on as soon as it is complete, since a mesh may have a hundred thousand.
class PartMaker {
 public:
  PartMaker(AcDbImpDatabase& database, const std::function<void(const Record&)>& receive)
      : database_(database), receive_(receive) {}
  ~PartMaker() { give(); }
  PartMaker(const PartMaker&) = delete;
  PartMaker& operator=(const PartMaker&) = delete;

  AcDbImpDatabase& database() { return database_; }
  void look(PartLook look) { look_ = std::move(look); }

  void line(const AcGePoint3d& from, const AcGePoint3d& to);
  void path(std::span<const AcGePoint3d> points, bool closed = false);
  // A smooth curve through the points.
  void curve(const std::vector<AcGePoint3d>& points);
  // An elliptic arc of a centre, half axes and parameters.
  void ellipse(const AcGePoint3d& centre, const AcGeVector3d& major, const AcGeVector3d& normal, double ratio,
               double start, double end);
  // Corners in order around the area, all in the plane of that normal.
  void area(const AcGePoint3d& a, const AcGePoint3d& b, const AcGePoint3d& c, const AcGePoint3d& d,
            const AcGeVector3d& normal);
  // A block, or a filled arrow a third as wide as long where there is none, with its tip there, pointing along a direction.
  void arrow(const AcGePoint3d& tip, const AcGeVector3d& along, double size, const AcGeVector3d& normal,
             const std::string& block);
  Record& insert(const std::string& block, const AcGePoint3d& at, const AcGeVector3d& scale, double turn,
                 const AcGeVector3d& normal);
  // A part that is complete when the next one begins.
  Record& add(std::string_view type);
  void add(Record whole);
  // Notes that the entity shows something that can't be read.
  void missing(std::string why = "données illisibles") { missing_ = std::move(why); }
  const std::string& whatIsMissing() const { return missing_; }

 private:
  void give();
  void polyline(std::span<const AcGePoint3d> points, bool closed);

  AcDbImpDatabase& database_;
  const std::function<void(const Record&)>& receive_;
  PartLook look_;
  Record part_;
  std::string missing_;
};

// The name of a table record by its handle; empty when there is none.
std::string nameOf(AcDbImpDatabase& database, std::uint64_t handle);

// One function for each kind of entity; the table in pictures.cpp gives the types.
void leaderParts(PartMaker& make, const Record& record);
void multileaderParts(PartMaker& make, const Record& record);
void multilineParts(PartMaker& make, const Record& record);
void toleranceParts(PartMaker& make, const Record& record);
void meshParts(PartMaker& make, const Record& record);
void solidParts(PartMaker& make, const Record& record);
void shapeParts(PartMaker& make, const Record& record);
void viewportFrame(PartMaker& make, const Record& record);
void rasterFrame(PartMaker& make, const Record& record);
void proxyParts(PartMaker& make, const Record& record);
void underlayFrame(PartMaker& make, const Record& record);

}  // namespace atelier
