// Times opening and saving a drawing beside md5sum of the same file and peers, each in a process of its own. Peers that are
// not installed are left out.
// Usage: dxf_bench DRAWING.dxf [runs]. The drawing is written to DRAWING.dxf.banc, which is removed again.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#ifdef KAVEL_HAS_DIME
#include <dime/Input.h>
#include <dime/Model.h>
#include <dime/Output.h>
#endif
#ifdef KAVEL_HAS_DXFLIB
#include <dxflib/dl_creationadapter.h>
#include <dxflib/dl_dxf.h>
#endif

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>

#include "atelier/database/imp_database.h"
#include "atelier/dxf/reader.h"
#include "atelier/dxf/writer.h"

namespace {

enum class Work { open, list, save, change };

// What stands on the layer of the drawing's first entity: every entity is asked for its layer, those on it for their place.
void listLayer(AcDbImpDatabase& database) {
  AcDbObjectId layer;
  double sum = 0;
  for (const AcDbStub& stub : database.stubs()) {
    if (!stub.is(AcDbStub::kEntity)) continue;
    const AcDbEntityPointer entity(atelier::idOf(&stub));
    if (entity.openStatus() != Acad::eOk) continue;
    if (layer.isNull()) layer = entity->layerId();
    AcDbExtents box;
    if (entity->layerId() == layer && entity->getGeomExtents(box) == Acad::eOk) sum += box.minPoint().x;
  }
  if (sum == 0) std::_Exit(1);
}

void ours(const std::string& file, Work work) {
  atelier::dxf::provideDrawingReader();
  AcDbDatabase database(false);
  atelier::dxf::readFile(database, file);
  if (work == Work::change) {
    std::size_t number = 0;
    for (const AcDbStub& stub : AcDbImpDatabase::of(&database).stubs()) {
      if (!stub.is(AcDbStub::kEntity) || ++number % 100 != 0) continue;
      const AcDbEntityPointer entity(atelier::idOf(&stub), AcDb::kForWrite);
      if (entity.openStatus() == Acad::eOk) entity->setColorIndex(3);
    }
  }
  if (work == Work::list) listLayer(AcDbImpDatabase::of(&database));
  if (work == Work::save || work == Work::change) atelier::dxf::save(database, file + ".banc");
}

#ifdef KAVEL_HAS_DXFLIB
// It stores nothing: what is measured is reading alone.
void dxflib(const std::string& file) {
  DL_CreationAdapter nothing;
  DL_Dxf reader;
  if (!reader.in(file, &nothing)) std::_Exit(1);
}
#endif

#ifdef KAVEL_HAS_DIME
void dime(const std::string& file, Work work) {
  dimeInput in;
  dimeModel model;
  if (!in.setFile(file.c_str()) || !model.read(&in)) std::_Exit(1);
  if (work == Work::open) return;
  dimeOutput out;
  if (!out.setFilename((file + ".banc").c_str()) || !model.write(&out)) std::_Exit(1);
}
#endif

void program(std::initializer_list<std::string> words) {
  std::vector<char*> arguments;
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  if (!std::freopen("/dev/null", "w", stdout)) std::_Exit(1);
  execvp(arguments[0], arguments.data());
  std::_Exit(127);
}

void ezdxf(const std::string& file, Work work) {
  const std::string write = work == Work::open ? "" : "; d.saveas(r'" + file + ".banc')";
  program({"/usr/bin/python3", "-c", "import ezdxf; d = ezdxf.readfile(r'" + file + "')" + write});
}

struct Cost {
  double seconds = 1e9;
  long kilobytes = 0;
  bool failed = false;
};

Cost measured(const std::function<void()>& work, int runs) {
  Cost best;
  for (int i = 0; i < runs; ++i) {
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0) {
      work();
      std::_Exit(0);
    }
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    best.failed |= status != 0;
    best.seconds =
        std::min(best.seconds, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    best.kilobytes = std::max(best.kilobytes, usage.ru_maxrss);
  }
  return best;
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 2) return std::fprintf(stderr, "usage: dxf_bench DRAWING.dxf [runs]\n"), 2;
  const std::string file = arguments[1];
  const int runs = count > 2 ? std::max(1, std::atoi(arguments[2])) : 5;
  const double size = static_cast<double>(std::filesystem::file_size(file));
  const Cost sum = measured([&] { program({"md5sum", file}); }, runs);
  std::printf("%-24s %8.3f s\n", "md5sum", sum.seconds);
  const auto row = [&](const char* name, const std::function<void()>& work, int times) {
    const Cost cost = measured(work, times);
    std::printf("%-24s %8.3f s  %6.2f x md5sum  %5.2f bytes/byte%s\n", name, cost.seconds, cost.seconds / sum.seconds,
                static_cast<double>(cost.kilobytes) * 1024 / size, cost.failed ? "  FAILED" : "");
    std::fflush(stdout);
  };
  row(
      "kavel open", [&] { ours(file, Work::open); }, runs);
  row(
      "kavel open, list layer", [&] { ours(file, Work::list); }, runs);
  row(
      "kavel open, save", [&] { ours(file, Work::save); }, runs);
  row(
      "kavel 1 % changed", [&] { ours(file, Work::change); }, runs);
#ifdef KAVEL_HAS_DIME
  row(
      "libdime read", [&] { dime(file, Work::open); }, 2);
  row(
      "libdime read, write", [&] { dime(file, Work::save); }, 2);
#else
  std::printf("libdime: not installed (Debian package libdime-dev)\n");
#endif
#ifdef KAVEL_HAS_DXFLIB
  row(
      "dxflib read", [&] { dxflib(file); }, 2);
#else
  std::printf("dxflib: not installed (Debian package libdxflib-dev)\n");
#endif
  row(
      "ezdxf read", [&] { ezdxf(file, Work::open); }, 1);
  row(
      "ezdxf read, write", [&] { ezdxf(file, Work::save); }, 1);
  std::filesystem::remove(file + ".banc");
}
