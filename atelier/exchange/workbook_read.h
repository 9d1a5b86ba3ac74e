// The first sheet of a workbook (.xlsx) as lines of text.
#pragma once
#include <string>
#include <vector>

namespace atelier::exchange {

// A line for each row down to the last one, so that a line's number is the row's; cells are separated by semicolons, those
// within a text become commas. Throws FileError.
std::vector<std::string> readWorkbook(const std::string& path);

}  // namespace atelier::exchange
