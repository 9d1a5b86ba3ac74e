// A command runs inside the event that began it; its prompts wait in event loops of their own. While AutoLISP works
// without asking, events are processed several times a second, so that Escape has an effect.
#include "atelier/desktop/document/drawing.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QScopedValueRollback>
#include <QThread>
#include <QTimer>
#include <atomic>
#include <chrono>
#include <thread>

#include "atelier/application/front_end.h"
#include "atelier/application/open_drawing.h"
#include "atelier/base/interruption.h"

namespace atelier::desktop {
namespace {

Drawing* working = nullptr;  // the drawing whose command runs
int dialogsWaitedFor = 0;
bool eventsPass = false;  // while it computes: what they do isn't stopped with it, nothing may be thrown through them

// While it lives, asks the interpreter, and the host's long loops, for a pause at regular intervals.
class Heartbeat {
 public:
  Heartbeat(lisp::Interpreter& interpreter, std::atomic<bool>& due)
      : thread_([this, &interpreter, &due] {
          while (!ends_) {
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
            interpreter.requestPoll();
            due = true;
          }
        }) {}
  ~Heartbeat() {
    ends_ = true;
    thread_.join();
  }

 private:
  std::atomic<bool> ends_{false};
  std::thread thread_;
};

}  // namespace

// The document may open another drawing while a command runs.
class Drawing::Replacement final : public Attachment {
 public:
  explicit Replacement(Drawing& drawing) : drawing_(drawing) {}
  void drawingOpened() override { drawing_.replaced(); }

 private:
  Drawing& drawing_;
};

Drawing::Drawing(const QString& path, std::vector<std::string>* messages) {
  document_ = std::make_unique<OpenDrawing>(
      [this](std::string_view text) {
        if (onPrinted) onPrinted(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
      },
      path.toStdString(), messages);
  document_->holdLock();
  loadFrontal(*document_);
  document_->imp().modified = false;
  bind();
  document_->attach(std::make_unique<Replacement>(*this));
  source_.onPrompt = [this] {
    computing_.start();
    if (onPrompt) onPrompt();
  };
  source_.onCommand = [this] {
    computing_.start();
    if (onCommand) onCommand();
  };
  document_->interpreter().onPoll([this] {
    // Calls of the window itself, between commands and at prompts, must not be interrupted by events.
    if (!running_ || source_.prompt() || dialogsWaitedFor > 0) return;
    work();
    const QScopedValueRollback<bool> pass(eventsPass, true);
    QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
  });
  setInterruptionQuestion(stopAsked);
}

Drawing::~Drawing() {
  onPrinted = nullptr;
  onWork = nullptr;
  onPrompt = onCommand = onDone = onQuit = onReplaced = nullptr;
}

void Drawing::bind() {
  scene_ = std::make_unique<SpaceScene>(document_->database());
  changes_ = std::make_unique<ChangeMark>(document_->imp());
}

void Drawing::replaced() {
  bind();
  if (onReplaced) onReplaced();
}

QString Drawing::fileName() const {
  const std::string& path = document_->path();
  return path.empty() ? QString::fromStdString(document_->untitled)
                      : QFileInfo(QString::fromStdString(path)).fileName();
}

void Drawing::setUntitled(const QString& name) { document_->untitled = name.toStdString(); }

QString Drawing::title() const {
  return document_->isReadOnly() ? fileName() + QStringLiteral(" (lecture seule)") : fileName();
}

QString Drawing::commandName() const {
  return running_ ? QString::fromStdString(source_.running()).trimmed().section(' ', 0, 0).toUpper() : QString();
}

void Drawing::type(const QString& line) {
  if (source_.waits()) return source_.answer(Input::line(line.toStdString()));
  if (running_ && source_.isAbandoned()) return later_.push_back(line);
  if (running_) return source_.append(line.toStdString());
  QString text = line;
  if (text.trimmed().isEmpty()) text = lastLine;
  if (text.trimmed().isEmpty()) return;
  lastLine = text;
  source_.begin({{text.toStdString()}});
  run();
}

void Drawing::feed(const std::vector<Order>& orders) {
  if (running_) stop();  // the command must end first
  ++awaited_;
  QTimer::singleShot(0, this, [this, orders, before = cancelled_] {
    --awaited_;
    if (before != cancelled_) return;
    if (running_) return feed(orders);
    source_.begin(orders);
    run();
  });
}

void Drawing::run() {
  running_ = true;
  if (onPrompt) onPrompt();
  bool goesOn = true;
  {
    const Heartbeat heartbeat(document_->interpreter(), lookDue_);
    const QScopedValueRollback<bool> own(eventsPass, false);
    working = this;
    try {
      goesOn = document_->run(source_);
    } catch (const std::exception& error) {
      document_->fail(error.what());
    }
  }
  working = nullptr;
  ended = commandName();
  running_ = false;
  if (onPrompt) onPrompt();
  if (onDone) onDone();
  if (!goesOn && onQuit) return onQuit();
  if (later_.empty()) return;
  const QString line = std::move(later_.front());
  later_.pop_front();
  feed({{line.toStdString()}});
}

bool Drawing::computes() const {
  return running_ && !source_.prompt() && !source_.isBetweenCommands() && dialogsWaitedFor == 0;
}

Drawing::Waiting::Waiting() {
  ++dialogsWaitedFor;
  if (working && working->onPrompt) working->onPrompt();
}

Drawing::Waiting::~Waiting() {
  --dialogsWaitedFor;
  if (working) working->computing_.start();
}

// Programs in AutoLISP are in between at their own pauses, too.
bool Drawing::stopAsked() {
  if (eventsPass || dialogsWaitedFor > 0) return false;
  if (working && working->lookDue_ && QThread::currentThread() == working->thread()) working->work();
  return Document::current() && Document::current()->interpreter().interrupted();
}

void Drawing::work() {
  lookDue_ = false;
  const QScopedValueRollback<bool> pass(eventsPass, true);
  if (computes() && onWork) onWork(computing_.elapsed());
}

void Drawing::pick(const AcGePoint3d& point) { source_.answer(Input::pick(point)); }

void Drawing::follow(const AcGePoint3d& point) {
  if (source_.follows()) source_.answer(Input::move(point));
}

void Drawing::cancel() {
  ++cancelled_;
  stop();
}

void Drawing::stop() {
  later_.clear();
  if (source_.prompt()) source_.abandon();
  else if (running_) document_->interrupt();
}

}  // namespace atelier::desktop
