// Graphics that are on the screen only: vectors drawn by handlers and highlighted entities.
// Kept as a list, so that tests, plots and the desktop can see them.
#pragma once
#include <string>
#include <vector>

#include "hote/dbid.h"
#include "hote/ge.h"

namespace atelier {

struct TransientVector {
  AcGePoint3d from, to;
  int color = 7;  // palette index; 0 removes vectors drawn at the same place
  bool highlighted = false;
};

struct Transients {
  std::vector<TransientVector> vectors;
  std::vector<AcDbObjectId> highlighted;
  std::string note;       // of the status line: what a program says of the cursor's place, its lines apart by " | "
  unsigned revision = 0;  // grows with every change

  void clearVectors() {
    vectors.clear();
    ++revision;
  }
};

}  // namespace atelier
