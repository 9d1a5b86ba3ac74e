// Qt takes its own options out of the arguments when it starts, and it only starts on a screen; so they are known here by name.
#include "atelier/desktop/window/command_options.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <string_view>

namespace atelier::desktop {
namespace {

constexpr const char* kHelp =
    "Kavel in a window: longitudinal profiles of roads, sewers and water mains.\n"
    "Usage: kavel-bureau [OPTIONS] [DRAWING.dxf ...]\n"
    "\n"
    "Options:\n"
    "  -h,--help                   Print this help message and exit\n"
    "  --version                   Display program version information and exit\n"
    "\n"
    "See kavel --help for the program without a window.\n"
    "exit status: 0 done; 2 bad usage";

constexpr int kBadUsage = 2;

// Reference: QGuiApplication and QApplication, "Supported Command Line Options".
constexpr std::string_view kToolkitFlags[] = {"reverse", "widgetcount"};
constexpr std::string_view kToolkitOptions[] = {"platform",        "platformpluginpath", "platformtheme", "plugin",
                                                "qwindowgeometry", "qwindowicon",        "qwindowtitle",  "session",
                                                "style",           "stylesheet",         "display",       "geometry"};

bool isIn(std::string_view name, const auto& names) { return std::ranges::find(names, name) != std::end(names); }

// How many arguments the toolkit takes from here on; 0 when the first is none of its options.
int takenByToolkit(std::string_view option) {
  std::string_view name = option.substr(option.starts_with("--") ? 2 : 1);
  const bool hasValue = name.find('=') != name.npos;
  name = name.substr(0, name.find('='));
  if (isIn(name, kToolkitFlags)) return 1;
  if (isIn(name, kToolkitOptions)) return hasValue ? 1 : 2;
  return 0;
}

}  // namespace

std::optional<QStringList> drawingsAsked(int argc, char** argv, int& status) {
  QStringList drawings;
  bool optionsEnded = false;
  for (int i = 1; i < argc; ++i) {
    const std::string_view argument = argv[i];
    if (optionsEnded || argument.size() < 2 || !argument.starts_with('-')) {
      drawings << QString::fromLocal8Bit(argv[i]);
    } else if (argument == "--") {
      optionsEnded = true;
    } else if (argument == "-h" || argument == "--help" || argument == "--version") {
      std::puts(argument == "--version" ? "kavel-bureau " KAVEL_VERSION : kHelp);
      status = 0;
      return std::nullopt;
    } else if (const int taken = takenByToolkit(argument)) {
      i += taken - 1;
    } else {
      std::fprintf(stderr, "The following argument was not expected: %s\nRun with --help for more information.\n",
                   argv[i]);
      status = kBadUsage;
      return std::nullopt;
    }
  }
  return drawings;
}

}  // namespace atelier::desktop
