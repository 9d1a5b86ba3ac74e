// ArgsLisp: the wrapper over a chain of LISP arguments or XDATA, and the typed readers of one node.
// Every handler reads what it was given, and every reader of stored data what it finds, through these.
#pragma once
#include <string>
#include <string_view>

#include "hote/aced.h"
#include "hote/acut.h"
#include "hote/dbmain.h"

namespace plv {

// Marks of stored data: a value that is nil, and an object that is null (in XDATA: a value without an
// encoding).
inline constexpr Adesk::Int32 kSansValeur = -99999999;
inline constexpr Adesk::Int32 kObjetNul = -9999999;
// What valeurReelle gives for a node that carries no number.
inline constexpr double kReelAbsent = 1e36;

// XDATA group codes.
inline constexpr short kXTexte = 1000, kXApplication = 1001, kXHandle = 1005, kXReel = 1040, kXDistance = 1041,
                       kXEntier16 = 1070, kXEntier32 = 1071;

class ArgsLisp {
 public:
  // Takes the chain and releases it at the end.
  explicit ArgsLisp(resbuf* tete = nullptr) : m_tete(tete) {}
  ~ArgsLisp() { liberer(); }
  ArgsLisp(const ArgsLisp&) = delete;
  ArgsLisp& operator=(const ArgsLisp&) = delete;

  // The arguments of the function that LISP has called. The chain stays the host's.
  resbuf* lireArgs();
  // The application's data of an open object; the head is the group 1001. Null when there are none.
  resbuf* lireXData(const AcDbObject& objet, const ACHAR* application);

  resbuf* tete() const { return m_tete; }
  // Walks the chain; the groups of a sublist count one by one.
  Adesk::UInt32 nombre() const;
  // The node at the 0-based place i; the first one for i below 1, null past the end. Walks from the head: a
  // long chain is to be followed by rbnext instead.
  resbuf* nieme(Adesk::Int32 i) const;
  // Links a node or chain after the last one. False for a null chain.
  bool ajouter(resbuf* chaine);

 private:
  void liberer();
  resbuf* m_tete;
  bool m_proprietaire = true;
};

// The opening of a handler: its arguments are read, and nil is the result until another one is set.
void commencerAppel(ArgsLisp& args);

// Whether the first arguments have these types, one letter each: R a number, E an integer, C a string, P a
// point, N an entity name. Surplus arguments are accepted.
bool conforme(const ArgsLisp& args, std::string_view types);

// All of these accept a null node, which is of no type.
bool estNombre(const resbuf* rb);  // 5001, 5003, 5010
bool estEntier(const resbuf* rb);  // 5003, 5010: a real isn't one
bool estChaine(const resbuf* rb);
bool estPoint(const resbuf* rb);  // 5002, 5009
bool estNom(const resbuf* rb);

double valeurReelle(const resbuf* rb);         // kReelAbsent for anything but a number
Adesk::Int32 valeurEntiere(const resbuf* rb);  // kSansValeur for anything but an integer, reals included
std::wstring valeurTexte(const resbuf* rb);    // empty for anything but a string
AcGePoint3d valeurPoint(const resbuf* rb);     // z is 0 for a plane point; the origin for anything but a point
AcDbObjectId valeurId(const resbuf* rb);       // null for anything but an entity name that the host knows

double reelXData(const resbuf* rb);          // 1040, 1041, 1070, 1071; else 0.0
Adesk::Int32 entierXData(const resbuf* rb);  // 1070, 1071; else 0
bool estEntierXData(const resbuf* rb);
bool estHandleXData(const resbuf* rb);
// Kept as it is: true for every node. A key with a string where a real is expected reads as 0.0 and doesn't stop a
// walk.
bool estReelXData(const resbuf* rb);

// The first node of the chain with that code, or null.
resbuf* chercheCode(resbuf* rb, int code);

}  // namespace plv
