// (plv-bureau-survol handle x y) says what an entity is at a point.
#include "atelier/desktop/view/under_cursor.h"

#include "atelier/base/text.h"
#include "atelier/desktop/document/lisp_bridge.h"
#include "atelier/selecting/pick.h"

namespace atelier::desktop {

void UnderCursor::look(const AcGePoint3d& at) {
  at_ = at;
  take(picksAt(document_, at));
}

void UnderCursor::take(std::vector<AcDbStub*> found) {
  if (found != found_) place_ = 0;
  found_ = std::move(found);
  document_.pointing.preferred = place_ > 0 ? chosen() : nullptr;
}

bool UnderCursor::next() {
  if (found_.size() < 2) return false;
  place_ = (place_ + 1) % found_.size();
  document_.pointing.preferred = place_ > 0 ? chosen() : nullptr;
  return true;
}

QString UnderCursor::description() const {
  if (found_.empty()) return {};
  const QString text =
      ask(document_, QString("(plv-bureau-survol \"%1\" %2 %3)")
                         .arg(QString::fromStdString(handleText(chosen()->handle)), number(at_.x), number(at_.y)))
          .toString();
  return found_.size() == 1 ? text : text + QString(" (%1/%2)").arg(place_ + 1).arg(found_.size());
}

}  // namespace atelier::desktop
