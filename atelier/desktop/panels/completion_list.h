// The names that begin as a typed line does, shown beside it. The list never has the keys, as a menu would: of what is typed fast
// those that come while such a one opens or closes would be lost.
#pragma once
#include <QCompleter>
#include <QLineEdit>
#include <QListView>
#include <QStringListModel>

namespace atelier::desktop {

class CompletionList : public QListView {
 public:
  // The line gets the name that is chosen.
  explicit CompletionList(QLineEdit& line);
  void setNames(QStringList names);
  // For what has been typed; hidden where no name goes on from it.
  void complete();
  // Of the names shown the next one, or the one before.
  void step(int by);
  // Writes the name that is chosen; false when there is none.
  bool take();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void place();
  QLineEdit& line_;
  QStringListModel names_;
  QCompleter completer_;
};

}  // namespace atelier::desktop
