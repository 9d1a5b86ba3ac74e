// Times opening and saving a drawing beside md5sum of the same file and peers, each in a process of its own. Peers that are
// not installed are left out.
// Usage: dxf_bench DRAWING.dxf [rounds [alone]]: best and median of the rounds; "alone" leaves the peers out. The drawing is
// written to DRAWING.dxf.banc, which is removed again.
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
#include <vector>

#include "atelier/database/objects/imp_database.h"
#include "atelier/dxf/reading/reader.h"
#include "atelier/dxf/writing/writer.h"

namespace {

enum class Work { open, list, save, change };

// Lists the layer of the drawing's first entity: reads the layer of every entity, and the place of those on it.
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
// This library's reader stores nothing here: only reading is measured.
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

// The times of one piece of work in every round, and the most memory it took.
struct Cost {
  const char* name;
  std::function<void()> work;
  std::vector<double> seconds{};
  long kilobytes = 0;
  bool failed = false;

  double best() const { return *std::min_element(seconds.begin(), seconds.end()); }
  double median() const {
    std::vector<double> sorted = seconds;
    std::sort(sorted.begin(), sorted.end());
    return sorted[sorted.size() / 2];
  }
};

void run(Cost& cost) {
  const auto start = std::chrono::steady_clock::now();
  const pid_t child = fork();
  if (child == 0) {
    cost.work();
    std::_Exit(0);
  }
  int status = 0;
  rusage usage{};
  wait4(child, &status, 0, &usage);
  cost.failed |= status != 0;
  cost.seconds.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
  cost.kilobytes = std::max(cost.kilobytes, usage.ru_maxrss);
}

// The works of a group take turns, so that a slow phase of the machine concerns all of them.
void measure(std::vector<Cost>& group, int rounds) {
  for (int i = 0; i < rounds; ++i)
    for (Cost& cost : group) run(cost);
}

void print(const Cost& cost, const Cost& floor, double size) {
  std::printf("%-24s %8.3f s  %6.2f x md5sum  median %8.3f s  %6.2f x  %5.2f bytes/byte%s\n", cost.name, cost.best(),
              cost.best() / floor.best(), cost.median(), cost.median() / floor.median(),
              static_cast<double>(cost.kilobytes) * 1024 / size, cost.failed ? "  FAILED" : "");
  std::fflush(stdout);
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 2) return std::fprintf(stderr, "usage: dxf_bench DRAWING.dxf [rounds [alone]]\n"), 2;
  const std::string file = arguments[1];
  const int rounds = count > 2 ? std::max(1, std::atoi(arguments[2])) : 5;
  const double size = static_cast<double>(std::filesystem::file_size(file));
  std::vector<Cost> kavel = {
      {"md5sum",
       [&] {
         program({"md5sum", file});
       }},
      {"kavel open", [&] { ours(file, Work::open); }},
      {"kavel open, list layer", [&] { ours(file, Work::list); }},
      {"kavel open, save", [&] { ours(file, Work::save); }},
      {"kavel 1 % changed", [&] { ours(file, Work::change); }},
  };
  measure(kavel, rounds);
  for (const Cost& cost : kavel) print(cost, kavel[0], size);
  if (count > 3) return std::filesystem::remove(file + ".banc"), 0;
  std::vector<Cost> peers;
#ifdef KAVEL_HAS_DIME
  peers.push_back({"libdime read", [&] { dime(file, Work::open); }});
  peers.push_back({"libdime read, write", [&] { dime(file, Work::save); }});
#else
  std::printf("libdime: not installed (Debian package libdime-dev)\n");
#endif
#ifdef KAVEL_HAS_DXFLIB
  peers.push_back({"dxflib read", [&] { dxflib(file); }});
#else
  std::printf("dxflib: not installed (Debian package libdxflib-dev)\n");
#endif
  peers.push_back({"ezdxf read", [&] { ezdxf(file, Work::open); }});
  peers.push_back({"ezdxf read, write", [&] { ezdxf(file, Work::save); }});
  measure(peers, 1);
  for (const Cost& cost : peers) print(cost, kavel[0], size);
  std::filesystem::remove(file + ".banc");
}
