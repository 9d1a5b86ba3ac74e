// Saving: atomic, with a backup, and without harm when it fails.
// Limits and permissions are the system's own; nothing is simulated.
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/dxf/drawing_files.h"

using namespace drawing;

namespace {

const fs::path& sample() {
  static const fs::path file = [] {
    for (const fs::path& f : generated())
      if (f.filename() == "R2010.dxf") return f;
    return fs::path();
  }();
  return file;
}

TEST(Save, whatStoodThereBecomesTheBackup) {
  const Folder folder;
  const fs::path file = folder.path / "plan.dxf";
  fs::copy_file(sample(), file);
  chmod(file.c_str(), 0640);
  const std::string before = bytesOf(file);
  Opened drawing(file);
  append(drawing, new AcDbLine({0, 0, 0}, {1, 1, 0}));
  atelier::dxf::save(drawing.db, file.string());
  EXPECT_EQ(bytesOf(folder.path / "plan.bak"), before);
  EXPECT_NE(bytesOf(file), before);
  struct stat info {};
  stat(file.c_str(), &info);
  EXPECT_EQ(info.st_mode & 0777, 0640u);
  // Saved again after a further change: the first result is the backup.
  const std::string first = bytesOf(file);
  append(drawing, new AcDbLine({0, 0, 0}, {2, 1, 0}));
  atelier::dxf::save(drawing.db, file.string());
  EXPECT_EQ(bytesOf(folder.path / "plan.bak"), first);
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path), fs::directory_iterator()), 2);
}

TEST(Save, aLinkKeepsLeadingToItsFile) {
  const Folder folder;
  fs::copy_file(sample(), folder.path / "vrai.dxf");
  fs::create_symlink("vrai.dxf", folder.path / "lien.dxf");
  Opened drawing(folder.path / "lien.dxf");
  append(drawing, new AcDbLine({0, 0, 0}, {1, 1, 0}));
  atelier::dxf::save(drawing.db, (folder.path / "lien.dxf").string());
  EXPECT_TRUE(fs::is_symlink(folder.path / "lien.dxf"));
  EXPECT_NE(bytesOf(folder.path / "vrai.dxf"), bytesOf(sample()));
}

// A failure leaves the folder as it was and says why.
void expectFailure(const fs::path& target, const std::string& reason) {
  Opened drawing(sample());
  append(drawing, new AcDbLine({0, 0, 0}, {1, 1, 0}));
  try {
    atelier::dxf::save(drawing.db, target.string());
    ADD_FAILURE() << "saved to " << target;
  } catch (const atelier::FileError& error) {
    EXPECT_NE(std::string(error.what()).find(target.string()), std::string::npos) << error.what();
    EXPECT_NE(std::string(error.what()).find(reason), std::string::npos) << error.what();
  }
  EXPECT_TRUE(drawing.imp.modified);
}

TEST(Save, failuresLeaveTheFileAsItWas) {
  const Folder folder;
  const fs::path file = folder.path / "plan.dxf";
  fs::copy_file(sample(), file);
  expectFailure(folder.path / "absent" / "plan.dxf", "écriture impossible");
  expectFailure(folder.path, "écriture impossible");
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit small{4096, before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &small);
  expectFailure(file, "écriture interrompue");
  setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_EQ(bytesOf(file), bytesOf(sample()));
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path), fs::directory_iterator()), 1);
}

TEST(Save, aDeviceIsNoDrawing) { expectFailure("/dev/full", "écriture impossible"); }

TEST(Save, aMissingFileIsNamed) {
  Opened drawing;
  EXPECT_THROW(atelier::dxf::readFile(drawing.db, "/absent.dxf"), atelier::FileError);
  EXPECT_THROW(atelier::dxf::readFile(drawing.db, "/"), atelier::FileError);
}

}  // namespace
