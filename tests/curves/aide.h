// Helpers of the tests of curve entities: a bare host, entities made with AutoLISP, comparison of near values.
#pragma once
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "hote/acdb.h"
#include "hote/dbpl.h"
#include "tests/support/session.h"

namespace kaveltest {

// A drawing without the plug-in.
struct Host : ::testing::Test {
  Host() : session(false) {}
  // The id of the last entity after these entmakes.
  AcDbObjectId made(const std::string& lisp) {
    const std::string quoted = session.eval("(progn " + lisp + " (cdr (assoc 5 (entget (entlast)))))");
    ads_name name;
    AcDbObjectId id;
    if (acdbHandEnt(std::wstring(quoted.begin() + 1, quoted.end() - 1).c_str(), name) == RTNORM)
      acdbGetObjectId(id, name);
    return id;
  }
  Session session;
};

using Parts = std::vector<std::unique_ptr<AcDbCurve>>;

inline AcGeDoubleArray doubles(std::initializer_list<double> list) {
  AcGeDoubleArray out;
  for (const double d : list) out.append(d);
  return out;
}

inline Parts split(const AcDbCurve& curve, std::initializer_list<double> params) {
  AcArray<AcDbCurve*> made;
  curve.getSplitCurves(doubles(params), made);
  Parts out;
  for (AcDbCurve* part : made) out.emplace_back(part);
  return out;
}

inline double lengthOf(const AcDbCurve& curve) {
  double end = 0, length = -1;
  if (curve.getEndParam(end) == Acad::eOk) curve.getDistAtParam(end, length);
  return length;
}

inline AcGePoint3d at(const AcDbCurve& curve, double param) {
  AcGePoint3d p(-1e9, 0, 0);
  curve.getPointAtParam(param, p);
  return p;
}

// The row of points of a polyline with bulges, in an array of x, y, bulge.
inline std::unique_ptr<AcDbPolyline> polyline(std::initializer_list<std::array<double, 3>> vertices,
                                              bool closed = false) {
  auto out = std::make_unique<AcDbPolyline>();
  for (const auto& v : vertices) out->addVertexAt(out->numVerts(), AcGePoint2d(v[0], v[1]), v[2]);
  out->setClosed(closed);
  return out;
}

}  // namespace kaveltest
