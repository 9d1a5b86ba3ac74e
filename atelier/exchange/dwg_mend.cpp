// Repairs the converter's DXF, group by group.
// Group codes with 16-bit integers are those of the DXF reference, "Group code value types".
#include <algorithm>
#include <map>
#include <vector>

#include "atelier/base/text.h"
#include "atelier/exchange/dwg.h"

namespace atelier::exchange {
namespace {

struct Line {
  std::int64_t code;
  std::string value;
};

// The converter cuts texts of XRECORDs into pieces of at least so many bytes.
constexpr std::size_t kShortestPiece = 240;
constexpr std::int64_t kLeastCode = -5, kMostCode = 1071;

std::string_view takeLine(std::string_view& rest) {
  const auto end = rest.find('\n');
  std::string_view line = rest.substr(0, end);
  rest = end == rest.npos ? std::string_view() : rest.substr(end + 1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

bool within(std::int64_t code, std::int64_t first, std::int64_t last) { return code >= first && code <= last; }

bool isShort(std::int64_t code) {
  return within(code, 60, 79) || within(code, 170, 179) || within(code, 270, 289) || within(code, 370, 389) ||
         within(code, 400, 409) || within(code, 1060, 1070);
}

bool isText(std::int64_t code) { return within(code, 0, 9) || within(code, 300, 309) || within(code, 1000, 1009); }

std::string reversed(std::string_view digits, std::size_t unit) {
  std::string out;
  for (std::size_t end = digits.size(); end >= unit && unit > 0; end -= unit) out += digits.substr(end - unit, unit);
  return out;
}

class Mending {
 public:
  explicit Mending(std::string_view dxf) {
    while (!dxf.empty()) {
      const std::string_view line = takeLine(dxf);
      const auto code = parseInteger(line);
      if (code && within(*code, kLeastCode, kMostCode)) lines_.push_back({*code, std::string(takeLine(dxf))});
      else if (!lines_.empty()) lines_.back().value += "\\P" + std::string(line);
    }
    findLayers();
  }

  std::string text() {
    std::string out;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
      if (lines_[i].code == 0) record_ = lines_[i].value;
      Line line = lines_[i];
      while (line.code == 3 && record_ == "XRECORD" && line.value.size() >= kShortestPiece && i + 1 < lines_.size() &&
             isText(lines_[i + 1].code) && lines_[i + 1].code != 0) {
        ++i;
        const bool last = lines_[i].code != 3 || lines_[i].value.size() < kShortestPiece;
        line = {lines_[i].code, line.value + lines_[i].value};
        if (last) break;
      }
      mend(line);
      out += std::to_string(line.code) + "\n" + line.value + "\n";
    }
    return out;
  }

 private:
  void findLayers() {
    std::string type, handle;
    for (const Line& line : lines_) {
      if (line.code == 0) type = line.value, handle.clear();
      if (type != "LAYER") continue;
      if (line.code == 5) handle = line.value;
      if (line.code == 2 && !handle.empty()) layers_.emplace(parseHandle(handle).value_or(0), line.value);
    }
  }

  void mend(Line& line) const {
    if (isShort(line.code)) {
      const auto value = parseInteger(line.value);
      if (value && within(*value, 32768, 65535)) line.value = std::to_string(*value - 65536);
    } else if (line.code == 1003) {
      line.value = layerNamed(line.value);
    } else if (isText(line.code)) {
      replace(line.value, "\\\\U+", "\\U+");
      replace(line.value, "\\\"", "\"");
    }
  }

  static void replace(std::string& text, std::string_view from, std::string_view to) {
    for (std::size_t at = 0; (at = text.find(from, at)) != text.npos; at += to.size())
      text.replace(at, from.size(), to);
  }

  // A layer by its name, or by its handle with bytes or digits reversed.
  std::string layerNamed(const std::string& value) const {
    const bool known = std::any_of(layers_.begin(), layers_.end(),
                                   [&](const auto& layer) { return equalNoCase(layer.second, value); });
    if (known) return value;
    for (const std::string& digits :
         {value.size() % 2 == 0 ? reversed(value, 2) : std::string(), reversed(value, 1), value}) {
      const auto layer = layers_.find(parseHandle(digits).value_or(0));
      if (layer != layers_.end()) return layer->second;
    }
    return value;
  }

  std::vector<Line> lines_;
  std::map<std::uint64_t, std::string> layers_;
  std::string record_;
};

}  // namespace

std::string mended(std::string_view dxf) { return Mending(dxf).text(); }

}  // namespace atelier::exchange
