// The host's prompts for handlers.
// Buffers for texts hold 133 characters, the closing zero included.
#include <algorithm>

#include "atelier/base/interruption.h"
#include "atelier/database/objects/chain.h"
#include "atelier/document/document.h"
#include "hote/aced.h"

using namespace atelier;

namespace {

constexpr std::size_t kBuffer = 132;

Prompter& prompter() { return Document::needed().prompter(); }

int statusOf(Answer answer) {
  switch (answer) {
    case Answer::value: return RTNORM;
    case Answer::none: return RTNONE;
    case Answer::keyword: return RTKWORD;
    default: return RTCAN;
  }
}

void copyText(const std::string& utf8, ACHAR* buffer) {
  const std::wstring wide = toWide(utf8);
  const std::size_t length = std::min(wide.size(), kBuffer);
  std::copy_n(wide.begin(), length, buffer);
  buffer[length] = 0;
}

std::optional<AcGePoint3d> baseOf(const ads_point base) { return base ? std::optional(asPnt3d(base)) : std::nullopt; }

void setPoint(ads_point result, const AcGePoint3d& p) { std::copy_n(asDblArray(p), 3, result); }

}  // namespace

int acedInitGet(int flags, const ACHAR* keywords) {
  prompter().initGet(flags, toUtf8(keywords));
  return RTNORM;
}

int acedGetInput(ACHAR* text) {
  copyText(prompter().lastKeyword(), text);
  return RTNORM;
}

int acedGetString(int withSpaces, const ACHAR* prompt, ACHAR* text) {
  std::string answer;
  const int status = statusOf(prompter().getText(withSpaces != 0, toUtf8(prompt), answer));
  copyText(answer, text);
  return status;
}

int acedGetInt(const ACHAR* prompt, int* value) { return statusOf(prompter().getInteger(toUtf8(prompt), *value)); }
int acedGetReal(const ACHAR* prompt, ads_real* value) { return statusOf(prompter().getReal(toUtf8(prompt), *value)); }

namespace {

int askPoint(const ads_point base, const ACHAR* prompt, ads_point result, bool corner) {
  AcGePoint3d point;
  const int status = statusOf(prompter().getPoint(baseOf(base), toUtf8(prompt), point, corner));
  if (status == RTNORM) setPoint(result, point);
  return status;
}

}  // namespace

int acedGetPoint(const ads_point base, const ACHAR* prompt, ads_point result) {
  return askPoint(base, prompt, result, false);
}
int acedGetCorner(const ads_point base, const ACHAR* prompt, ads_point result) {
  return askPoint(base, prompt, result, true);
}

int acedGetDist(const ads_point base, const ACHAR* prompt, ads_real* result) {
  return statusOf(prompter().getDistance(baseOf(base), toUtf8(prompt), *result));
}
int acedGetAngle(const ads_point base, const ACHAR* prompt, ads_real* result) {
  return statusOf(prompter().getAngle(baseOf(base), toUtf8(prompt), *result));
}
int acedGetKword(const ACHAR* prompt, ACHAR* result) {
  const Answer answer = prompter().getKeyword(toUtf8(prompt));
  copyText(answer == Answer::keyword ? prompter().lastKeyword() : "", result);
  return answer == Answer::keyword ? RTNORM : statusOf(answer);
}

int acedEntSel(const ACHAR* prompt, ads_name entity, ads_point point) {
  AcDbObjectId id;
  AcGePoint3d at;
  const Answer answer = prompter().getEntity(prompt ? toUtf8(prompt) : "\nChoix de l'objet: ", id, at);
  if (answer != Answer::value) return answer == Answer::none ? RTERROR : statusOf(answer);
  if (id.isNull()) return RTERROR;
  nameOf(id, entity);
  setPoint(point, at);
  return RTNORM;
}

int acedUsrBrk() {
  checkInterruption();
  return 0;
}

int acedGrDraw(const ads_point from, const ads_point to, int color, int highlight) {
  Transients& transients = Document::needed().transients();
  transients.vectors.push_back({asPnt3d(from), asPnt3d(to), color, highlight != 0});
  ++transients.revision;
  return RTNORM;
}

void acgsRemoveAnonymousGraphics(int) { Document::needed().transients().clearVectors(); }

Acad::ErrorStatus AcDbEntity::highlight() const {
  Transients& transients = Document::needed().transients();
  if (std::find(transients.highlighted.begin(), transients.highlighted.end(), objectId()) ==
      transients.highlighted.end())
    transients.highlighted.push_back(objectId());
  ++transients.revision;
  return Acad::eOk;
}
Acad::ErrorStatus AcDbEntity::unhighlight() const {
  Transients& transients = Document::needed().transients();
  std::erase(transients.highlighted, objectId());
  ++transients.revision;
  return Acad::eOk;
}
