// LineSeg: one straight piece of a line in profile coordinates. LineSegArrayData: the pieces of a line in ascending
// order, held by several owners. Abscissas are distances from the profile's origin, ordinates true altitudes.
#pragma once
#include <boost/shared_ptr.hpp>

#include "hote/adesk.h"
#include "hote/mfc.h"
#include "module/profil/grandeurs.h"

namespace plv {

struct LineSeg {
  double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  Adesk::Int32 classe = 0;  // class number of the depth section it belongs to; 0 for a line as it was read

  // The ordinate at x. False, with y untouched, for a piece shorter than 1e-8, and with `verifierBornes` for an x
  // outside it.
  bool YAt(distanceProfil x, altitudeVraie& y, bool verifierBornes = false) const;
};

// The crossing of two pieces by the host's own intersection, within both of them with `tester`. x and y stay as they
// were when there is none.
bool intersection(const LineSeg& a, const LineSeg& b, distanceProfil& x, altitudeVraie& y, bool tester);

inline constexpr double kDebutVide = 1e36, kFinVide = -1e36;  // ends of an empty array: no other one reaches them

// Indexing is guarded: an index outside raises the framework's invalid-argument failure.

class LineSegArrayData : public CArray<LineSeg> {
 public:
  distanceProfil debut() const { return distanceProfil(IsEmpty() ? kDebutVide : GetAt(0).x1); }
  distanceProfil fin() const { return distanceProfil(IsEmpty() ? kFinVide : GetAt(GetSize() - 1).x2); }
  LineSeg& dernier() { return GetAt(GetSize() - 1); }
  // Clips to [a, b]. Kept as it is: pieces that lie before a stay unless a cuts a piece, existing reports count on it.
  // A piece that can't be cut is alerted to the user and stays.
  void ajuster(distanceProfil a, distanceProfil b);
  // Appends a copy of every piece; an array itself is an invalid argument.
  void concatener(const LineSegArrayData& autre);

 private:
  bool couperDebut(distanceProfil a);
  bool couperFin(distanceProfil b);
};

using poigneeSegments = boost::shared_ptr<LineSegArrayData>;

}  // namespace plv
