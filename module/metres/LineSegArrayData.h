// LineSegArrayData: the pieces of a line in ascending station, held by several owners.
// Indexing is guarded: an index outside raises the framework's invalid-argument failure.
#pragma once
#include <boost/shared_ptr.hpp>

#include "hote/mfc.h"
#include "module/metres/LineSeg.h"

namespace plv {

inline constexpr double kSansDebut = 1e36, kSansFin = -1e36;  // first and last station of an empty array

class LineSegArrayData : public CArray<LineSeg> {
 public:
  double premiereStation() const { return IsEmpty() ? kSansDebut : GetAt(0).x1; }
  double derniereStation() const { return IsEmpty() ? kSansFin : GetAt(GetSize() - 1).x2; }
  LineSeg& dernier() { return GetAt(GetSize() - 1); }
  // Clips to [a, b]. The pieces before a stay unless a cuts a piece: existing reports count on it. A piece that can't be
  // cut is alerted to the user and stays.
  void ajuster(double a, double b);
  // Appends a copy of every piece; an array itself is an invalid argument.
  void concatener(const LineSegArrayData& autre);

 private:
  bool couperDebut(double a);
  bool couperFin(double b);
};

using poigneeSegments = boost::shared_ptr<LineSegArrayData>;

}  // namespace plv
