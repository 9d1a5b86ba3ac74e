// Strings, searching in them, patterns.
#include "atelier/lisp/text/encoding.h"
#include "tests/lisp/table.h"

namespace atelier::lisp {
namespace {

using Strings = LispTest;

TEST_F(Strings, Basics) {
  check({{"(strcat)", "\"\""},
         {"(strcat \"a\" \"bout\")", "\"about\""},
         {"(strlen \"abcd\")", "4"},
         {"(strlen \"un\" \"deux\" \"\")", "6"},
         {"(strlen \"été\")", "3"},
         {"(substr \"abcde\" 2)", "\"bcde\""},
         {"(substr \"abcde\" 3 2)", "\"cd\""},
         {"(substr \"abc\" 5)", "\"\""},
         {"(substr \"éàü\" 2 1)", "\"à\""},
         {"(substr \"abc\" 2 0)", "\"\""},
         {"(strcase \"Sample é ß\")", "\"SAMPLE É ß\""},
         {"(strcase \"SAMPLE ÉŒ\" T)", "\"sample éœ\""},
         {"(ascii \"BIG\")", "66"},
         {"(ascii \"é\")", "233"},
         {"(chr 65)", "\"A\""},
         {"(chr 233)", "\"é\""},
         {"(chr 128)", "\"€\""},
         {"(itoa -17)", "\"-17\""},
         {"(atoi \"97\")", "97"},
         {"(atoi \" 3.9 m\")", "3"},
         {"(atoi \"+5\")", "5"},
         {"(atoi \"m\")", "0"},
         {"(atof \"97.1\")", "97.1"},
         {"(atof \"3 m\")", "3.0"},
         {"(atof \"-1.5e3x\")", "-1500.0"},
         {"(atof \"inf\")", "0.0"},
         {"(read \"hello\")", "HELLO"},
         {"(read \"(a \\\"b\\\") c\")", "(A \"b\")"},
         {"(read \"\")", "nil"},
         {"(eval (read \"(+ 1 2)\"))", "3"},
         {"(vl-princ-to-string '(\"a\" 1.0))", "\"(a 1.0)\""},
         {"(vl-prin1-to-string \"a\\\"b\")", "\"\\\"a\\\\\\\"b\\\"\""},
         {"(vl-string->list \"aé\")", "(97 233)"},
         {"(vl-list->string '(49 50 233))", "\"12é\""}});
}

TEST_F(Strings, Errors) {
  check({{"(strcat \"a\" 1)", "! bad argument type: stringp 1"},
         {"(strcat nil)", "! bad argument type: stringp nil"},
         {"(strlen 5)", "! bad argument type: stringp 5"},
         {"(substr \"a\" 0)", "! bad argument value: positive 0"},
         {"(itoa 1.0)", "! bad argument type: fixnump: 1.0"},
         {"(ascii 1)", "! bad argument type: stringp 1"},
         {"(read \"(a\")", "! malformed list on input"},
         {"(read \")\")", "! extra right paren on input"}});
}

TEST_F(Strings, Searching) {
  check({{"(vl-string-search \"foo\" \"pfooyey on you\")", "1"},
         {"(vl-string-search \"z\" \"abc\")", "nil"},
         {"(vl-string-search \"a\" \"aéa\" 1)", "2"},
         {"(vl-string-position (ascii \"z\") \"azbdc\")", "1"},
         {"(vl-string-position 122 \"azbzc\" nil t)", "3"},
         {"(vl-string-position 122 \"azbzc\" 2)", "3"},
         {"(vl-string-subst \"Obi-wan\" \"Ben\" \"Ben and Ben\")", "\"Obi-wan and Ben\""},
         {"(vl-string-subst \"x\" \"Ben\" \"Ben and Ben\" 3)", "\"Ben and x\""},
         {"(vl-string-translate \"abc\" \"123\" \"A, a, b, c\")", "\"A, 1, 2, 3\""},
         {"(vl-string-left-trim \" \\t\" \"\\t  a b \")", "\"a b \""},
         {"(vl-string-right-trim \"é\" \"caféé\")", "\"caf\""},
         {"(vl-string-trim \" \" \"  x  \")", "\"x\""},
         {"(vl-string-trim \" \" \"   \")", "\"\""},
         {"(vl-string-elt \"May\" 1)", "97"},
         {"(vl-string-mismatch \"VL-FUN\" \"VL-VAR\")", "3"},
         {"(vl-string-mismatch \"abc\" \"ABD\" 0 0 T)", "2"},
         {"(vl-string-elt \"a\" 3)", "! bad argument value: index out of range: 3"}});
}

TEST_F(Strings, Wildcards) {
  const struct {
    const char* text;
    const char* pattern;
    bool matches;
  } rows[] = {{"Name", "N*", true},     {"Name", "???,~*m*,N*", true},
              {"Name", "n*", false},    {"A1", "@#", true},
              {"A1", "##", false},      {"a-b", "a.b", true},
              {"a1b", "a.b", false},    {"abc", "?b?", true},
              {"abc", "~*d*", true},    {"abc", "~*b*", false},
              {"b2", "[abc]#", true},   {"d2", "[abc]#", false},
              {"d2", "[~abc]#", true},  {"m", "[a-f],[l-n]", true},
              {"-", "[a-]", true},      {"]", "[]]", true},
              {"a*b", "a`*b", true},    {"axb", "a`*b", false},
              {"a,b", "a`,b", true},    {",", "[,]", true},
              {"", "*", true},          {"", "", true},
              {"aaab", "*a*b", true},   {"abab", "*ab", true},
              {"axbyc", "a*b*c", true}, {"axbyd", "a*b*c", false},
              {"Été", "@t@", true},     {"[x", "[x", true}};
  for (const auto& row : rows)
    EXPECT_EQ(run("(wcmatch \"" + std::string(row.text) + "\" \"" + row.pattern + "\")"), row.matches ? "T" : "nil")
        << row.text << " " << row.pattern;
}

TEST_F(Strings, Windows1252RoundTrip) {
  const std::string text = "été € – ÿ";
  const std::string bytes = toWindows1252(text);
  EXPECT_EQ(bytes.size(), 9u);
  EXPECT_EQ(decodeFile(bytes), text);
  EXPECT_EQ(toWindows1252("α"), "\\U+03B1");
  EXPECT_EQ(decodeFile("\xef\xbb\xbf" + text), text);
  EXPECT_FALSE(isValidUtf8("\xc0\x80"));
  EXPECT_FALSE(isValidUtf8("\xed\xa0\x80"));
}

// A string that grows shares its bytes with the shorter ones; these must stay what they were.
TEST_F(Strings, AppendingLeavesTheOthersAlone) {
  check({{"(progn (setq s (strcat \"abcdefgh\" \"12345678\" \"abcdefgh\" \"12345678\") a (strcat s \"A\") b "
          "(strcat s \"B\"))"
          " (list (substr a 33) (substr b 33) (strlen s) (= s (substr a 1 32))))",
          "(\"A\" \"B\" 32 T)"},
         {"(progn (setq s \"é\") (repeat 7 (setq s (strcat s s))) (strlen s))", "128"}});
}

}  // namespace
}  // namespace atelier::lisp
