// A document: how it is made, opens and closes drawings, and ends.
// At its end the attachments of other rooms are destroyed first.
#include "atelier/document/document.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "atelier/base/interruption.h"
#include "atelier/document/opening.h"
#include "atelier/dxf/reading/reader.h"
#include "atelier/dxf/versions/export.h"
#include "atelier/dxf/versions/versions.h"
#include "atelier/dxf/writing/writer.h"
#include "atelier/lisp/functions/families.h"

namespace atelier {
namespace {

Document* currentDocument = nullptr;
std::vector<Document*> openDocuments;  // in the order in which they were opened
std::vector<std::string> supportFolders;
std::vector<std::span<const lisp::Builtin>> addedBuiltins;

class CommandLineConsole : public lisp::Console {
 public:
  explicit CommandLineConsole(Document& document) : document_(document) {}
  void write(std::string_view utf8) override {
    document_.print(utf8);
    if (document_.programPrinter) document_.programPrinter(utf8);
  }
  std::optional<std::string> readLine() override {
    const Input input = document_.prompter().read({});
    if (input.kind != Input::Kind::text) return std::nullopt;
    return input.text;
  }

 private:
  Document& document_;
};

bool interruptionAsked() { return currentDocument && currentDocument->interpreter().interrupted(); }

}  // namespace

void addDrawingBuiltins(std::span<const lisp::Builtin> table) {
  if (std::none_of(addedBuiltins.begin(), addedBuiltins.end(),
                   [&](const auto& known) { return known.data() == table.data(); }))
    addedBuiltins.push_back(table);
}

void addSupportFolder(const std::string& folder) { supportFolders.push_back(folder); }

Document::Document(const Services& services, Printer printer, const std::string& path,
                   std::vector<std::string>* messages)
    : services_(services),
      printer_(std::move(printer)),
      database_(openDrawingFile(path, messages, openingNote_)),
      index_(std::make_unique<SpatialIndex>(imp())),
      console_(std::make_unique<CommandLineConsole>(*this)),
      search_(std::make_unique<TrustedSearch>(*this)),
      variables_(*this, services.variables),
      prompter_(*this),
      maker_(imp()) {
  search_->folders = supportFolders;
  interpreter_ = std::make_unique<lisp::Interpreter>(lisp::Host{console_.get(), search_.get(), &variables_});
  openDocuments.push_back(this);
  makeCurrent();
  setInterruptionQuestion(interruptionAsked);
  lisp::addBuiltins(*interpreter_);
  for (const auto& table : services_.builtins) interpreter_->add(table);
  for (const auto& table : addedBuiltins) interpreter_->add(table);
  for (const auto make : services_.attachments) attachments_.push_back(make(*this));
  drawingOpened();
  if (!openingNote_.empty()) print(std::exchange(openingNote_, {}));
}

Document::~Document() {
  makeCurrent();
  drawingClosing();
  attachments_.clear();
  std::erase(openDocuments, this);
  currentDocument = nullptr;
  if (endsWithProcess_) leaveMemory();
  if (!openDocuments.empty()) openDocuments.back()->makeCurrent();
}

void Document::drawingOpened() {
  view_ = previousView = activeView(imp());
  lastErased.clear();
  isolatedFrom.clear();
  for (const auto& attachment : attachments_) attachment->drawingOpened();
  imp().modified = false;
  fileSaved();
}

void Document::fileSaved() {
  mark_ = FileMark::of(imp().path);
  readOnly_ = false;
  if (!holdsLock_) return;
  if (imp().path.empty()) lock_.release();
  else lock_.take(imp().path);
}

void Document::holdLock() {
  holdsLock_ = true;
  fileSaved();
}

bool Document::isOwn(const std::string& path) const {
  std::error_code error;
  const std::string& own = imp_path();
  return !own.empty() && (own == path || std::filesystem::equivalent(own, path, error));
}

std::string Document::objection(const std::string& path) const {
  if (const std::string other = DrawingLock::holder(path); !other.empty())
    return "un autre programme travaille sur ce dessin (" + other + ")";
  if (std::ranges::any_of(openDocuments,
                          [&](const Document* d) { return d != this && d->holdsLock_ && d->isOwn(path); }))
    return "ce dessin est aussi ouvert ailleurs dans ce programme";
  if (!isOwn(path)) return {};
  if (readOnly_) return "ce dessin est ouvert en lecture seule";
  const FileMark now = FileMark::of(path);
  return mark_ == FileMark{} || now == mark_ || now == FileMark{} ? std::string()
                                                                  : "ce fichier a changé depuis qu'il a été ouvert";
}

void Document::checkTarget(const std::string& path) const {
  checkSaving();
  if (overwritesOthers) return;
  if (const std::string why = objection(path); !why.empty())
    throw FileError(path, 0, why + ": enregistrez le dessin sous un autre nom");
}

void Document::drawingClosing() {
  for (const auto& attachment : attachments_) attachment->drawingClosing();
}

// The memory stays reachable, so that leak checkers don't report it.
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

void Document::open(const std::string& path, std::vector<std::string>* messages) {
  auto fresh = openDrawingFile(path, messages, openingNote_);
  drawingClosing();
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
  undoGroup = false;
  drawingOpened();
  if (!openingNote_.empty()) print(std::exchange(openingNote_, {}));
}

std::vector<std::string> Document::saveAs(const std::string& path, std::string_view release,
                                          std::optional<bool> asked) {
  const std::string own = imp().header.text("$ACADVER", "");
  const bool binary = asked.value_or(dxf::isBinary(*database_));
  if (binary == dxf::isBinary(*database_) && (release.empty() || dxf::acadVersion(release) == own)) {
    save(path);
    return {};
  }
  checkTarget(path);
  setNewView();
  auto lost = dxf::saveAs(*database_, path, release.empty() ? dxf::releaseNamed(own) : release, binary);
  imp().modified = false;
  mark_ = FileMark::of(imp().path);
  return lost;
}

// A drawing that began as a new one is saved with a view of all its contents; any other keeps the view of its file.
void Document::setNewView() {
  if (dxf::beganAsNew(*database_)) setFirstView(imp(), index_->extents(imp().modelSpace()));
}

void Document::checkSaving() const {
  if (savesOnlyWithoutFailure && failures_ > 0)
    throw Error("rien n'est enregistré, puisqu'une commande a échoué; --keep-going enregistre quand même");
}

void Document::save(const std::string& path) {
  checkTarget(path);
  setNewView();
  dxf::save(*database_, path);
  fileSaved();
}

}  // namespace atelier
