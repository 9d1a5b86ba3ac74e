// Station text, and pl_distToPk, which gives it to LISP.
// A station before the origin prints like the same station after it.
#include "module/profil/texteStation.h"

#include <cmath>

#include "module/commande/arguments/argsLisp.h"
#include "module/profil/fonctionsProfil.h"
#include "module/support/base/nombres.h"

namespace plv {

namespace {

constexpr Adesk::Int32 kDecimalesParDefaut = 2;
constexpr Adesk::Int32 kFormatPk = 1;

Adesk::Int32 entierOu(const resbuf* rb, Adesk::Int32 defaut) { return estEntier(rb) ? valeurEntiere(rb) : defaut; }

}  // namespace

void texteStation(double valeur, std::wstring& texte, int decimales, int format) {
  if (format == 0) {
    texte = texteFixe(valeur, decimales);
    return;
  }
  const double v = std::abs(valeur);
  Adesk::Int32 km = tronquer32(v / 1000.0);
  if (km * 1000.0 > v) --km;
  texte = format == 1 ? L"PK " : L"";
  texte += std::to_wstring(km);
  texte += format == 1 || format == 2 ? L'+' : L' ';
  texte += texteFixe(v - km * 1000.0, decimales);
}

void pl_distToPk() {
  ArgsLisp args;
  args.lireArgs();
  std::wstring texte;
  if (estNombre(args.tete()))
    texteStation(valeurReelle(args.tete()), texte, entierOu(args.nieme(1), kDecimalesParDefaut),
                 entierOu(args.nieme(2), kFormatPk));
  acedRetStr(texte.c_str());
}

}  // namespace plv
