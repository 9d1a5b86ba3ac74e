// Failures while Cairo writes are kept until it has returned: no exception may cross it.
#include "atelier/render/sheets/atomic_file.h"

#include "atelier/base/error.h"
#include "atelier/base/interruption.h"
#include "atelier/render/shapes/plot_error.h"

namespace atelier::render {
namespace {

dxf::ReplacedFile opened(const std::string& path) try {
  return dxf::ReplacedFile(path, false);
} catch (const Error& error) {
  throw PlotError(error.what());
}

}  // namespace

AtomicFile::AtomicFile(const std::string& path) : file_(opened(path)) {}

bool AtomicFile::write(const void* bytes, std::size_t count) {
  try {
    checkInterruption();  // Cairo does most of its work while it writes
    if (failure_.empty()) file_.write({static_cast<const char*>(bytes), count});
  } catch (const Error& error) {
    failure_ = error.what();
  }
  return failure_.empty();
}

void AtomicFile::commit() {
  checkInterruption();
  if (!failure_.empty()) throw PlotError(failure_);
  try {
    file_.keep();
  } catch (const Error& error) {
    throw PlotError(error.what());
  }
}

}  // namespace atelier::render
