// A pattern is cut at its commas, but for those between brackets and quotes.
#include "atelier/commands/records/linetype_file.h"

#include <sstream>

#include "atelier/base/error.h"
#include "atelier/base/text.h"

namespace atelier {
namespace {

std::vector<std::string> fieldsOf(std::string_view line) {
  std::vector<std::string> fields(1);
  bool quoted = false, bracket = false;
  for (const char c : line) {
    if (c == '"') quoted = !quoted;
    if (!quoted && (c == '[' || c == ']')) bracket = c == '[';
    if (c == ',' && !quoted && !bracket) fields.emplace_back();
    else fields.back() += c;
  }
  for (std::string& field : fields) field = std::string(trimmed(field));
  return fields;
}

// ["TEXT",STYLE,S=.1,R=0.0,X=-0.1,Y=-.05]; a first part without quotes is a shape. False for one.
bool readText(std::string_view inside, LinetypePart& part) {
  const auto fields = fieldsOf(inside);
  if (fields.size() < 2 || !fields[0].starts_with('"')) return false;
  part.text = fields[0].substr(1, fields[0].find_last_of('"') - 1);
  part.style = fields[1];
  for (std::size_t i = 2; i < fields.size(); ++i) {
    const std::size_t equals = fields[i].find('=');
    const auto value = equals == std::string::npos ? std::nullopt : parseReal(fields[i].substr(equals + 1));
    if (!value) continue;
    switch (upperCase(fields[i])[0]) {
      case 'S': part.scale = *value; break;
      case 'X': part.x = *value; break;
      case 'Y': part.y = *value; break;
      case 'R':
      case 'A':
      case 'U': part.rotation = *value, part.upright = upperCase(fields[i])[0] != 'R'; break;
      default: break;
    }
  }
  return true;
}

}  // namespace

std::vector<LinetypeDefinition> readLinetypes(const std::string& file, std::string_view text) {
  std::vector<LinetypeDefinition> list;
  std::istringstream lines{std::string(text)};
  int number = 0;
  for (std::string raw; std::getline(lines, raw);) {
    ++number;
    const std::string_view line = trimmed(raw.ends_with('\r') ? std::string_view(raw).substr(0, raw.size() - 1) : raw);
    if (line.empty() || line.starts_with(';')) continue;
    if (line.starts_with('*')) {
      const std::size_t comma = line.find(',');
      list.push_back({std::string(trimmed(line.substr(1, comma == line.npos ? comma : comma - 1))),
                      comma == line.npos ? std::string() : std::string(trimmed(line.substr(comma + 1))),
                      {},
                      false});
      continue;
    }
    const auto fields = fieldsOf(line);
    const auto fail = [&](const std::string& found) {
      throw Error(file + ", ligne " + std::to_string(number) + ": A et des longueurs attendus, \"" + found +
                  "\" trouvé");
    };
    if (list.empty() || upperCase(fields[0]) != "A") fail(std::string(line.substr(0, 80)));
    LinetypePart waiting;
    for (std::size_t i = 1; i < fields.size(); ++i) {
      if (fields[i].starts_with('[')) {
        const bool text1 = readText(std::string_view(fields[i]).substr(1, fields[i].find_last_of(']') - 1), waiting);
        list.back().hasShapes |= !text1;
        continue;
      }
      const auto length = parseReal(fields[i]);
      if (!length) fail(fields[i]);
      // A text stands at the end of the part before it.
      if (!waiting.text.empty() && !list.back().parts.empty()) {
        waiting.length = list.back().parts.back().length;
        list.back().parts.back() = waiting;
      }
      waiting = {};
      list.back().parts.emplace_back().length = *length;
    }
    if (!waiting.text.empty() && !list.back().parts.empty()) {
      waiting.length = list.back().parts.back().length;
      list.back().parts.back() = waiting;
    }
  }
  return list;
}

}  // namespace atelier
