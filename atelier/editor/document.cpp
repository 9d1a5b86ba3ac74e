// A document: its making, its command line, its end.
// A line is an AutoLISP expression when it opens a parenthesis, else the name of a command with answers behind it.
#include "atelier/editor/document.h"

#include <filesystem>
#include <utility>

#include "atelier/database/interruption.h"
#include "atelier/dxf/export.h"
#include "atelier/dxf/reader.h"
#include "atelier/dxf/versions.h"
#include "atelier/dxf/writer.h"
#include "atelier/editor/builtins.h"
#include "atelier/editor/command_run.h"
#include "atelier/editor/commands.h"
#include "atelier/editor/first_view.h"
#include "atelier/editor/published.h"
#include "atelier/editor/values.h"
#include "atelier/lisp/printer.h"

namespace atelier {
namespace {

Document* currentDocument = nullptr;
std::vector<Document*> openDocuments;  // in the order in which they were opened
std::vector<std::string> supportFolders;
DrawingConverter drawingConverter = nullptr;
constexpr const char* kConverted = "Dessin converti: il s'enregistre en DXF.\n";

class CommandLineConsole : public lisp::Console {
 public:
  explicit CommandLineConsole(Document& document) : document_(document) {}
  void write(std::string_view utf8) override { document_.print(utf8); }
  std::optional<std::string> readLine() override {
    const Input input = document_.prompter().read({});
    if (input.kind != Input::Kind::text) return std::nullopt;
    return input.text;
  }

 private:
  Document& document_;
};

// The file that is read for a path: itself, or a conversion that goes when the drawing is open, which keeps it mapped.
struct ConvertedFile {
  explicit ConvertedFile(const std::string& path)
      : name(drawingConverter ? drawingConverter(path) : std::string()), isOther(!name.empty()) {
    if (!isOther) name = path;
  }
  ~ConvertedFile() {
    std::error_code error;
    if (isOther) std::filesystem::remove(name, error);
  }
  ConvertedFile(const ConvertedFile&) = delete;
  ConvertedFile& operator=(const ConvertedFile&) = delete;
  std::string name;
  bool isOther;
};

// A failed opening must not leave half a database behind as the working one.
std::unique_ptr<AcDbDatabase> openDatabase(const std::string& path, std::vector<std::string>* messages) {
  dxf::provideDrawingReader();
  auto database = std::make_unique<AcDbDatabase>(path.empty());
  if (path.empty()) return database;
  const ConvertedFile converted(path);
  if (messages) dxf::readFileRecovering(*database, converted.name, *messages);
  else dxf::readFile(*database, converted.name);
  if (converted.isOther) AcDbImpDatabase::of(database.get()).path.clear();
  return database;
}

bool interruptionAsked() { return currentDocument && currentDocument->interpreter().interrupted(); }

}  // namespace

void setDrawingConverter(DrawingConverter converter) { drawingConverter = converter; }

void addSupportFolder(const std::string& folder) { supportFolders.push_back(folder); }

Document::Document(Printer printer, const std::string& path, std::vector<std::string>* messages)
    : printer_(std::move(printer)),
      database_(openDatabase(path, messages)),
      index_(std::make_unique<SpatialIndex>(imp())),
      console_(std::make_unique<CommandLineConsole>(*this)),
      search_(std::make_unique<TrustedSearch>(*this)),
      variables_(*this),
      prompter_(*this),
      maker_(imp()) {
  search_->folders = supportFolders;
  interpreter_ = std::make_unique<lisp::Interpreter>(lisp::Host{console_.get(), search_.get(), &variables_});
  published_ = std::make_unique<PublishedFunctions>(*this);
  openDocuments.push_back(this);
  makeCurrent();
  setInterruptionQuestion(interruptionAsked);
  for (const auto& table : drawingBuiltins()) interpreter_->add(table);
  interpreter_->set("PAUSE", interpreter_->string("\\"));  // `command` asks the user where it meets it
  view_ = activeView(imp());
  published_->loadApplications();
  imp().modified = false;
  if (!path.empty() && imp().path.empty()) print(kConverted);
}

Document::~Document() {
  makeCurrent();
  published_->unloadApplications();
  std::erase(openDocuments, this);
  currentDocument = nullptr;
  if (endsWithProcess_) leaveMemory();
  if (!openDocuments.empty()) openDocuments.back()->makeCurrent();
}

// What is left stays reachable, so that leak checkers don't take it for lost.
void Document::leaveMemory() {
  struct Left {
    std::unique_ptr<AcDbDatabase> database;
    std::vector<std::unique_ptr<AcDbDatabase>> closed;
    std::unique_ptr<SpatialIndex> index;
  };
  static std::vector<Left>& left = *new std::vector<Left>;
  left.push_back({std::move(database_), std::move(closed_), std::move(index_)});
}

Document* Document::current() { return currentDocument; }
Document& Document::needed() {
  ATELIER_ASSERT(currentDocument);
  return *currentDocument;
}
void Document::makeCurrent() {
  currentDocument = this;
  acdbHostApplicationServices()->setWorkingDatabase(database_.get());
}

void Document::print(std::string_view utf8) {
  if (muted_) return;
  transcript_ += utf8;
  if (printer_) printer_(utf8);
}

std::string Document::takeTranscript() { return std::exchange(transcript_, {}); }

void Document::fail(const std::string& message) {
  ++failures_;
  const Printer usual = failurePrinter ? std::exchange(printer_, failurePrinter) : printer_;
  print("\n" + message + "\n");
  printer_ = usual;
}

bool Document::evaluate(std::string_view text, std::string* printed) {
  makeCurrent();
  interpreter_->clearInterrupt();
  try {
    const lisp::Value value = interpreter_->evaluate(text);
    if (printed) *printed = value == interpreter_->quiet() ? std::string() : interpreter_->printed(value);
    finishCommand(*this);
    return true;
  } catch (const lisp::Error& error) {
    cancelCommand(*this);
    if (error.kind == lisp::Error::Kind::Exit) return true;
    stopped_ |= error.kind == lisp::Error::Kind::Interrupt;
    fail(errorText(error));
    return false;
  }
}

void Document::endInterruption() {
  stopped_ |= interpreter_->interrupted();
  interpreter_->clearInterrupt();
}

bool Document::load(const std::string& path) {
  makeCurrent();
  search_->trust(path);
  interpreter_->clearInterrupt();
  try {
    interpreter_->loadFile(path);
    finishCommand(*this);
    return true;
  } catch (const lisp::Error& error) {
    cancelCommand(*this);
    fail(errorText(error));
    return false;
  }
}

bool Document::runCommand(const std::string& name) {
  const std::string upper = upperCase(name);
  const lisp::Value function = interpreter_->get("C:" + upper);
  if (!function.isNil()) {
    try {
      interpreter_->call(function, {});
      finishCommand(*this);
    } catch (const lisp::Error& error) {
      cancelCommand(*this);
      stopped_ |= error.kind == lisp::Error::Kind::Interrupt;
      if (error.kind != lisp::Error::Kind::Exit) fail(errorText(error));
    }
    return true;
  }
  return runBuiltinCommand(*this, upper);
}

void Document::runLine(std::string line) {
  const std::string_view text = trimmed(line);
  if (text.empty()) return;
  prompter_.dropPending();
  if (!undoGroup) imp().journal.mark();
  if (text.starts_with('(') || text.starts_with('!')) {
    std::string printed;
    if (evaluate(text.starts_with('!') ? text.substr(1) : text, &printed) && !printed.empty()) print(printed + "\n");
    return;
  }
  if (text.starts_with(';')) return;  // a comment in a script
  const std::size_t space = text.find(' ');
  const std::string name(text.substr(0, space));
  if (space != text.npos) prompter_.pushBack(std::string(trimmed(text.substr(space))));
  if (!runCommand(name)) fail("Commande inconnue \"" + upperCase(name) + "\".");
  prompter_.dropPending();
}

void Document::run(InputSource& source) {
  makeCurrent();
  InputSource* before = std::exchange(prompter_.source, &source);
  const auto restore = [&] { prompter_.source = before; };
  stopped_ = false;
  try {
    for (;;) {
      if ((stopped_ || interpreter_->interrupted()) && source.dropRest()) countFailure();
      PromptInfo prompt;
      prompt.takesSpaces = prompt.isCommand = true;
      prompt.text = source.echoes() ? "\nCommande: " : "";
      Input input = source.next(prompt);
      if (input.kind == Input::Kind::end) break;
      if (input.kind != Input::Kind::text) continue;
      // An expression may run over several lines.
      while (trimmed(input.text).starts_with('(') && openParentheses(input.text) > 0) {
        const Input more = source.next({});
        if (more.kind != Input::Kind::text) break;
        input.text += "\n" + more.text;
      }
      interpreter_->clearInterrupt();
      stopped_ = false;
      if (!source.echoes()) print("\nCommande: " + input.text + "\n");
      try {
        runLine(std::move(input.text));
      } catch (const Error& error) {
        fail(error.what());
      }
      if (stopped_) scripts.clear();
      runScripts();
      if (quitRequested()) {
        if (before) requestQuit();  // a script inside this run ends with it
        break;
      }
    }
  } catch (...) {
    restore();
    throw;
  }
  restore();
}

void Document::runScripts() {
  while (!scripts.empty()) {
    LinesSource lines(scripts.front());
    scripts.erase(scripts.begin());
    run(lines);
  }
}

void Document::open(const std::string& path, std::vector<std::string>* messages) {
  auto fresh = openDatabase(path, messages);
  published_->unloadApplications();
  for (const AcDbStub& stub : imp().stubs()) const_cast<AcDbStub&>(stub).set(AcDbStub::kErased);
  index_.reset();
  closed_.push_back(std::exchange(database_, std::move(fresh)));
  index_ = std::make_unique<SpatialIndex>(imp());
  maker_.emplace(imp());
  makeCurrent();
  transients_.highlighted.clear();
  transients_.clearVectors();
  previousSelection = firstSelection = nullptr;
  namedViews.clear();
  view_ = previousView = activeView(imp());
  undoGroup = false;
  published_->loadApplications();
  imp().modified = false;
  if (!path.empty() && imp().path.empty()) print(kConverted);
}

std::vector<std::string> Document::saveAs(const std::string& path, std::string_view release, bool binary) {
  const std::string own = imp().header.text("$ACADVER", "");
  if (!binary && (release.empty() || dxf::acadVersion(release) == own)) {
    save(path);
    return {};
  }
  setFirstView(*this);
  auto lost = dxf::saveAs(*database_, path, release.empty() ? dxf::releaseNamed(own) : release, binary);
  imp().modified = false;
  return lost;
}

void Document::save(const std::string& path) {
  setFirstView(*this);
  dxf::save(*database_, path);
}

}  // namespace atelier
