// An open drawing as data, with its undo journal, its command line and the attachments of other rooms.
// One document is current at a time; the host's functions act on it.
#pragma once
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "atelier/database/lists/entity_groups.h"
#include "atelier/document/files/drawing_lock.h"
#include "atelier/document/prompter.h"
#include "atelier/document/selection_set.h"
#include "atelier/document/services.h"
#include "atelier/document/spatial_index.h"
#include "atelier/document/system_variables.h"
#include "atelier/document/transients.h"
#include "atelier/document/trusted_search.h"
#include "atelier/document/views.h"
#include "atelier/lisp/evaluator/interpreter.h"

namespace atelier {

class DialogPresenter;

// Receives all that the command line prints, UTF-8.
using Printer = std::function<void(std::string_view)>;

class Document {
 public:
  // An empty drawing, or the file at the path (throws Error); with messages, recovering as open() does.
  Document(const Services& services, Printer printer, const std::string& path, std::vector<std::string>* messages);
  virtual ~Document();
  // Says that the process ends with this document. The drawing's memory is then left to the process's end, since freeing
  // it piece by piece takes long. All else is done as usual: applications are unloaded, AutoLISP's files closed.
  void endWithProcess() { endsWithProcess_ = true; }
  Document(const Document&) = delete;
  Document& operator=(const Document&) = delete;

  static Document* current();  // null when none is open
  static Document& needed();   // the current one; a broken invariant when there is none
  void makeCurrent();

  AcDbDatabase& database() { return *database_; }
  AcDbImpDatabase& imp() { return AcDbImpDatabase::of(database_.get()); }
  lisp::Interpreter& interpreter() { return *interpreter_; }
  Prompter& prompter() { return prompter_; }
  SystemVariables& variables() { return variables_; }
  Transients& transients() { return transients_; }
  EntityMaker& entityMaker() { return *maker_; }
  // The services of other rooms for this document, and an attachment of theirs by its type; null when there is none.
  const Services& services() const { return services_; }
  template <class PART>
  PART* attached() const {
    for (const auto& attachment : attachments_)
      if (auto* part = dynamic_cast<PART*>(attachment.get())) return part;
    return nullptr;
  }
  // Adds a part that is told of drawings opened from now on.
  void attach(std::unique_ptr<Attachment> part) { attachments_.push_back(std::move(part)); }
  // Finds entities by place: for selections, picks, and what of the drawing is on the screen.
  SpatialIndex& spatialIndex() { return *index_; }
  View& view() { return view_; }
  // The command that AutoLISP's `command` began and that waits for more answers; null when none does.
  std::unique_ptr<WaitingCommand>& waitingCommand() { return waitingCommand_; }
  // Ends the waiting command: the user gives the remaining answers, or it is cancelled.
  void finishCommand();
  void cancelCommand() { waitingCommand_.reset(); }
  // How the user points: the size of the screen and the least half side of the pick box in pixels; and which of several
  // entities in that box the user has gone on to, null for the first one.
  struct Pointing {
    double screenWidth = 1000, screenHeight = 1000, leastBox = 0;
    AcDbStub* preferred = nullptr;
  };
  Pointing pointing;
  View previousView;
  std::map<std::string, View> namedViews;  // by upper-case name
  // True between UNDO Begin and End: commands then don't begin undo steps of their own.
  bool undoGroup = false;
  // What ERASE has erased last.
  std::vector<AcDbObjectId> lastErased;
  // Layers that LAYISO has turned off, by their handles.
  std::vector<std::uint64_t> isolatedFrom;
  // Whether the drawing counted as modified, as programs have kept it (acad-push-dbmod).
  std::vector<bool> keptModified;
  // Scripts that SCRIPT has read. They run when the running command has ended.
  struct Script {
    std::string text;
    std::string name{};  // for messages; empty for lines that aren't those of a file
  };
  std::vector<Script> scripts;
  // After a failure: scripts end, and nothing is saved. Both are for runs without a user.
  bool stopsAtFailure = false, savesOnlyWithoutFailure = false;
  // Shows the dialogs of this document; null: the command line does.
  DialogPresenter* dialogPresenter = nullptr;
  // The previous selection ("P" of ssget) and the one that sssetfirst shows.
  std::shared_ptr<SelectionSet> previousSelection, firstSelection;
  // The first selection when a program has set it: then commands that programs call use it, too.
  std::weak_ptr<SelectionSet> selectedByProgram;
  // The set that a running prompt for objects collects; empty after its end.
  std::weak_ptr<SelectionSet> pendingSelection;

  void print(std::string_view utf8);
  // Prints nothing while muted (CMDECHO 0 in `command`). Returns the previous setting.
  bool exchangeMuted(bool muted) { return std::exchange(muted_, muted); }
  bool atLineStart() const { return transcript_.empty() || transcript_.back() == '\n'; }
  // What was printed since the last call.
  std::string takeTranscript();

  // A folder in which this document's `load` and `findfile` look.
  void addSupport(const std::string& folder) { search_->folders.push_back(folder); }

  // Evaluates AutoLISP as typed at the command line. Errors are printed and counted.
  bool evaluate(std::string_view text, std::string* printed = nullptr);
  bool load(const std::string& path);
  // Feeds the source's lines to the command line until its end: commands, LISP expressions, answers to prompts. False when
  // a command has asked the program to end.
  bool run(InputSource& source);
  // To be called when a line, or what a user does without one, has changed the drawing: AutoLISP's function *apres-commande* gets the
  // entities that were changed or made, T when there are too many to list. What it does belongs to the same step of undo.
  void commandEnded();
  // Runs one command by its name as if typed; answers come from the prompter's source. False when there is none.
  bool runCommand(const std::string& name);
  // The number of LISP errors and of failed and unknown commands since the document was opened.
  int failures() const { return failures_; }
  void fail(const std::string& message);
  // Prints a message where failures are printed, also while muted.
  void tellFailure(const std::string& message);
  // Throws Error when nothing may be saved after a failure.
  void checkSaving() const;
  // English names of commands that are found only with a leading point, since programs put their own in their place.
  std::set<std::string> undefinedCommands;
  // Marks the drawing as being worked on, for other programs, until it is closed; so too those opened or saved later.
  void holdLock();
  // The drawing is only looked at, until it is saved or another one is opened: its file is not replaced without asking.
  void setReadOnly() { readOnly_ = true; }
  bool isReadOnly() const { return readOnly_; }
  // Why the file should not be replaced without asking: another program or document works on it, or it has changed since
  // it was opened. Empty when it may. Saving then throws, unless `overwritesOthers`.
  std::string objection(const std::string& path) const;
  bool overwritesOthers = false;
  // Receives the messages of failures in place of the printer; null: the printer gets them.
  Printer failurePrinter;
  // Receives what AutoLISP programs print, beside the printer; null: the printer alone.
  Printer programPrinter;
  void countFailure() { ++failures_; }

  const std::string& path() const { return imp_path(); }
  std::string untitled = "Dessin1.dxf";  // the name that a drawing without a file goes by
  void save(const std::string& path);
  // Saves in a version ("R12", "R2000" ... "R2018"; empty: the drawing's own), as text or binary (none: its own form); gives messages on what
  // the version can't hold. In the drawing's own version and form this is save(); else the drawing keeps its file and
  // version.
  std::vector<std::string> saveAs(const std::string& path, std::string_view release, std::optional<bool> binary = {});
  // Replaces the drawing by the one in the file, or by a new one for an empty path. With messages, what can be read of a
  // damaged file is opened, and they say what was left out. Throws Error; the old drawing is then kept. AutoLISP's
  // variables are kept, but entity names in them are no longer valid.
  void open(const std::string& path, std::vector<std::string>* messages = nullptr);

  // An answer was given: what was changed before it stays, also when the command is stopped afterwards.
  void noteAnswer() { changedBeforeAnswer_ = imp().journal.hasChanged(); }
  // To be called when an interruption has ended a run. If the user asked for it, lines given beforehand are dropped.
  void endInterruption();

  // Stops the running program as Ctrl-C does. Safe from another thread and from signal handlers.
  void interrupt() noexcept { interpreter_->interrupt(); }

 private:
  const std::string& imp_path() const { return AcDbImpDatabase::of(database_.get()).path; }
  void drawingOpened();
  void drawingClosing();
  void checkTarget(const std::string& path) const;
  bool isOwn(const std::string& path) const;
  void fileSaved();
  void runLine(const std::string& line);
  void takeBackStopped(bool modified);
  bool beginsLine(const std::string& line);
  void leaveAnswers(InputSource& source, const std::string& place);
  void runScripts();
  void leaveMemory();
  void setNewView();
  const Services& services_;
  Printer printer_;
  std::string transcript_;
  std::vector<std::unique_ptr<AcDbDatabase>> closed_;  // drawings whose objects AutoLISP values may still name
  std::string openingNote_;                            // what was told when the drawing was opened
  std::unique_ptr<AcDbDatabase> database_;
  std::unique_ptr<SpatialIndex> index_;
  FileMark mark_;  // of the drawing's file as it was opened or saved
  DrawingLock lock_;
  bool changedBeforeAnswer_ = false;
  bool holdsLock_ = false, readOnly_ = false;
  std::unique_ptr<lisp::Console> console_;
  std::unique_ptr<TrustedSearch> search_;
  SystemVariables variables_;
  std::unique_ptr<lisp::Interpreter> interpreter_;
  Prompter prompter_;
  Transients transients_;
  std::optional<EntityMaker> maker_;
  View view_;
  std::unique_ptr<WaitingCommand> waitingCommand_;
  bool muted_ = false, endsWithProcess_ = false;
  bool following_ = false;  // *apres-commande* runs
  bool stopped_ = false;    // the user has interrupted the last line
  std::vector<std::unique_ptr<Attachment>> attachments_;
  int failures_ = 0;
};

// Lets a document's saves replace what other programs have changed, as the user has said, until it ends.
class OverwritingOthers {
 public:
  explicit OverwritingOthers(Document& document) : document_(document), before_(document.overwritesOthers) {
    document.overwritesOthers = true;
  }
  ~OverwritingOthers() { document_.overwritesOthers = before_; }
  OverwritingOthers(const OverwritingOthers&) = delete;
  OverwritingOthers& operator=(const OverwritingOthers&) = delete;

 private:
  Document& document_;
  bool before_;
};

// Folders in which `load`, `findfile` and the front-end's files are looked for, in every document.
void addSupportFolder(const std::string& folder);

// Asks the program to end after the running command; quitRequested() says whether that was asked, and forgets it.
void requestQuit();
bool quitRequested();

}  // namespace atelier
