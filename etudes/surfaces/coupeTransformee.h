// A surface whose coordinates are those of another system: each chord is carried there, in parts that stay straight enough.
#pragma once
#include <functional>
#include <memory>

#include "etudes/surfaces/coupe.h"

namespace etu {

// Carries a point in place; false for one that has no image.
using changement = std::function<bool(double& x, double& y)>;

class coupeTransformee : public surfaceCoupable {
 public:
  // versSurface takes a point of the axis to the surface, depuisSurface back.
  coupeTransformee(std::unique_ptr<surfaceCoupable> surface, changement versSurface, changement depuisSurface)
      : m_surface(std::move(surface)), m_vers(std::move(versSurface)), m_depuis(std::move(depuisSurface)) {}
  void couper(const piedAxe& a, const piedAxe& b, std::vector<tranche>& tranches) override;
  etendue emprise() const override;

 private:
  void couperPart(const piedAxe& a, const piedAxe& b, double t0, double t1, int profondeur,
                  std::vector<tranche>& tranches);

  std::unique_ptr<surfaceCoupable> m_surface;
  changement m_vers, m_depuis;
};

}  // namespace etu
