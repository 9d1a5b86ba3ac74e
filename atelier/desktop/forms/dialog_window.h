// The dialogs of the module as windows: widgets made from the models of hote/dialogues.h.
#pragma once
#include <QDialog>
#include <QHash>

#include "atelier/dialogs/dialogs.h"

namespace atelier::desktop {

// The widget of a control; changes of the widget and of the model are passed on to each other.
class ControlWidget {
 public:
  virtual ~ControlWidget() = default;
  virtual QWidget* widget() = 0;
  virtual void show() = 0;  // the model's state
};

class DialogWindow : public QDialog {
 public:
  DialogWindow(dialogues::Dialog& dialog, QWidget* parent);
  ~DialogWindow() override;
  int run();
  void reject() override;
  QWidget* widgetOf(const dialogues::Control* control) const;
  const dialogues::Dialog& model() const { return dialog_; }

 private:
  void build();
  QLayout* frame(const std::wstring& title);
  dialogues::Dialog& dialog_;
  QHash<const dialogues::Control*, ControlWidget*> widgets_;
};

// Shows dialogs over the main window; answers of tests can stand in for file and message boxes.
class WindowDialogs : public DialogPresenter {
 public:
  explicit WindowDialogs(QWidget* parent) : parent_(parent) {}
  void run(dialogues::Dialog& dialog) override;
  std::optional<std::string> chooseFile(const dialogues::FileRequest& request) override;
  int message(const std::wstring& text, const std::wstring& title, dialogues::Icon icon, bool yesNo) override;
  DialogWindow* running() const { return running_; }

  std::function<std::optional<std::string>(const dialogues::FileRequest&)> fileAnswer;  // null: the user is asked
  std::function<int(QString text)> messageAnswer;

 private:
  QWidget* over() const { return running_ ? static_cast<QWidget*>(running_) : parent_; }
  QWidget* parent_;
  DialogWindow* running_ = nullptr;
};

}  // namespace atelier::desktop
