// The window: a tab for each drawing, the command line, the panels, menus and the status bar.
#pragma once
#include <QDockWidget>
#include <QLabel>
#include <QMainWindow>
#include <QTabWidget>
#include <QTimer>
#include <QToolButton>
#include <memory>

#include "atelier/desktop/files/file_prompts.h"
#include "atelier/desktop/files/recent_files.h"
#include "atelier/desktop/files/recovery_files.h"
#include "atelier/desktop/forms/dialog_window.h"
#include "atelier/desktop/panels/command_line.h"
#include "atelier/desktop/panels/guide_window.h"
#include "atelier/desktop/panels/layers_panel.h"
#include "atelier/desktop/panels/line_table.h"
#include "atelier/desktop/panels/profiles_panel.h"
#include "atelier/desktop/panels/properties_panel.h"
#include "atelier/desktop/view/drawing_view.h"
#include "atelier/desktop/window/host_menu_bar.h"
#include "atelier/desktop/document/long_work.h"

namespace atelier::desktop {

class MainWindow : public QMainWindow {
 public:
  MainWindow();
  ~MainWindow() override;

  // A tab with a new drawing, or with the file, which is brought to the front when it is open already. False after a
  // message when it can't be opened. What can be read of a damaged file is offered; a drawing that another program works
  // on, for reading only.
  bool open(const QString& path = {});
  bool save(bool underNewName = false);
  // Closes a tab; asks about unsaved changes. False when the user cancels. The window asks once for all its tabs.
  bool closeTab(int index);

  Drawing* drawing() const;  // of the front tab; null when there is none
  DrawingView* view() const;
  CommandLine& commandLine() { return *commands_; }
  WindowDialogs& dialogs() { return dialogs_; }
  QTabWidget& tabs() { return *tabs_; }
  QTabBar& layouts() { return *layouts_; }
  ProfilesPanel& profiles() { return *profiles_; }
  PropertiesPanel& properties() { return *properties_; }
  LayersPanel& layers() { return *layers_; }
  LineTable& lineTable() { return *lineTable_; }
  const GuideWindow& guide() const { return *guide_; }
  // Whether a file is being chosen that answers the waiting prompt.
  bool asksForFile() const { return asksForFile_; }
  QString coordinates() const { return coordinates_->text(); }
  QString status() const { return profileStatus_->text(); }
  QString currentProfile() const { return currentProfile_->text(); }
  // Writes copies of unsaved drawings, to be offered at the next start after a crash. Called soon after each change.
  void autosave();
  void perform(const QString& action);  // "@name" of the window, else lines for the command line
  // For tests: answers in place of the user's to file choices (empty: cancel) and questions ("oui", "non", "annuler").
  std::function<QString()> fileAnswer;
  // Whether prompts for files open a dialog, as FILEDIA says; not for a driver that types them.
  bool opensFileDialogs = true;
  std::function<QString(QString question)> questionAnswer;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Tab {
    std::unique_ptr<Drawing> drawing;
    DrawingView* view;
    std::unique_ptr<RecoveryFiles> copy;  // null: there is none
    QString copyTrouble;                  // why the last copy couldn't be written
    QString origin;                       // of a drawing that came from a copy: the file that it is a copy of
    QString suggestedName() const { return origin.isEmpty() ? drawing->fileName() : origin; }
  };
  void buildPanels();
  QWidget* buildLayouts();
  void showLayouts();
  void chooseLayout(int index);
  void buildMenus();
  void buildRecent(QMenu& menu, const RecentKind& kind);
  Tab* tabOf(const QString& path) const;
  bool openOrRecover(const QString& path);
  void openTab(const QString& path, std::vector<std::string>* messages = nullptr);
  bool openDamaged(const QString& path, const QString& damage);
  void wire(Tab& tab);
  void dropTab(Tab& tab);
  std::vector<Tab*> unsaved() const;
  bool isRunning() const;
  void whenIdle(std::function<void()> action);
  void quit(Tab& tab);
  bool takesForDrawing(QKeyEvent& key);
  void showContextMenu(const QPoint& at);
  void addEntry(QMenu& menu, const QString& text, std::function<void()> action);
  void addPromptEntries(QMenu& menu, const PromptInfo& prompt);
  void addObjectEntries(QMenu& menu);
  void addProfileEntry(QMenu& menu, const AcGePoint3d& at);
  void escape();
  void openForm(const QString& command, const QString& file = {});  // with the file in its field
  void carryOut(const QStringList& lines);
  QString askAboutLeaving(const std::vector<Tab*>& unsaved);
  bool leave(const QString& answer, const std::vector<Tab*>& asked);
  void leaveAfterCommands(const QString& answer, const std::vector<Tab*>& asked, int patience);
  Tab* front() const;
  void changeTab();
  void showTab();
  void showTitle(Tab& tab);
  void afterCommand(Tab& tab);
  void afterReplacement(Tab& tab);
  void moved(Drawing& drawing, const AcGePoint3d& point);
  void readProfile();
  void chooseProfile(const QString& handle);
  void showHandle(const QString& handle);
  QString nextName();  // of a new drawing
  QString recoveredName(const Tab& tab) const;
  void complain(const QString& text);
  QString ask(const QString& question, const QStringList& answers);
  void answer(const QString& line);
  void offerFiles();
  void answerByFile(const FilePrompt& asked);
  QString chooseFile(bool save, const QString& title, const QString& filter, const QString& suggested = {});
  void windowAction(const QString& name);
  void changeTheme();
  void buildHelp(QMenu& help);
  void openGuide();
  void chooseGround();
  void setGround(const QColor& chosen);
  void chooseSnaps();
  void toggleSnaps();
  void toggleOrtho();
  void buildModes();
  void showModes();
  void setVariable(const std::string& name, int value);
  void selectAll();
  void audit();
  void plot();
  void updateUnasked();
  void updateAtOnce(Drawing& drawing);
  void changeUpdateAtOnce();
  void letAsk(Drawing& drawing);
  void showState(Tab& tab);
  void buildLineTable(QDockWidget& commands);
  void toggleLineTable();
  void copySoon();
  void writeCopy(Tab& tab);
  void forgetCopy(Tab& tab);
  void recover();

  QTabWidget* tabs_;
  QTabBar* layouts_;  // of the drawing in front: the model space, then its sheets
  CommandLine* commands_;
  ProfilesPanel* profiles_;
  PropertiesPanel* properties_;
  LayersPanel* layers_;
  LineTable* lineTable_;
  GuideWindow* guide_;
  QLabel *coordinates_, *profileStatus_, *currentProfile_;
  QToolButton *snapButton_, *orthoButton_;
  WindowDialogs dialogs_{this};
  LongWork work_{*this};
  std::unique_ptr<HostMenuBar> hostMenus_;
  std::vector<std::unique_ptr<Tab>> drawings_;
  QTimer copyTimer_, readingTimer_;
  std::function<void()> afterwards_;  // what is planned for the end of the running command
  qint64 copyCost_ = 0;               // milliseconds that the last copies took
  AcGePoint3d readingAt_;
  int untitled_ = 0;
  bool asksForFile_ = false;
};

}  // namespace atelier::desktop
