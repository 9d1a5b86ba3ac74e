// The evaluator of DIESEL macros.
// Every value is a text; a text in quotes is taken as it stands.
#include "atelier/lisp/text/diesel.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>
#include <vector>

#include "atelier/lisp/text/encoding.h"

namespace atelier::lisp {
namespace {

using Texts = std::vector<std::string>;
constexpr int kDeepest = 100;
constexpr std::size_t kLongest = 1 << 16;  // characters of a macro's text, which nested functions could multiply

std::optional<double> numberOf(const std::string& text) {
  double value = 0;
  const char *first = text.data(), *last = first + text.size();
  while (first != last && *first == ' ') ++first;
  if (first != last && *first == '+') ++first;
  const auto [end, error] = std::from_chars(first, last, value);
  return error == std::errc() && end == last ? std::optional(value) : std::nullopt;
}

std::string textOf(double value) {
  char buffer[40];
  return std::string(buffer, std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, 10).ptr);
}

std::size_t characters(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = 0; at < text.size(); ++count) nextCodePoint(text, at);
  return count;
}

using Fold = double (*)(double, double);
struct FoldRow {
  std::string_view name;
  Fold fold;
};
double bits(double a, double b, std::int64_t (*combine)(std::int64_t, std::int64_t)) {
  const auto whole = [](double v) { return std::abs(v) < 9e18 ? static_cast<std::int64_t>(v) : 0; };
  return static_cast<double>(combine(whole(a), whole(b)));
}
constexpr FoldRow kFolds[] = {
    {"+", [](double a, double b) { return a + b; }},
    {"-", [](double a, double b) { return a - b; }},
    {"*", [](double a, double b) { return a * b; }},
    {"/", [](double a, double b) { return a / b; }},
    {"AND", [](double a, double b) { return bits(a, b, [](std::int64_t x, std::int64_t y) { return x & y; }); }},
    {"OR", [](double a, double b) { return bits(a, b, [](std::int64_t x, std::int64_t y) { return x | y; }); }},
    {"XOR", [](double a, double b) { return bits(a, b, [](std::int64_t x, std::int64_t y) { return x ^ y; }); }}};

using Compare = bool (*)(double, double);
struct CompareRow {
  std::string_view name;
  Compare compare;
};
constexpr CompareRow kCompares[] = {
    {"=", [](double a, double b) { return a == b; }},  {"!=", [](double a, double b) { return a != b; }},
    {"<", [](double a, double b) { return a < b; }},   {">", [](double a, double b) { return a > b; }},
    {"<=", [](double a, double b) { return a <= b; }}, {">=", [](double a, double b) { return a >= b; }}};

class Evaluator {
 public:
  explicit Evaluator(const DieselHost& host) : host_(host) {}

  // Replaces macros up to the end, or within an argument up to a comma or parenthesis that ends it.
  std::string run(std::string_view source, std::size_t& at, bool argument) {
    std::string out;
    while (at < source.size() && out.size() < kLongest) {
      const char c = source[at];
      if (argument && (c == ',' || c == ')')) break;
      if (argument && c == '"') {
        const std::size_t end = std::min(source.find('"', at + 1), source.size());
        out += source.substr(at + 1, end - at - 1);
        at = std::min(end + 1, source.size());
      } else if (c == '$' && at + 1 < source.size() && source[at + 1] == '(') {
        at += 2;
        out += call(source, at);
      } else {
        out += c;
        ++at;
      }
    }
    return out;
  }

 private:
  std::string call(std::string_view source, std::size_t& at) {
    if (depth_ == kDeepest) {
      at = source.size();
      return "$?";
    }
    ++depth_;
    Texts list;
    bool closed = false;
    while (at < source.size() && !closed) {
      list.push_back(run(source, at, true));
      closed = at < source.size() && source[at] == ')';
      ++at;
    }
    --depth_;
    if (!closed) return "$?";
    if (list.empty()) return "$()";
    const std::string name = upperCase(list.front());
    list.erase(list.begin());
    return apply(name, list);
  }

  std::string apply(const std::string& name, const Texts& a) {
    const auto value = known(name, a);
    if (value) return *value;
    return isKnown_ ? "$(" + name + ",?\?)" : "$(" + name + ")?\?";
  }

  // Nothing for an unknown function or for arguments that don't fit.
  std::optional<std::string> known(const std::string& name, const Texts& a) {
    isKnown_ = true;
    for (const FoldRow& row : kFolds)
      if (row.name == name) return folded(row.fold, a);
    for (const CompareRow& row : kCompares)
      if (row.name == name) return compared(row.compare, a);
    const std::size_t count = a.size();
    const auto first = count > 0 ? numberOf(a[0]) : std::nullopt, second = count > 1 ? numberOf(a[1]) : std::nullopt;
    if (name == "IF")
      return count < 2 || count > 3 || !first ? std::nullopt
                                              : std::optional(*first != 0  ? a[1]
                                                              : count == 3 ? a[2]
                                                                           : "");
    if (name == "EQ") return count == 2 ? std::optional<std::string>(a[0] == a[1] ? "1" : "0") : std::nullopt;
    if (name == "FIX") return count == 1 && first ? std::optional(textOf(std::trunc(*first))) : std::nullopt;
    if (name == "STRLEN") return count == 1 ? std::optional(std::to_string(characters(a[0]))) : std::nullopt;
    if (name == "UPPER") return count == 1 ? std::optional(upperCase(a[0])) : std::nullopt;
    if (name == "GETVAR") return count == 1 ? std::optional(host_.variable(upperCase(a[0]))) : std::nullopt;
    if (name == "GETENV") return count == 1 ? std::optional(host_.environment(a[0])) : std::nullopt;
    if (name == "EDTIME") {
      // 0 is now.
      const auto day = first == 0.0 ? numberOf(host_.variable("DATE")) : first;
      return count == 2 && day ? std::optional(editTime(*day, a[1])) : std::nullopt;
    }
    if (name == "SUBSTR") return part(a, second);
    if (name == "INDEX") return indexed(a, first);
    if (name == "NTH")
      return first && *first >= 0 && *first < static_cast<double>(count) - 1
                 ? std::optional(a[static_cast<std::size_t>(*first) + 1])
                 : std::nullopt;
    if (name == "EVAL" && count == 1) {
      std::size_t at = 0;
      return depth_ == kDeepest ? std::nullopt : std::optional(nested(a[0], at));
    }
    if ((name == "RTOS" || name == "ANGTOS") && first)
      return formatted(name == "RTOS" ? host_.distance : host_.angle, a, *first);
    constexpr std::string_view kOthers[] = {"EVAL", "RTOS", "ANGTOS"};
    isKnown_ = std::find(std::begin(kOthers), std::end(kOthers), name) != std::end(kOthers);
    return std::nullopt;
  }

  std::string nested(std::string_view source, std::size_t& at) {
    ++depth_;
    std::string out = run(source, at, false);
    --depth_;
    return out;
  }

  static std::optional<std::string> folded(Fold fold, const Texts& a) {
    std::optional<double> total;
    for (const std::string& each : a) {
      const auto value = numberOf(each);
      if (!value) return std::nullopt;
      total = total ? fold(*total, *value) : *value;
    }
    return total ? std::optional(textOf(*total)) : std::nullopt;
  }

  static std::optional<std::string> compared(Compare compare, const Texts& a) {
    const auto x = a.size() == 2 ? numberOf(a[0]) : std::nullopt, y = a.size() == 2 ? numberOf(a[1]) : std::nullopt;
    if (!x || !y) return std::nullopt;
    return compare(*x, *y) ? "1" : "0";
  }

  // Part of a text: from a character, counted from 1, so many characters, or to the end.
  static std::optional<std::string> part(const Texts& a, std::optional<double> from) {
    const auto length = a.size() == 3 ? numberOf(a[2]) : std::optional(1e9);
    if (a.size() < 2 || a.size() > 3 || !from || *from < 1 || !length || *length < 0) return std::nullopt;
    const double whole = static_cast<double>(characters(a[0]));
    if (*from > whole) return "";
    const std::size_t begin = byteOffset(a[0], static_cast<std::size_t>(*from) - 1);
    const std::string_view rest = std::string_view(a[0]).substr(begin);
    return std::string(rest.substr(0, byteOffset(rest, static_cast<std::size_t>(std::min(*length, whole)))));
  }

  // One of the parts of a text between commas, counted from 0.
  static std::optional<std::string> indexed(const Texts& a, std::optional<double> which) {
    if (a.size() != 2 || !which || *which < 0) return std::nullopt;
    std::string_view rest = a[1];
    for (double left = *which; left >= 1; --left) {
      const std::size_t comma = rest.find(',');
      if (comma == rest.npos) return "";
      rest.remove_prefix(comma + 1);
    }
    return std::string(rest.substr(0, rest.find(',')));
  }

  static std::optional<std::string> formatted(const std::function<std::string(double, int, int)>& format,
                                              const Texts& a, double value) {
    const auto mode = a.size() > 1 ? numberOf(a[1]) : std::optional(-1.0),
               precision = a.size() > 2 ? numberOf(a[2]) : std::optional(-1.0);
    if (!mode || !precision || a.size() > 3 || std::abs(*mode) > 10 || std::abs(*precision) > 20) return std::nullopt;
    return format(value, static_cast<int>(*mode), static_cast<int>(*precision));
  }

  const DieselHost& host_;
  int depth_ = 0;
  bool isKnown_ = true;
};

std::string padded(int value, std::size_t width = 2) {
  const std::string digits = std::to_string(value);
  return digits.size() < width ? std::string(width - digits.size(), '0') + digits : digits;
}

}  // namespace

std::string dieselText(const DieselHost& host, std::string_view macro) {
  std::size_t at = 0;
  return Evaluator(host).run(macro, at, false);
}

std::string editTime(double julian, std::string_view format) {
  if (!(julian >= 0 && julian < 1e7)) return {};
  constexpr const char* kDays[] = {"lundi", "mardi", "mercredi", "jeudi", "vendredi", "samedi", "dimanche"};
  constexpr const char* kMonths[] = {"janvier", "février", "mars",      "avril",   "mai",      "juin",
                                     "juillet", "août",    "septembre", "octobre", "novembre", "décembre"};
  constexpr const char* kShortMonths[] = {"janv", "févr", "mars", "avr", "mai", "juin",
                                          "juil", "août", "sept", "oct", "nov", "déc"};
  // Day number to date: Fliegel and Van Flandern (1968), inverse formula.
  const int number = static_cast<int>(julian);
  const int millis = std::min(static_cast<int>(std::lround((julian - number) * 86400000)), 86399999);
  int l = number + 68569;
  const int n = 4 * l / 146097;
  l -= (146097 * n + 3) / 4;
  const int i = 4000 * (l + 1) / 1461001;
  l = l - 1461 * i / 4 + 31;
  const int j = 80 * l / 2447, day = l - 2447 * j / 80, month = j + 2 - 12 * (j / 11),
            year = 100 * (n - 49) + i + j / 11;
  const int hour = millis / 3600000, minute = millis / 60000 % 60, second = millis / 1000 % 60;
  const std::size_t weekday = static_cast<std::size_t>(number % 7), m = static_cast<std::size_t>(month - 1);
  const bool half =
      upperCase(format).find("AM/PM") != std::string::npos || upperCase(format).find("A/P") != std::string::npos;
  const int shown = half ? (hour + 11) % 12 + 1 : hour;
  const struct {
    std::string_view key;  // longest first
    std::string value;
  } rows[] = {{"MONTH", kMonths[m]},
              {"AM/PM", hour < 12 ? "AM" : "PM"},
              {"am/pm", hour < 12 ? "am" : "pm"},
              {"YYYY", padded(year, 4)},
              {"DDDD", kDays[weekday]},
              {"MSEC", padded(millis % 1000, 3)},
              {"DDD", std::string(kDays[weekday]).substr(0, 3)},
              {"MON", kShortMonths[m]},
              {"A/P", hour < 12 ? "A" : "P"},
              {"a/p", hour < 12 ? "a" : "p"},
              {"YY", padded(year % 100)},
              {"DD", padded(day)},
              {"MO", padded(month)},
              {"HH", padded(shown)},
              {"MM", padded(minute)},
              {"SS", padded(second)},
              {"D", std::to_string(day)},
              {"M", std::to_string(month)},
              {"H", std::to_string(shown)}};
  std::string out;
  while (!format.empty()) {
    const auto row =
        std::find_if(std::begin(rows), std::end(rows), [&](const auto& r) { return format.starts_with(r.key); });
    out += row == std::end(rows) ? std::string(1, format.front()) : row->value;
    format.remove_prefix(row == std::end(rows) ? 1 : row->key.size());
  }
  return out;
}

}  // namespace atelier::lisp
