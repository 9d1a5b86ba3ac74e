// Coordinates between the world and the planes of entities.
// The plane of a normal follows the arbitrary axis algorithm of the DXF reference.
#include "atelier/document/coordinate_systems.h"

#include "atelier/database/objects/imp_database.h"

namespace atelier {

std::optional<AcGeMatrix3d> systemByCode(int code) {
  if (code < 0 || code > 3) return std::nullopt;
  return AcGeMatrix3d();
}

AcGeMatrix3d systemOfNormal(const AcGeVector3d& normal) {
  return normal.isZeroLength() ? AcGeMatrix3d() : AcGeMatrix3d().setToPlaneToWorld(normal.normal());
}

AcGeMatrix3d systemOfEntity(const AcDbStub& entity) {
  const std::vector<Group>& groups =
      AcDbImpObject::of(&entity.database->object(const_cast<AcDbStub&>(entity))).settled().groups;
  for (std::size_t i = 0; i + 2 < groups.size(); ++i)
    if (groups[i].code() == 210 && groups[i + 1].code() == 220 && groups[i + 2].code() == 230)
      return systemOfNormal({groups[i].real(), groups[i + 1].real(), groups[i + 2].real()});
  return {};
}

AcGePoint3d translated(const AcGePoint3d& point, const AcGeMatrix3d& from, const AcGeMatrix3d& to, bool displacement) {
  const AcGeMatrix3d matrix = to.inverse() * from;
  return displacement ? AcGePoint3d() + matrix * point.asVector() : matrix * point;
}

}  // namespace atelier
