// The entities under the cursor, and the one of them that a click takes.
#pragma once
#include <QString>
#include <vector>

#include "atelier/document/document.h"

namespace atelier::desktop {

class UnderCursor {
 public:
  explicit UnderCursor(Document& document) : document_(document) {}

  // Looks at a point of the drawing. What the user has gone on to stays as long as the same entities are there.
  void look(const AcGePoint3d& at);
  void clear() { take({}); }
  // Goes on to the next entity; after the last one comes the first one. False when there is no other.
  bool next();
  AcDbStub* chosen() const { return found_.empty() ? nullptr : found_[place_]; }
  // "Ligne Voirie, PK 0+120.00, altitude 131.42, pente -4.60 % (1/2)"; empty for nothing.
  QString description() const;

 private:
  void take(std::vector<AcDbStub*> found);
  Document& document_;
  std::vector<AcDbStub*> found_;
  std::size_t place_ = 0;
  AcGePoint3d at_;
};

}  // namespace atelier::desktop
