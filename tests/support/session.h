// A drawing with its command line for tests: AutoLISP in, printed values and transcripts out.
// Faults of handlers (objects left open, chains leaked) are errors here.
#pragma once
#include <memory>
#include <string>
#include <string_view>

#include "atelier/application/open_drawing.h"

namespace kaveltest {

struct Session {
  // A new drawing, or the file at the path; with the plug-in, or the bare host. A program uses one kind only,
  // since an application stays registered once it is.
  explicit Session(bool withModule = true, const std::string& path = {});
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  // Value of the last form as prin1 prints it. Throws std::runtime_error with the message of a LISP error.
  // Prompts inside are cancelled.
  std::string eval(std::string_view lisp);
  // Feeds lines to the command line and returns the resulting transcript.
  std::string feed(std::string_view lines);
  // Everything printed since the last call.
  std::string transcript();
  atelier::Document& document() { return *document_; }

 private:
  std::unique_ptr<atelier::Document> document_;
};

}  // namespace kaveltest
