// Prompts: keywords, and the reading of points, numbers, texts and entities from lines or picks.
// Reference: the functions acedInitGet and acedGetPoint with its sisters, AutoLISP's initget and getpoint.
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "atelier/document/input.h"
#include "hote/dbid.h"

namespace atelier {

class Document;

enum class Answer { value, none, keyword, cancel };

// What an entity prompt gives.
struct PickedEntity {
  AcDbObjectId id;  // null when nothing stands under the point
  AcGePoint3d point;
  bool byPoint = true;  // false: named by a program, or as the last entity, without a point
};

class Prompter {
 public:
  explicit Prompter(Document& document) : document_(document) {}

  // Settings for the next prompt only: flags RSG_..., and keywords separated by blanks. In "Oui Non _Yes No" the words
  // from the underscore on are the English forms of the same keywords: they are what lastKeyword() gives, and are also
  // accepted when typed with an underscore.
  void initGet(int flags, std::string_view keywords);

  // Each prints the prompt, reads answers until one fits, and says why one didn't. A keyword goes to lastKeyword().
  Answer getPoint(const std::optional<AcGePoint3d>& base, std::string_view prompt, AcGePoint3d& point,
                  bool corner = false);
  Answer getReal(std::string_view prompt, double& value);
  Answer getInteger(std::string_view prompt, int& value);
  Answer getText(bool withSpaces, std::string_view prompt, std::string& text);
  Answer getKeyword(std::string_view prompt);
  // A number, or the distance from the base (or a first point that is asked for) to a point.
  Answer getDistance(const std::optional<AcGePoint3d>& base, std::string_view prompt, double& distance);
  // An angle in the drawing's units, or that of the line from the base to a point; radians, from ANGBASE when oriented.
  Answer getAngle(const std::optional<AcGePoint3d>& base, std::string_view prompt, double& angle);
  // Answers: a pick, a point as text, "D" or "L" for the last entity, or an expression that gives an entity.
  Answer getEntity(std::string_view prompt, AcDbObjectId& entity, AcGePoint3d& point);

  const std::string& lastKeyword() const { return lastKeyword_; }

  // The source of answers; null: every prompt is cancelled.
  InputSource* source = nullptr;
  // One raw answer to the running prompt: the remaining words of a line first, then the source.
  Input read(const PromptInfo& prompt);
  // What a pointing device that is followed gives next: a move, a pick or one key of what was typed, Enter behind each
  // line; an expression in parentheses that gives a point is a pick. The keywords of initGet stay for the whole of it.
  Input follow();
  // Keeps the words after a command's name on its line: they answer its prompts.
  void pushBack(std::string text) { pending_ = std::move(text); }
  void dropPending() {
    pending_.reset();
    keys_.clear();
  }
  std::optional<std::string> exchangePending(std::optional<std::string> text) {
    return std::exchange(pending_, std::move(text));
  }
  AcGePoint3d lastPoint{};

 private:
  struct Request;
  // Reads until `take` accepts a text or a pick.
  template <class TAKE>
  Answer ask(PromptInfo info, const char* expected, TAKE take);
  void runBetween(std::string_view typed);
  std::optional<std::string> matchKeyword(std::string_view text) const;
  PromptInfo info(std::string_view prompt) const;
  Input fromSource(const PromptInfo& prompt);

  Document& document_;
  int flags_ = 0;
  std::vector<std::string> keywords_, globalKeywords_;
  std::string lastKeyword_;
  std::optional<std::string> pending_;
  std::string keys_;  // of a line, not yet given to a program that follows the cursor
  int cancelsAtEnd_ = 0;
};

// A number with a decimal point or comma.
std::optional<double> parseDecimal(std::string_view text);
// A point as typed: x,y[,z], @dx,dy[,dz], d<a, @d<a (degrees); nothing for another text. Those with @ start at `last`. Between
// semicolons, commas are decimal: x;y[;z].
std::optional<AcGePoint3d> parsePoint(std::string_view text, const AcGePoint3d& last);

}  // namespace atelier
