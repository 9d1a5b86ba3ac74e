// The plug-ins as libraries: loaded, registered with the host and called from AutoLISP.
// This program has no room of theirs; what they need of the host they find in it.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include "atelier/application/open_drawing.h"
#include "atelier/lisp/evaluator/printer.h"
#include "atelier/plugin/published.h"
#include "hote/acrx.h"

namespace {

// A library's entry point as the host takes it: one function for each place.
template <int PLACE>
struct Application {
  static inline AcRx::AppRetCode (*entry)(AcRx::AppMsgCode, void*) = nullptr;
  static int receive(int message, void* id) { return entry(static_cast<AcRx::AppMsgCode>(message), id); }
};

// Null, with a failure, when a name of the host is missing or the library lacks one of its own.
void* load(const char* path) {
  void* library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
  EXPECT_NE(library, nullptr) << dlerror();
  return library;
}

template <int PLACE>
void registerLibrary(const char* path) {
  void* library = load(path);
  ASSERT_NE(library, nullptr);
  const auto version = reinterpret_cast<int (*)()>(dlsym(library, "acrxGetApiVersion"));
  ASSERT_NE(version, nullptr);
  EXPECT_GT(version(), 0);
  Application<PLACE>::entry = reinterpret_cast<decltype(Application<PLACE>::entry)>(dlsym(library, "acrxEntryPoint"));
  ASSERT_NE(Application<PLACE>::entry, nullptr);
  atelier::registerApplication(&Application<PLACE>::receive);
}

std::string eval(atelier::Document& document, std::string_view lisp) {
  document.makeCurrent();
  const std::string printed = atelier::lisp::prin1(document.interpreter().evaluate(lisp));
  document.finishCommand();
  return printed;
}

TEST(Libraries, AreLoadedByAHostThatHasNoneOfTheirRooms) {
  atelier::setStrictHandlers(true);
  registerLibrary<0>(KAVEL_ARX);
  registerLibrary<1>(ETUDES_ARX);
  if (HasFatalFailure()) return;
  for (int opened = 0; opened < 2; ++opened) {
    atelier::OpenDrawing drawing(nullptr, "");
    eval(drawing, "(pl_text \"C\" '(10.0 130.0 0.0) 2.5 0.0 \"Regard R1\")");
    EXPECT_EQ(eval(drawing, "(cdr (assoc 1 (entget (entlast))))"), "\"Regard R1\"");
    EXPECT_EQ(eval(drawing, "(caar (et_aide))"), "\"et_aide\"");
    // A line and its extended data go through the host's classes.
    EXPECT_EQ(eval(drawing, "(progn (pl_li '(0.0 0.0 0.0) '(3.0 4.0 0.0)) (cdr (assoc 11 (entget (entlast)))))"),
              "(3.0 4.0 0.0)");
    EXPECT_EQ(
        eval(drawing, "(progn (regapp \"PLV2_DATA\") (plsxd (entlast) \"ECHV\" 10.0) (plgxd (entlast) \"ECHV\"))"),
        "10.0");
  }
}

// Functions that the libraries have for themselves: two applications may be built from the same rooms.
TEST(Libraries, KeepTheirOwnFunctionsInside) {
  const struct {
    const char *path, *function;
  } rows[] = {{KAVEL_ARX, "_ZN3plv16publierFonctionsEv"}, {ETUDES_ARX, "_ZN3etu7publierEv"}};
  for (const auto& row : rows) {
    void* library = load(row.path);
    ASSERT_NE(library, nullptr);
    EXPECT_EQ(dlsym(library, row.function), nullptr) << row.function;
  }
}

}  // namespace
