// The arguments of the program with a window: what only prints works without a screen, and ends.
#include <gtest/gtest.h>

#include "tests/console/program.h"

namespace {

struct DesktopOptions : ::testing::Test {
  DesktopOptions() {
    program.called = "kavel-bureau";
    program.prefix = "timeout 20 env -u DISPLAY -u WAYLAND_DISPLAY QT_QPA_PLATFORM=xcb";
  }
  kaveltest::Program program;
};

TEST_F(DesktopOptions, WhatOnlyPrintsNeedsNoScreen) {
  program.run("--version");
  EXPECT_EQ(program.status, 0);
  EXPECT_TRUE(program.output.starts_with("kavel-bureau ")) << program.output;
  for (const char* help : {"--help", "-h", "rue.dxf --help", "-platform offscreen --help"}) {
    program.run(help);
    EXPECT_EQ(program.status, 0) << help;
    EXPECT_NE(program.output.find("DRAWING.dxf"), std::string::npos) << program.output;
  }
}

TEST_F(DesktopOptions, AnUnknownOptionIsNamed) {
  for (const char* given : {"--save", "-x", "rue.dxf --plot rue.pdf", "--versions"}) {
    program.run(given);
    EXPECT_EQ(program.status, 2) << given << program.output;
    EXPECT_NE(program.output.find("not expected"), std::string::npos) << program.output;
  }
}

}  // namespace
