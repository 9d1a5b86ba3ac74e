// The ground of a profile as a sibling module has it: the function it exports and its table.
// The table stays the sibling's.
#include "module/optimiseur/pointsVoisin.h"

#include <cstddef>
#include <span>

#include "hote/plateforme.h"

namespace plv {

namespace {

constexpr const wchar_t* kModuleVoisin = L"TREM-ARX2013-64BITS.arx";
constexpr const char* kNomFonction = "getPointsProfils";

// A record of the sibling's table: one straight piece of the ground. The bytes around the ends are its own affair.
struct tronconVoisin {
  std::byte enTete[24];
  double xDebut, yDebut, xFin, yFin;
  std::byte suite[8];
};
static_assert(sizeof(tronconVoisin) == 64 && offsetof(tronconVoisin, xDebut) == 24);

using lectureVoisin = bool (*)(Adesk::Int32 idProfil, Adesk::Int32* nombre, const tronconVoisin** table);

// Kept after the first success; until then each call looks again.
lectureVoisin chercherFonction() {
  static HMODULE module = nullptr;
  static lectureVoisin fonction = nullptr;
  if (!module || !fonction) {
    module = GetModuleHandleW(kModuleVoisin);
    const FARPROC adresse = module ? GetProcAddress(module, kNomFonction) : nullptr;
    fonction = reinterpret_cast<lectureVoisin>(reinterpret_cast<void (*)()>(adresse));
  }
  return fonction;
}

}  // namespace

bool lirePointsProfils(Adesk::Int32 idProfil, AcGePoint2dArray& terrain) {
  const lectureVoisin lire = chercherFonction();
  Adesk::Int32 nombre = 0;
  const tronconVoisin* table = nullptr;
  if (!lire || !lire(idProfil, &nombre, &table)) return false;
  terrain.removeAll();
  if (!table || nombre < 1) return false;
  terrain.append(AcGePoint2d(table->xDebut, table->yDebut));
  for (const tronconVoisin& troncon : std::span(table, static_cast<std::size_t>(nombre)))
    terrain.append(AcGePoint2d(troncon.xFin, troncon.yFin));
  return true;
}

}  // namespace plv
