// pl_TracerLignes: lines that the user draws on a profile, typed as station and altitude or picked on the
// screen. A loop over two modes that keeps the previous point.
#include <optional>

#include "hote/acdb.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/profil/fonctionsProfil.h"
#include "module/profil/profilLong.h"
#include "module/support/dessin/kitEntites.h"

namespace plv {

namespace {

constexpr int kTailleReponse = 133;  // the host's buffers for answers
constexpr int kUniteDecimale = 2;

enum class suite { fin, encore, saisie, graphique };

struct trace {
  const profilLong& profil;
  std::optional<AcGePoint3d> precedent;

  void prolonger(const AcGePoint3d& point) {
    if (precedent) dessinerLigne(*precedent, point);
    precedent = point;
  }
};

// "station,altitude" to numbers: false for a missing piece or one that is no number.
bool lireCouple(const std::wstring& reponse, stationPk& station, altitudeVraie& altitude) {
  std::wstring pieces[2];
  std::size_t place = 0;
  for (std::wstring& piece : pieces) {
    const std::size_t debut = reponse.find_first_not_of(L',', place);
    if (debut == std::wstring::npos) return false;
    place = std::min(reponse.find(L',', debut), reponse.size());
    piece = reponse.substr(debut, place - debut);
  }
  return acdbDisToF(pieces[0].c_str(), kUniteDecimale, &station.valeur) == RTNORM &&
         acdbDisToF(pieces[1].c_str(), kUniteDecimale, &altitude.valeur) == RTNORM;
}

suite saisirPoint(trace& t) {
  ACHAR reponse[kTailleReponse] = L"";
  if (acedGetString(0, L"\nPosition sur profil [Graphique]", reponse) != RTNORM || !*reponse) return suite::fin;
  if (*reponse == L'G' || *reponse == L'g') return suite::graphique;
  stationPk station;
  altitudeVraie altitude;
  xDessin x;
  yDessin y;
  if (lireCouple(reponse, station, altitude) && t.profil.versDessin(station, altitude, x, y))
    t.prolonger({x.valeur, y.valeur, 0.0});
  return suite::encore;
}

suite pointerPoint(trace& t) {
  AcGePoint3d point;
  acedInitGet(RSG_NOLIM | RSG_2D, L"P");
  switch (acedGetPoint(t.precedent ? asDblArray(*t.precedent) : nullptr, L"\nPosition [Profil]:", asDblArray(point))) {
    case RTCAN:
    case RTNONE: return suite::fin;
    case RTKWORD: return suite::saisie;
    case RTNORM: t.prolonger(point); return suite::encore;
    default: return suite::encore;
  }
}

}  // namespace

void pl_TracerLignes() {
  ArgsLisp args;
  args.lireArgs();
  profilLong profil;
  if (!conforme(args, "N") || !profil.lireNom(args.tete()->resval.rlname)) return;
  trace t{profil, {}};
  suite mode = suite::saisie;
  while (mode != suite::fin) {
    const suite prochain = mode == suite::saisie ? saisirPoint(t) : pointerPoint(t);
    if (prochain != suite::encore) mode = prochain;
  }
}

}  // namespace plv
