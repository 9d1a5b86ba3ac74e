// The options as a table: settings hold for what stands after them, and the manual page names what --help names.
#include <gtest/gtest.h>

#include <map>
#include <regex>

#include "tests/console/program.h"

namespace {

using kaveltest::Program;

// The width that the head of a PNG states: four bytes, the greatest first.
int pngWidth(const std::string& bytes) {
  int width = 0;
  for (std::size_t i = 16; i < 20 && i < bytes.size(); ++i) width = width * 256 + static_cast<unsigned char>(bytes[i]);
  return width;
}

TEST(Options, ResolutionHoldsForThePlotsAfterIt) {
  // An A4 sheet is 297 mm wide: 1754 pixels at 150 points per inch, 585 at 50, 1169 at 100.
  const struct {
    const char* arguments;
    int a, b;
  } rows[] = {{"--plot a.png --plot b.png", 1754, 1754},
              {"--dpi 50 --plot a.png --dpi 100 --plot b.png", 585, 1169},
              {"--plot a.png --dpi 100 --plot b.png", 1169, 1169},
              {"--plot a.png --plot b.png --dpi 50", 585, 585},
              {"--dpi 10 --plot a.png --dpi=72.5 --plot b.png", 117, 848}};
  for (const auto& row : rows) {
    Program program;
    program.run(std::string("--no-frontal -e '(command \"_LINE\" \"0,0\" \"20,1\" \"\")' --paper A4 ") + row.arguments);
    EXPECT_EQ(program.status, 0) << row.arguments << program.output;
    EXPECT_EQ(pngWidth(program.read("a.png")), row.a) << row.arguments;
    EXPECT_EQ(pngWidth(program.read("b.png")), row.b) << row.arguments;
  }
}

TEST(Options, BadResolutionsAreBadUsage) {
  for (const char* bad : {"9", "2401", "-5", "abc", "150x", "nan", "2400,5"}) {
    Program program;
    program.run(std::string("--no-frontal --plot a.png --dpi=") + bad);
    EXPECT_EQ(program.status, 2) << bad << program.output;
    EXPECT_NE(program.output.find("10"), std::string::npos) << bad << program.output;
    EXPECT_FALSE(program.has("a.png")) << bad;
  }
}

// Each option of the lines, short and long, with its argument.
std::map<std::string, std::string> optionsIn(const std::string& lines) {
  static const std::regex kOption(R"((?:(-\w)[ ,]+)?(--[\w-]+)(?:[ =]{1,2}([\w.|]+))?)");
  std::map<std::string, std::string> found;
  for (std::sregex_iterator i(lines.begin(), lines.end(), kOption), end; i != end; ++i) {
    found[(*i)[2]] = (*i)[3];
    if ((*i)[1].matched) found[(*i)[1]] = (*i)[3];
  }
  return found;
}

TEST(Options, ManualPageNamesThoseOfHelp) {
  std::istringstream help(Program().run("--help").output);
  std::ifstream page(KAVEL_SOURCE "/share/man/kavel.1");
  std::string helped, named;
  for (std::string line; std::getline(help, line);)
    if (line.starts_with("  -")) helped += line.substr(0, line.find("  ", 3)) + "\n";
  for (std::string line; std::getline(page, line) && !line.starts_with(".SH EXIT");)
    if (line.starts_with(".B") && line.find('-') != line.npos)
      named += std::regex_replace(line, std::regex(R"(\\f[IR]|"|\\(?=-)|^\.BR? )"), "") + "\n";
  EXPECT_GT(optionsIn(helped).size(), 20u) << helped;
  EXPECT_EQ(optionsIn(helped), optionsIn(named)) << helped << named;
}

}  // namespace
