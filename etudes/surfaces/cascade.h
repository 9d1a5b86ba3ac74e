// Several surfaces as one: where the first has no ground the second one is asked, and so on.
#pragma once
#include <memory>

#include "etudes/surfaces/coupe.h"

namespace etu {

class cascade : public surfaceCoupable {
 public:
  void ajouter(std::unique_ptr<surfaceCoupable> surface) { m_surfaces.push_back(std::move(surface)); }
  bool vide() const { return m_surfaces.empty(); }
  void couper(const piedAxe& a, const piedAxe& b, std::vector<tranche>& tranches) override;
  etendue emprise() const override;

 private:
  std::vector<std::unique_ptr<surfaceCoupable>> m_surfaces;
};

}  // namespace etu
