// Where programs are looked for, and which folders they are trusted in.
// SECURELOAD: 0 loads anything, 1 says so (and asks at a terminal) outside the trusted folders, 2 refuses there.
#pragma once
#include <set>
#include <string>

#include "atelier/lisp/evaluator/host.h"

namespace atelier {

class Document;

// Trusted are the search folders and all folders below them, the folders of TRUSTEDPATHS (separated by ";"; one that
// ends in "/..." includes all below it), and the folders of files that the user has loaded by name.
class TrustedSearch : public lisp::FolderSearch {
 public:
  explicit TrustedSearch(Document& document) : document_(document) {}
  // The user asked for this file: its folder is trusted from now on.
  void trust(const std::string& file);
  bool isTrusted(const std::string& file) const;
  std::string refusal(const std::string& path) override;

 private:
  Document& document_;
  std::set<std::string> chosen_;  // folders
};

}  // namespace atelier
