// Asks until an answer fits.
// An answer is a word of the running line, a line, or a pick; an expression in parentheses is evaluated.
#include "atelier/document/prompter.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "atelier/base/text.h"
#include "atelier/database/lists/entity_walk.h"
#include "atelier/document/document.h"
#include "atelier/document/values.h"
#include "atelier/lisp/text/units.h"
#include "hote/adesk.h"

namespace atelier {
namespace {

constexpr int kMostCancelsAtEnd = 1000;  // a handler that asks again at the end of the input is in an endless loop

std::vector<std::string> words(std::string_view text) {
  std::vector<std::string> list;
  while (!(text = trimmed(text)).empty()) {
    const std::size_t end = text.find(' ');
    list.emplace_back(text.substr(0, end));
    text = end == text.npos ? std::string_view() : text.substr(end);
  }
  return list;
}

// The short form of a keyword: its capitals and digits, or all of it when it has none.
std::string capitals(const std::string& keyword) {
  std::string caps;
  for (const char c : keyword)
    if ((c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')) caps.push_back(c);
  return caps.empty() ? keyword : caps;
}

}  // namespace

std::optional<double> parseDecimal(std::string_view text) {
  const std::size_t comma = text.find(',');
  if (comma == text.npos) return parseReal(text);
  std::string number(text);
  number[comma] = '.';
  return parseReal(number);
}

std::optional<AcGePoint3d> parsePoint(std::string_view text, const AcGePoint3d& last) {
  text = trimmed(text);
  const bool relative = text.starts_with('@');
  if (relative) text.remove_prefix(1);
  if (relative && text.empty()) return last;
  const AcGeVector3d origin = relative ? last.asVector() : AcGeVector3d();
  if (const std::size_t angleAt = text.find('<'); angleAt != text.npos) {
    const auto distance = parseDecimal(text.substr(0, angleAt)), angle = parseDecimal(text.substr(angleAt + 1));
    if (!distance || !angle || !std::isfinite(*distance) || !std::isfinite(*angle)) return std::nullopt;
    const double a = *angle * std::numbers::pi / 180;
    return AcGePoint3d(*distance * std::cos(a), *distance * std::sin(a), 0) + origin;
  }
  const char separator = text.find(';') == text.npos ? ',' : ';';
  double ordinates[3] = {0, 0, 0};
  int count = 0;
  for (std::string_view rest = text; count < 3; ++count) {
    const std::size_t comma = rest.find(separator);
    const auto value = parseDecimal(rest.substr(0, comma));
    if (!value || !std::isfinite(*value)) return std::nullopt;
    ordinates[count] = *value;
    if (comma == rest.npos) {
      if (count == 0) return std::nullopt;
      return AcGePoint3d(ordinates[0], ordinates[1], ordinates[2]) + origin;
    }
    rest = rest.substr(comma + 1);
  }
  return std::nullopt;
}

void Prompter::initGet(int flags, std::string_view keywords) {
  flags_ = flags;
  keywords_ = words(keywords);
  globalKeywords_.clear();
  const auto global =
      std::find_if(keywords_.begin(), keywords_.end(), [](const std::string& word) { return word.starts_with('_'); });
  if (global == keywords_.end()) return;
  globalKeywords_.assign(global, keywords_.end());
  globalKeywords_.front().erase(0, 1);
  keywords_.erase(global, keywords_.end());
}

namespace {

// The capitals of the keyword, or more of it from its beginning.
bool isShortOf(const std::string& given, const std::string& keyword) {
  const std::string caps = upperCase(capitals(keyword));
  return given == caps || (upperCase(keyword).starts_with(given) && given.size() >= caps.size());
}

// A keyword written in full is preferred to one that the text abbreviates.
std::optional<std::size_t> indexOf(const std::vector<std::string>& keywords, const std::string& given) {
  auto it = std::find_if(keywords.begin(), keywords.end(),
                         [&](const std::string& keyword) { return upperCase(keyword) == given; });
  if (it == keywords.end())
    it = std::find_if(keywords.begin(), keywords.end(),
                      [&](const std::string& keyword) { return isShortOf(given, keyword); });
  return it == keywords.end() ? std::nullopt : std::optional(static_cast<std::size_t>(it - keywords.begin()));
}

// A mode of object snap before a point. It is ignored, since points of programs and scripts are used as given.
bool isSnapMode(std::string_view text) {
  constexpr std::string_view kModes[] = {"NON", "END", "MID", "CEN", "NOD", "QUA", "INT",
                                         "INS", "PER", "TAN", "NEA", "APP", "EXT", "PAR"};
  const std::string word = upperCase(text.starts_with('_') ? text.substr(1) : text);
  return word == "NONE" || std::find(std::begin(kModes), std::end(kModes), word) != std::end(kModes);
}

}  // namespace

std::optional<std::string> Prompter::matchKeyword(std::string_view text) const {
  const bool global = text.starts_with('_');
  if (global) text.remove_prefix(1);
  if (text.empty()) return std::nullopt;
  const std::string given = upperCase(text);
  std::optional<std::size_t> index;
  if (!global || globalKeywords_.empty()) index = indexOf(keywords_, given);
  if (!index && !globalKeywords_.empty()) index = indexOf(globalKeywords_, given);
  if (!index) return std::nullopt;
  return *index < globalKeywords_.size() ? globalKeywords_[*index]
         : *index < keywords_.size()     ? keywords_[*index]
                                         : std::string();
}

PromptInfo Prompter::info(std::string_view prompt) const {
  PromptInfo i;
  i.text = prompt;
  i.keywords = keywords_;
  return i;
}

namespace {

// An answer as the history shows it.
std::string shown(const Input& input) {
  constexpr int kDecimals = 4;
  if (!input.shown.empty()) return input.shown;
  if (input.kind != Input::Kind::pick) return input.text;
  return lisp::fixedDecimals(input.point.x, kDecimals) + "," + lisp::fixedDecimals(input.point.y, kDecimals);
}

}  // namespace

Input Prompter::fromSource(const PromptInfo& prompt) {
  Input input = source ? source->next(prompt) : Input{};
  document_.noteAnswer();
  if ((!source || !source->echoes()) && input.kind != Input::Kind::move) document_.print(shown(input) + "\n");
  if (input.kind != Input::Kind::end) cancelsAtEnd_ = 0;
  else if (++cancelsAtEnd_ > kMostCancelsAtEnd) throw Interrupted();
  return input;
}

Input Prompter::read(const PromptInfo& prompt) {
  document_.print(prompt.text);
  if (document_.interpreter().interrupted()) throw Interrupted();
  bool waiting = false;
  if (!pending_) {
    Input input = fromSource(prompt);
    if (input.kind != Input::Kind::text || prompt.takesSpaces || input.whole) return input;
    pending_ = input.text;
    if (trimmed(*pending_).empty()) {
      pending_.reset();
      return Input::line("");
    }
  } else {
    waiting = true;
  }
  std::string line = std::move(*pending_);
  pending_.reset();
  // A word from the running line is shown after its prompt, as a typed one is.
  const auto answer = [&] {
    if (waiting && (!source || !source->echoes())) document_.print(line + "\n");
    return Input::line(line);
  };
  if (prompt.takesSpaces) return answer();
  // One word, or one expression in parentheses; the rest answers the next prompt.
  line = trimmed(line);
  const std::size_t mark = line.starts_with("!(") ? 1 : 0;
  const std::size_t end =
      mark || line.starts_with('(') ? mark + expressionEnd(std::string_view(line).substr(mark)) : line.find(' ');
  if (end < line.size()) {
    const std::string_view rest = trimmed(std::string_view(line).substr(end));
    if (!rest.empty()) pending_ = std::string(rest);
    line.resize(end);
  }
  return answer();
}

// Runs 'ZOOM and the like; the prompt is asked again afterwards, with its own keywords.
void Prompter::runBetween(std::string_view typed) {
  std::string name = upperCase(typed);
  name.erase(0, name.find_first_not_of("'_."));
  const Services& services = document_.services();
  if (!services.isTransparent || !services.isTransparent(name)) {
    pending_.reset();
    return document_.print("\n" + name + " ne s'exécute pas pendant une autre commande.");
  }
  const auto keywords = std::exchange(keywords_, {}), globalKeywords = std::exchange(globalKeywords_, {});
  const int flags = std::exchange(flags_, 0);
  try {
    services.runCommand(document_, name);
  } catch (const Error& error) {
    document_.fail(error.what());
  }
  pending_.reset();
  keywords_ = keywords;
  globalKeywords_ = globalKeywords;
  flags_ = flags;
}

// take(input, flags) answers whether the input fits; `expected` is printed when it doesn't.
template <class TAKE>
Answer Prompter::ask(PromptInfo prompt, const char* expected, TAKE take) {
  const int flags = flags_;
  prompt.keywords = keywords_;
  struct Reset {
    Prompter& p;
    ~Reset() {
      p.flags_ = 0;
      p.keywords_.clear();
      p.globalKeywords_.clear();
    }
  } reset{*this};
  for (;;) {
    const Input input = read(prompt);
    if (input.kind == Input::Kind::cancel || input.kind == Input::Kind::end) return Answer::cancel;
    if (input.kind == Input::Kind::text && !prompt.takesSpaces && input.text.starts_with('\'')) {
      runBetween(input.text);
      continue;
    }
    if (input.kind == Input::Kind::text && !prompt.takesSpaces) {
      if (input.text.empty()) {
        if (!(flags & RSG_NONULL)) return Answer::none;
      } else if (const auto keyword = matchKeyword(input.text)) {
        lastKeyword_ = *keyword;
        return Answer::keyword;
      }
    }
    const bool usable = input.kind == Input::Kind::pick || !input.text.empty() || prompt.takesSpaces;
    if (usable && take(input, flags)) return Answer::value;
    if (usable && (flags & RSG_OTHER) && input.kind == Input::Kind::text) {
      lastKeyword_ = input.text;
      return Answer::keyword;
    }
    if (prompt.wantsPoint && isSnapMode(input.text)) continue;
    // A script's line that is the next command ends the prompt, or the command where an answer is demanded.
    if (source && source->takesBack(input)) return flags & RSG_NONULL ? Answer::cancel : Answer::none;
    document_.print(std::string("\n") + expected);
  }
}

namespace {

// The value of an expression typed as an answer; an error in it is printed, and there is no value.
std::optional<lisp::Value> expressionValue(Document& document, const Input& input) {
  if (input.kind != Input::Kind::text || !(input.text.starts_with('(') || input.text.starts_with('!')))
    return std::nullopt;
  const std::string text = input.text.starts_with('!') ? input.text.substr(1) : input.text;
  try {
    return document.interpreter().evaluate(text);
  } catch (const lisp::Error& error) {
    document.print(std::string("\n") + error.what());
    return std::nullopt;
  }
}

// The first character of UTF-8 text.
std::string firstCharacter(std::string_view text) {
  std::size_t length = 1;
  while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80) ++length;
  return std::string(text.substr(0, length));
}

bool withinFlags(double value, int flags) {
  return !((flags & RSG_NOZERO) && value == 0) && !((flags & RSG_NONEG) && value < 0);
}

std::optional<double> numberOf(Document& document, const Input& input, int flags) {
  if (const auto value = expressionValue(document, input)) {
    if (value->isNumber()) return value->number();
    return std::nullopt;
  }
  if (input.kind != Input::Kind::text) return std::nullopt;
  // Where any text is an answer, one with a comma is left to the program that asks.
  const auto number = flags & RSG_OTHER ? parseReal(input.text) : parseDecimal(input.text);
  return number && std::isfinite(*number) ? number : std::nullopt;  // "nan" and "inf" are words here
}

std::optional<AcGePoint3d> pointOf(Document& document, const Input& input, const AcGePoint3d& last) {
  if (input.kind == Input::Kind::pick) return input.point;
  if (const auto value = expressionValue(document, input)) return pointFromValue(*value);
  return parsePoint(input.text, last);
}

// An answer that may be a number or a point; an expression is evaluated once for both.
struct NumberOrPoint {
  std::optional<double> number;
  std::optional<AcGePoint3d> point;
};
NumberOrPoint numberOrPoint(Document& document, const Input& input, const AcGePoint3d& last) {
  const InputSource* const source = document.prompter().source;
  if (input.kind == Input::Kind::pick) return {{}, input.point};
  if (const auto value = expressionValue(document, input)) {
    if (value->isNumber()) return {value->number(), {}};
    return {{}, pointFromValue(*value)};
  }
  const auto number = source && source->isPerson() ? parseDecimal(input.text) : parseReal(input.text);
  if (number && std::isfinite(*number)) return {number, {}};
  return {{}, parsePoint(input.text, last)};
}

}  // namespace

Answer Prompter::getPoint(const std::optional<AcGePoint3d>& base, std::string_view prompt, AcGePoint3d& point,
                          bool corner) {
  PromptInfo i = info(prompt);
  i.wantsPoint = true;
  i.isCorner = corner;
  i.base = base;
  return ask(i, "Point non valide: x,y attendu, ou @dx,dy, @d<angle.", [&](const Input& input, int) {
    const auto found = pointOf(document_, input, base ? *base : lastPoint);
    if (found) point = lastPoint = *found;
    return found.has_value();
  });
}

Answer Prompter::getReal(std::string_view prompt, double& value) {
  return ask(info(prompt), "Un nombre est attendu.", [&](const Input& input, int flags) {
    const auto number = numberOf(document_, input, flags);
    if (number) value = *number;
    return number && withinFlags(*number, flags);
  });
}

Answer Prompter::getInteger(std::string_view prompt, int& value) {
  return ask(info(prompt), "Un entier est attendu.", [&](const Input& input, int flags) {
    const auto number = numberOf(document_, input, flags);
    if (!number || *number != std::floor(*number) || std::abs(*number) > 2147483647.0) return false;
    value = static_cast<int>(*number);
    return withinFlags(*number, flags);
  });
}

Answer Prompter::getText(bool withSpaces, std::string_view prompt, std::string& text) {
  PromptInfo i = info(prompt);
  i.takesSpaces = withSpaces;
  flags_ = 0;
  keywords_.clear();
  globalKeywords_.clear();
  const Input input = read(i);
  if (input.kind == Input::Kind::cancel || input.kind == Input::Kind::end) return Answer::cancel;
  text = input.kind == Input::Kind::text ? input.text : std::string();
  if (!withSpaces && text.starts_with('(')) {
    if (const auto value = expressionValue(document_, input); value && value->isString()) text = value->text();
  }
  return Answer::value;
}

Input Prompter::follow() {
  constexpr char kEnter = '\r';
  if (keys_.empty()) {
    PromptInfo prompt;
    prompt.keywords = keywords_;
    prompt.takesSpaces = prompt.tracks = true;
    Input input = read(prompt);
    if (input.kind != Input::Kind::text) return input;
    const auto value = input.text.starts_with('(') ? expressionValue(document_, input) : std::nullopt;
    if (const auto point = value ? pointFromValue(*value) : std::nullopt) return Input::pick(*point);
    keys_ = input.text + kEnter;
  }
  const std::string key = firstCharacter(keys_);
  keys_.erase(0, key.size());
  return Input::line(key);
}

Answer Prompter::getKeyword(std::string_view prompt) {
  return ask(info(prompt), "Option non valide.", [](const Input&, int) { return false; });
}

Answer Prompter::getDistance(const std::optional<AcGePoint3d>& base, std::string_view prompt, double& distance) {
  PromptInfo i = info(prompt);
  i.wantsPoint = true;
  i.base = base;
  std::optional<AcGePoint3d> first;
  const Answer answer = ask(i, "Une distance est attendue: un nombre ou un point.", [&](const Input& input, int flags) {
    const auto [number, point] = numberOrPoint(document_, input, base ? *base : lastPoint);
    if (number) {
      distance = *number;
      return withinFlags(distance, flags);
    }
    if (!point) return false;
    if (base) distance = base->distanceTo(*point);
    else first = point;
    return true;
  });
  if (answer != Answer::value || !first) return answer;
  AcGePoint3d second;
  const Answer next = getPoint(first, "\nDeuxième point: ", second);
  distance = first->distanceTo(second);
  return next;
}

Answer Prompter::getAngle(const std::optional<AcGePoint3d>& base, std::string_view prompt, double& angle) {
  PromptInfo i = info(prompt);
  i.wantsPoint = true;
  i.base = base;
  return ask(i, "Un angle est attendu: des degrés ou un point.", [&](const Input& input, int) {
    const AcGePoint3d from = base ? *base : lastPoint;
    const auto [number, point] = numberOrPoint(document_, input, from);
    if (number) {
      angle = *number * std::numbers::pi / 180;
      return true;
    }
    if (point) angle = AcGeVector2d(point->x - from.x, point->y - from.y).angle();
    return point.has_value();
  });
}

Answer Prompter::getEntity(std::string_view prompt, AcDbObjectId& entity, AcGePoint3d& point) {
  PromptInfo i = info(prompt);
  i.wantsEntity = true;
  return ask(i, "Aucun objet à cet endroit.", [&](const Input& input, int) {
    if (const auto value = expressionValue(document_, input)) return entityFromValue(*value, entity, point);
    if (input.kind == Input::Kind::text) {
      const std::string word = upperCase(input.text.starts_with('_') ? input.text.substr(1) : input.text);
      if (word == "D" || word == "L" || word == "DERNIER" || word == "LAST") {
        AcDbStub* last = lastEntity(document_.imp());
        entity = idOf(last);
        return last != nullptr;
      }
    }
    const auto found = pointOf(document_, input, lastPoint);
    if (!found) return false;
    point = *found;
    // A pick without an entity is an answer, too: the caller decides whether to ask again.
    entity = document_.services().pick(document_, *found);
    return true;
  });
}

}  // namespace atelier
