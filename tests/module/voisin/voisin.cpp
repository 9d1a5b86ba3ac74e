// The sibling module of the tests: a shared object under the sibling's name, which knows the ground of profile 7042.
// Built by itself; a test loads it.
#include <cstdint>

namespace {

struct Record {
  char head[24];
  double ends[4];
  char tail[8];
};
static_assert(sizeof(Record) == 64);

const Record records[] = {{{}, {0, 10, 10, 10}, {}}, {{}, {99, 99, 20, 10}, {}}, {{}, {99, 99, 30, 10}, {}}};

}  // namespace

extern "C" bool getPointsProfils(std::int32_t profile, std::int32_t* count, const void** table) {
  if (profile != 7042 && profile != 7043) return false;
  *count = profile == 7042 ? 3 : 0;
  *table = records;
  return true;
}
