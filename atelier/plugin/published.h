// Functions that applications publish to AutoLISP, and the call that is running: its code, arguments and result.
// Reference: acedDefun, acedGetFunCode, acedGetArgs and the acedRet functions.
#pragma once
#include <string>
#include <vector>

#include "atelier/document/services.h"
#include "atelier/lisp/evaluator/interpreter.h"
#include "atelier/lisp/evaluator/root.h"
#include "hote/adesk.h"

namespace atelier {

class Document;

// An application's entry point, as the host calls it: message and application id.
using EntryPoint = int (*)(int message, void* applicationId);

// Registers an application: it is started, and each document then publishes its functions.
void registerApplication(EntryPoint entry);

// Objects that a handler has left open, or chains that it has not released.
struct HandlerFault {
  std::string function;
  std::string what;
};
// True makes such a fault an AutoLISP error (for tests); otherwise it goes to stderr.
void setStrictHandlers(bool strict);

class PublishedFunctions final : public Attachment {
 public:
  explicit PublishedFunctions(Document& document);
  ~PublishedFunctions() override;
  PublishedFunctions(const PublishedFunctions&) = delete;
  PublishedFunctions& operator=(const PublishedFunctions&) = delete;

  static PublishedFunctions& of(const Document& document);

  void drawingOpened() override;   // kLoadDwgMsg to each application
  void drawingClosing() override;  // kUnloadDwgMsg

  bool define(std::string_view name, int index);
  bool undefine(std::string_view name, int index);

  // --- of the running call
  int code() const { return calls_.empty() ? -1 : calls_.back().code; }
  resbuf* arguments() const { return calls_.empty() ? nullptr : calls_.back().arguments; }
  bool setResult(lisp::Value value);
  lisp::Interpreter& interpreter();

 private:
  struct Call {
    int code;
    resbuf* arguments;
    lisp::Root* result;  // of the run that waits for it
  };
  static lisp::Value invoke(void* context, int index, lisp::Interpreter& interpreter, lisp::Arguments arguments);
  lisp::Value run(std::size_t place, lisp::Arguments arguments);
  Document& document_;
  std::vector<Call> calls_;
  struct Publication {
    EntryPoint owner;
    int code;  // the owner's own number for the function; other owners use the same numbers
    std::string name;
    bool operator==(const Publication&) const = default;
  };
  std::vector<Publication> publications_;  // AutoLISP knows a function by its place here
  EntryPoint loading_ = nullptr;
};

}  // namespace atelier
