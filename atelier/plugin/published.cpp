// The bridge from AutoLISP to the applications' handlers.
// After each call the host looks for objects left open and chains left unreleased.
#include "atelier/plugin/published.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "atelier/database/objects/chain.h"
#include "atelier/document/cancelling.h"
#include "atelier/document/document.h"
#include "atelier/document/values.h"
#include "hote/aced.h"
#include "hote/acrx.h"
#include "hote/acut.h"

namespace atelier {
namespace {

std::vector<EntryPoint> applications;
bool strictHandlers = false;

int applicationId = 0;  // its address identifies the applications; handlers only pass it back

// Compares the numbers of open objects and living chains before and after a call.
class Watch {
 public:
  Watch() : open_(OpenObjects::count()), nodes_(liveNodes()) {}
  std::string fault() const {
    std::string what;
    if (OpenObjects::count() > open_) {
      what += "objets restés ouverts:";
      for (std::size_t i = open_; i < OpenObjects::count(); ++i) what += " " + className(OpenObjects::list()[i]->isA());
    }
    if (liveNodes() > nodes_)
      what += (what.empty() ? "" : "; ") + std::to_string(liveNodes() - nodes_) + " resbuf non libérés";
    return what;
  }
  void closeAll() const { OpenObjects::closeBeyond(open_); }

 private:
  std::size_t open_;
  std::int64_t nodes_;
};

}  // namespace

void registerApplication(EntryPoint entry) {
  applications.push_back(entry);
  entry(AcRx::kInitAppMsg, &applicationId);
}

void setStrictHandlers(bool strict) { strictHandlers = strict; }

PublishedFunctions::PublishedFunctions(Document& document) : document_(document) {}
PublishedFunctions::~PublishedFunctions() = default;

PublishedFunctions& PublishedFunctions::of(const Document& document) {
  auto* published = document.attached<PublishedFunctions>();
  ATELIER_ASSERT(published);
  return *published;
}

lisp::Interpreter& PublishedFunctions::interpreter() { return document_.interpreter(); }

void PublishedFunctions::drawingOpened() {
  for (const EntryPoint entry : applications) {
    loading_ = entry;
    entry(AcRx::kLoadDwgMsg, &applicationId);
  }
  loading_ = nullptr;
}

void PublishedFunctions::drawingClosing() {
  for (const EntryPoint entry : applications) {
    loading_ = entry;
    entry(AcRx::kUnloadDwgMsg, &applicationId);
  }
  loading_ = nullptr;
}

bool PublishedFunctions::define(std::string_view name, int index) {
  if (!loading_ || index < 0) return false;
  // What an application publishes anew with each drawing keeps its place, so that it is the same function.
  const Publication one{loading_, index, std::string(name)};
  auto known = std::find(publications_.begin(), publications_.end(), one);
  if (known == publications_.end()) known = publications_.insert(known, one);
  document_.interpreter().addExternal(name, &PublishedFunctions::invoke, this,
                                      static_cast<int>(known - publications_.begin()), "(" + one.name + " ...)",
                                      "fonction publiée par une application");
  return true;
}

bool PublishedFunctions::undefine(std::string_view name, int) {
  return document_.interpreter().removeExternal(name, this);
}

bool PublishedFunctions::setResult(lisp::Value value) {
  if (calls_.empty()) return false;
  *calls_.back().result = value;
  return true;
}

lisp::Value PublishedFunctions::invoke(void* context, int index, lisp::Interpreter&, lisp::Arguments arguments) {
  return static_cast<PublishedFunctions*>(context)->run(static_cast<std::size_t>(index), arguments);
}

lisp::Value PublishedFunctions::run(std::size_t place, lisp::Arguments arguments) {
  if (place >= publications_.size()) return lisp::nil;
  const EntryPoint owner = publications_[place].owner;
  const int code = publications_[place].code;
  document_.makeCurrent();
  const Watch watch;
  resbuf* chain = chainOfArguments(arguments);
  lisp::Root result(document_.interpreter());
  calls_.push_back({code, chain, &result});
  resbuf* const outer = std::exchange(heldArguments(), chain);
  std::string failure;
  try {
    owner(AcRx::kInvkSubrMsg, &applicationId);
  } catch (const Interrupted&) {
    failure = kCancelled;
  } catch (const std::exception& error) {
    failure = error.what();
  }
  acutRelRb(heldArguments());  // nothing when the handler has released it
  heldArguments() = outer;
  calls_.pop_back();
  const std::string fault = failure.empty() ? watch.fault() : std::string();
  watch.closeAll();
  if (failure == kCancelled) failCancelled(document_.interpreter());
  if (!failure.empty()) document_.interpreter().fail(failure);
  if (!fault.empty()) {
    if (strictHandlers) document_.interpreter().fail("fonction publiée " + std::to_string(code) + ": " + fault);
    std::fprintf(stderr, "kavel: fonction publiée %d: %s\n", code, fault.c_str());
  }
  return result;
}

}  // namespace atelier
