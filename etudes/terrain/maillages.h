// Meshes of the drawing, of which the host has no class, as triangles: polyface meshes, grids of M by N vertices, subdivided meshes.
#pragma once
#include <array>
#include <optional>
#include <vector>

#include "etudes/surfaces/point.h"
#include "hote/dbents.h"

namespace etu {

struct facesLues {
  std::vector<std::array<point3, 3>> triangles;
  std::size_t faces = 0;  // as the mesh has them; each is cut into triangles from its first corner on
};

// Nothing for an entity that isn't a mesh. Of a mesh that is shown smoother than its vertices the faces between these are taken; of a
// smoothed grid the vertices that it is drawn with.
std::optional<facesLues> facesDuMaillage(const AcDbEntity& entite);

}  // namespace etu
