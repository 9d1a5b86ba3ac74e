// profilLong: the record of one longitudinal profile, read anew from the drawing at each call, with the
// mapping between drawing, station and altitude. It is a value: nothing is kept open, and nothing is written
// back.
//
// A profile is a block reference with the attribute "NUMPL" and XDATA of two applications. "PLV2_DATA" holds
// pairs of a group 1000, the key, and one value: ECHV, TTXT, DCUMDEB (reals), ID (integer), PRPC and HTN,
// HASS, HVOIRIE, HAEP, HGEN, HTERRA, HPROJ (handles, 1005). "KELMONT_PLV2" holds the natural ground, two
// reals for each point: the distance from the previous point and the altitude.
//
// Units: distances are metres from the profile's origin, stations are distances plus dcumDeb, altitudes are
// metres, drawing coordinates are drawing units (a metre horizontally, echelleV for a metre of altitude).
#pragma once
#include <array>
#include <string>
#include <vector>

#include "hote/dbents.h"
#include "hote/dbpl.h"
#include "module/profil/grandeurs.h"

namespace plv {

inline constexpr const ACHAR* kApplicationCles = L"PLV2_DATA";
inline constexpr const ACHAR* kApplicationTn = L"KELMONT_PLV2";
inline constexpr const ACHAR* kRecordProjet = L"ELEMS_PROJET_KAVEL";
inline constexpr double kToleranceStation = 1e-8;  // equal distances, in the whole profile model

// The kinds of line, in the order in which the record keeps their entities.
enum genreLigne { kTn, kAss, kVoirie, kAep, kGen, kTerra, kProj, kNombreGenres };

struct profilLong {
  double echelleV;
  double hauteurTexte;
  double dcumDeb;
  std::vector<double> distPc;  // start of each section; the first is 0
  std::vector<double> altPc;   // reference plane of each section
  std::vector<double> distTn;  // natural ground: cumulated distances
  std::vector<double> altTn;
  AcDbObjectIdArray idsPc;  // the PC entities, in chain order
  bool clesInconnues;       // "PLV2_DATA" holds an item that is no known key with a fitting value
  Adesk::Int32 id;
  AcString numero;
  std::array<AcDbHandle, kNombreGenres> handles;
  AcDbObjectId idBloc;
  std::array<AcDbObjectId, kNombreGenres> ids;
  AcGePoint3d position;  // insertion point of the block

  profilLong() { reinitialiser(); }
  // Defaults everywhere, but numero and position stay.
  void reinitialiser();

  // Reading: false for what isn't a profile, with nothing said. A record is read once.
  bool lireBloc(const AcDbBlockReference& bloc);
  bool lireId(AcDbObjectId id);
  bool lireNom(const ads_name nom);

  // The entity of a kind by its keyword: VOIRIE, ASSAINISSEMENT, AEP, TERRASSEMENTS, PROJET, GENERIQUE, TN,
  // or "*" for the block. Kept as it is: an argument shorter than the keyword matches on its own length, a longer one
  // on the keyword's, and the first match counts: "" gives VOIRIE, "T" TERRASSEMENTS, "AEPX" AEP. False and a null id
  // without a match.
  bool idParMotCle(const std::wstring& motCle, AcDbObjectId& id) const;
  // TN on demand, then ASS, VOIRIE, AEP, GEN, TERRA, PROJ, then the block on demand; null ids included.
  void idsElements(AcDbObjectIdArray& liste, bool avecTn, bool avecBloc) const;
  // The block and the seven entities, without the null ones.
  void idsNonNuls(AcDbObjectIdArray& liste) const;
  // Non-null ids and their labels for the user. With avecProjet only those whose project list isn't empty. Kept as it
  // is: only then may TN be among them.
  void elementsEtLabels(AcDbObjectIdArray& ids, std::vector<std::wstring>& labels, bool avecTn, bool avecBloc,
                        bool avecProjet) const;
  // (distance, altitude) of each natural-ground point.
  void pointsTn(AcGePoint2dArray& liste) const;
  // The last natural-ground distance; 0 for a profile without ground. Kept as it is: also 0 for one whose keys are all
  // known, since front-ends mark a complete profile by keys of their own.
  double longueurTn() const;

  // From the insertion point.
  distanceProfil distanceDe(xDessin x) const { return distanceProfil(x.valeur - position.x); }
  distanceProfil distanceDe(stationPk s) const { return distanceProfil(s.valeur - dcumDeb); }
  stationPk stationDe(distanceProfil d) const { return stationPk(d.valeur + dcumDeb); }
  xDessin xDe(distanceProfil d) const { return xDessin(position.x + d.valeur); }

  // Station and altitude to drawing. False outside 0 to longueurTn(), and for a profile without PC.
  bool versDessin(stationPk s, altitudeVraie z, xDessin& x, yDessin& y) const;
  // Distance and altitude to a drawing ordinate. Kept as it is: at a change of section the lower plane serves, whereas
  // a point there has no altitude (altitudeDePoint).
  yDessin ordonneeDessin(distanceProfil d, altitudeVraie z) const;
  // The same over a given reference plane, and back.
  yDessin yDe(altitudeVraie z, altitudeVraie pc) const;
  altitudeVraie altitudeDeY(yDessin y, altitudeVraie pc) const;
  // Drawing point to altitude; a relative one is given in the drawing, another from the insertion point.
  // False, with the altitude untouched, on a change of section, where a point has none.
  bool altitudeDePoint(const AcGePoint3d& point, altitudeVraie& z, bool relatif) const;
  void versProfil(std::size_t section, const AcGePoint3d& point, stationPk& s, altitudeVraie& z) const;
  // The reference plane of a section; 0 for one that the profile hasn't.
  altitudeVraie altitudeSection(std::size_t section) const;
  // The section by its bounds, at a drawing abscissa.
  std::size_t indexPc(xDessin x) const;
  // The reference plane by the scan of the sections, which isn't that of the section's bounds.
  altitudeVraie pcEnStation(stationPk s) const;
  altitudeVraie pcEnX(xDessin x) const;
  // The natural ground at a drawing abscissa, extrapolated on its end segments; 0 without points.
  altitudeVraie altitudeTn(xDessin x) const;

 private:
  std::size_t sectionBalayage(distanceProfil d) const;
  void lireCles(const resbuf* premiere);
  bool lireCle(const std::wstring& cle, const resbuf* valeur);
  bool lireHandle(const std::wstring& cle, const resbuf* valeur);
  void lireTn(const resbuf* premiere);
};

// The text of the block's attribute of that tag, in any case. False when there is none.
bool lireAttribut(const AcDbBlockReference& bloc, const ACHAR* tag, AcString& texte);
// The same by entity name. False for any class but AcDbBlockReference itself, derived ones included.
bool lireAttributParNom(const ads_name nom, const ACHAR* tag, AcString& texte);
// Appends the ids of all profiles of the drawing whose "ID" is this one.
void profilsParId(Adesk::Int32 id, AcDbObjectIdArray& liste);

}  // namespace plv
