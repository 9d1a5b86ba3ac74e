// What the tests of quantities share: a profile whose ground falls from 50 to 40 m over 100 m, in sections with planes of
// their own, and calls whose messages are read.
#pragma once
#include <gtest/gtest.h>

#include "tests/frontal/front_end.h"

namespace kaveltest {

constexpr const char* kGround = "distance;altitude;nom\n1000;50;A\n1040;46;\n1060;44.5;B\n1100;40;C\n";

struct Quantities : FrontEnd {
  explicit Quantities(const std::string& ground = kGround, const std::string& height = "60.0") {
    file("g.csv", ground);
    profile("P1", "'(0.0 0.0 0.0)", height);
  }
  void profile(const std::string& number, const std::string& point, const std::string& height = "60.0") {
    eval("(setq p (plv-nouveau \"" + path("g.csv") + "\" \"" + number + "\" " + point + " 10.0 2.5 " + height +
         " nil))");
    transcript();
  }
  void project(const char* kind = "Projet", const char* vertices = "((1000.0 49.5) (1060.0 42.5) (1100.0 39.0))") {
    eval(std::string("(plv-projet p \"") + kind + "\" '" + vertices + ")");
    transcript();
  }
  // What a call says.
  std::string said(const std::string& call) {
    transcript();
    eval("(progn " + call + " nil)");
    return transcript();
  }
  std::string measured(const std::string& numbers, const std::string& workbook, bool hatch = false) {
    return said("(setq m (plv-metres " + numbers + " \"Projet\" " +
                (workbook.empty() ? "nil" : "\"" + workbook + "\"") + (hatch ? " T" : " nil") + "))");
  }
  // The measured sections as their classes.
  std::string classes() { return eval("(mapcar 'car (cdadr m))"); }
  std::string count(const std::string& type) {
    return eval("(if (setq s (ssget \"X\" '((0 . \"" + type + "\")))) (sslength s) 0)");
  }
};

#define SAYS(text, part) EXPECT_NE((text).find(part), std::string::npos) << (text)

}  // namespace kaveltest
