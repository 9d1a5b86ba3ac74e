// pl_InfosTn and pl_PointTn: the natural ground of a profile, for LISP.
// Points come back as (distance, altitude, 0).
#include "module/commande/argsLisp.h"
#include "module/profil/fonctionsProfil.h"
#include "module/profil/profilLong.h"

namespace plv {

void pl_InfosTn() {
  ArgsLisp args;
  commencerAppel(args);
  if (!conforme(args, "N")) return;
  profilLong profil;
  profil.lireNom(args.tete()->resval.rlname);
  if (profil.distTn.empty()) return;
  const ads_point infos = {static_cast<double>(profil.distTn.size()), profil.distTn.back(), 0.0};
  acedRetPoint(infos);
}

void pl_PointTn() {
  ArgsLisp args;
  commencerAppel(args);
  if (!conforme(args, "NE")) return;
  profilLong profil;
  if (!profil.lireNom(args.tete()->resval.rlname)) return;
  const Adesk::Int32 index = valeurEntiere(args.nieme(1));
  if (index < 0 || static_cast<std::size_t>(index) >= profil.distTn.size()) return;
  const auto i = static_cast<std::size_t>(index);
  const ads_point point = {profil.distTn[i], profil.altTn[i], 0.0};
  acedRetPoint(point);
}

}  // namespace plv
