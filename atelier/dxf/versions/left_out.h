// What a version doesn't know: hidden while a drawing is written in it, and told afterwards.
#pragma once
#include <map>
#include <set>
#include <string>
#include <vector>

#include "atelier/database/objects/imp_database.h"

namespace atelier::dxf {

class LeftOut {
 public:
  explicit LeftOut(AcDbImpDatabase& database) : db_(database) {}
  ~LeftOut();  // shows everything again
  LeftOut(const LeftOut&) = delete;
  LeftOut& operator=(const LeftOut&) = delete;

  // Hides an object with what it owns: it counts as erased, so that lists omit it, and what is hidden is counted.
  void hide(AcDbStub& stub);
  // Whether it is hidden.
  bool holds(const AcDbStub* stub) const { return stub && hidden_.contains(stub); }
  // Counts what isn't written without being hidden; what: a type, or other words for it.
  void count(const std::string& what) { ++counts_[what]; }
  // Counts the objects beside entities and tables that R12 has no place for: by type, XRECORDs by their names.
  void countObjects();
  // Notes a sheet that is written as a block of that name.
  void countSheet(const std::string& name) { sheets_.push_back(name); }
  // Counts an entity that is written in another form.
  void countChanged(const std::string& type) { ++changed_[type]; }

  // A French line for each type, for all objects, and for what was written in another form.
  std::vector<std::string> notes() const;

 private:
  AcDbImpDatabase& db_;
  std::set<const AcDbStub*> hidden_;
  std::map<std::string, int> counts_, objects_, changed_;
  std::map<std::string, int> named_;  // XRECORDs
  std::vector<std::string> sheets_;
};

}  // namespace atelier::dxf
