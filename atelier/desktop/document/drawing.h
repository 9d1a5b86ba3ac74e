// One open drawing of the window: its document, the running command, and its picture.
#pragma once
#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <atomic>
#include <deque>
#include <memory>
#include <utility>

#include "atelier/desktop/document/desktop_source.h"
#include "atelier/desktop/picture/space_scene.h"
#include "atelier/document/document.h"

namespace atelier::desktop {

// Notes that a database changes.
class ChangeMark final : private ChangeListener {
 public:
  explicit ChangeMark(AcDbImpDatabase& database) : database_(database) { database_.addListener(*this); }
  ~ChangeMark() override { database_.removeListener(*this); }
  ChangeMark(const ChangeMark&) = delete;
  ChangeMark& operator=(const ChangeMark&) = delete;
  bool take() { return std::exchange(changed_, false); }

 private:
  void changes(AcDbStub&) override { changed_ = true; }
  AcDbImpDatabase& database_;
  bool changed_ = false;
};

class Drawing : public QObject {
 public:
  // A new drawing, or the file (throws Error). With messages, what can be read of a damaged file is opened.
  explicit Drawing(const QString& path, std::vector<std::string>* messages = nullptr);
  ~Drawing() override;

  Document& document() { return *document_; }
  SpaceScene& scene() { return *scene_; }
  const DesktopSource& source() const { return source_; }

  // A typed line answers the waiting prompt, else begins a command. Typed before there is a prompt, or before a cancelled
  // command has ended, it is kept until then.
  void type(const QString& line);
  // Carries orders out, as soon as the event loop is reached; a running command is cancelled first.
  void feed(const std::vector<Order>& orders);
  void pick(const AcGePoint3d& point);
  // The cursor has moved: a program that follows it is told.
  void follow(const AcGePoint3d& point);
  // Ends the running command, and drops the orders that haven't begun.
  void cancel();
  bool isRunning() const { return running_; }
  // The name of the running command; empty when there is none.
  QString commandName() const;
  bool waits() const { return source_.waits(); }
  bool hasMore() const { return awaited_ > 0; }  // orders that haven't begun
  // Whether a command runs that doesn't wait for an answer.
  bool computes() const;
  // Whether the running command is to end: what the host's long loops ask, unless something else is under way.
  static bool stopAsked();
  // While it lives, the running command waits for a dialog: what its events do isn't the command's work.
  class Waiting {
   public:
    Waiting();
    ~Waiting();
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;
  };
  bool isBusy() const { return isRunning() || hasMore() || isAwaited; }
  bool isAwaited = false;  // by a form that comes back over it
  const PromptInfo* prompt() const { return source_.prompt(); }
  QString fileName() const;  // without its folder
  QString title() const;     // of the tab
  bool isModified() { return document_->imp().modified; }
  // Whether an object has changed since the last call.
  bool takeChanged() { return changes_->take(); }

  // Is told while a command computes, several times a second, with the milliseconds since it began or was last answered.
  std::function<void(qint64)> onWork;
  std::function<void(QString)> onPrinted;
  std::function<void()> onPrompt;    // the running prompt changed
  std::function<void()> onCommand;   // a command ended; in a row of them, too
  std::function<void()> onDone;      // the last command ended; the drawing may have changed
  std::function<void()> onQuit;      // QUIT has ended, and wants the program to end
  std::function<void()> onReplaced;  // a command has opened another drawing in place of this one
  void setUntitled(const QString& name);  // what it is called until it has a file
  QString lastLine;  // Enter at the command prompt runs it again
  QString ended;     // the name of the command that ended last

 private:
  class Replacement;
  void run();
  void replaced();
  void bind();
  void stop();
  void work();
  DesktopSource source_;
  std::unique_ptr<Document> document_;
  std::unique_ptr<SpaceScene> scene_;
  std::unique_ptr<ChangeMark> changes_;
  std::deque<QString> later_;
  QElapsedTimer computing_;
  std::atomic<bool> lookDue_{false};
  bool running_ = false;
  int awaited_ = 0, cancelled_ = 0;
};

}  // namespace atelier::desktop
