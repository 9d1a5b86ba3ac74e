// WBLOCK COPYBASE COPYCLIP PASTECLIP: parts of a drawing as a drawing of their own.
// The clipboard is a drawing in the folder for temporary files, one for each user, so that programs share it.
#include <unistd.h>

#include <filesystem>

#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/database/objects/clone.h"
#include "atelier/document/document.h"
#include "atelier/dxf/writing/writer.h"
#include "hote/adaptation.h"
#include "hote/dbsymtb.h"

namespace atelier {
namespace {

std::string clipboard() {
  return (std::filesystem::temp_directory_path() / ("kavel-presse-papiers-" + std::to_string(getuid()) + ".dxf"))
      .string();
}

// Makes copies of entities a drawing of their own, moved so that the base point becomes the origin.
void extract(const Command& c, AcDbDatabase& target, const std::vector<AcDbStub*>& sources, const AcGePoint3d& base) {
  const AcGeMatrix3d shift = AcGeMatrix3d::translation(-base.asVector());
  cloneAll(c.document.imp(), sources, *AcDbImpDatabase::of(&target).modelSpace(),
           [&](AcDbEntity& entity) { entity.transformBy(shift); });
}

void writeParts(const Command& c, const std::vector<AcDbStub*>& sources, const AcGePoint3d& base,
                const std::string& path) {
  AcDbDatabase target(true, true);
  extract(c, target, sources, base);
  dxf::save(target, path);
}

std::vector<AcDbStub*> livingOf(const auto& list) {
  std::vector<AcDbStub*> living;
  for (AcDbStub* stub : list)
    if (!stub->is(AcDbStub::kErased)) living.push_back(stub);
  return living;
}

// A block of the drawing, or all of its model space for "*".
void extractBlock(const Command& c, const std::string& name, const std::string& path) {
  const bool all = name == "*";
  AcDbStub* block = all ? c.document.imp().modelSpace() : c.document.imp().tableRecord("BLOCK_RECORD", name);
  if (!block || !block->children) c.fail("Bloc inconnu: " + name);
  AcGePoint3d base;
  if (!all) {
    const AcDbObjectPointer<AcDbBlockTableRecord> record{AcDbObjectId(block)};
    if (record.openStatus() == Acad::eOk) base = record->origin();
  }
  writeParts(c, livingOf(*block->children), base, path);
}

CommandTask wblock(Command& c) {
  const auto given = co_await c.line("\nNom du fichier à écrire: ");
  std::filesystem::path path(trimmed(given.value));
  if (path.empty()) co_return;
  if (!path.has_extension()) path += ".dxf";
  std::error_code error;
  if (std::filesystem::exists(path, error) && c.document.variables().integer("EXPERT", 0) < 2) {
    const auto replace = co_await c.keyword("\nCe fichier existe. Le remplacer? [Oui/Non] <N>: ", "Oui Non _Yes No");
    if (!replace.is("Yes")) co_return;
  }
  const auto block =
      co_await c.line("\nNom du bloc, = pour celui du fichier, * pour tout le dessin <choisir des objets>: ");
  const std::string& name = block.value;
  if (!name.empty()) {
    extractBlock(c, name == "=" ? path.stem().string() : name, path.string());
    co_return;
  }
  const auto base = co_await c.point("\nPoint de base: ");
  const auto chosen = co_await c.objects();
  if (!chosen.given()) co_return;
  writeParts(c, livingOf((*chosen)->list()), base.value, path.string());
  c.change(**chosen, [](AcDbEntity& entity) { entity.erase(); });
}

// With the lower left corner of what is copied as the base point, when none is asked for.
CommandTask copyToClipboard(Command& c, bool asks, bool cuts = false) {
  AcGePoint3d base;
  if (asks) {
    const auto given = co_await c.point("\nPoint de base: ");
    base = given.value;
  }
  const auto chosen = co_await c.objects();
  if (!chosen.given()) co_return;
  const std::vector<AcDbStub*> sources = livingOf((*chosen)->list());
  AcDbExtents all;
  for (AcDbStub* stub : sources) {
    AcDbExtents box;
    const AcDbEntityPointer entity{AcDbObjectId(stub)};
    if (entity.openStatus() == Acad::eOk && entity->getGeomExtents(box) == Acad::eOk) all.addExt(box);
  }
  if (!asks && !adaptation::isEmpty(all)) base = all.minPoint();
  AcDbDatabase target(true, true);
  extract(c, target, sources, base);
  dxf::saveCopy(target, clipboard());
  if (cuts) c.change(**chosen, [](AcDbEntity& entity) { entity.erase(); });
}

CommandTask copyBase(Command& c) { return copyToClipboard(c, true); }
CommandTask copyClip(Command& c) { return copyToClipboard(c, false); }
CommandTask cutClip(Command& c) { return copyToClipboard(c, false, true); }

CommandTask pasteClip(Command& c) {
  AcDbDatabase source(false, true);
  if (source.readDwgFile(toWide(clipboard()).c_str()) != Acad::eOk) c.fail("Le presse-papiers est vide.");
  const auto at = co_await c.point("\nPoint d'insertion: ");
  AcDbStub* space = AcDbImpDatabase::of(&source).modelSpace();
  AcDbStub* owner = c.document.database().currentSpaceId();
  if (!space || !space->children || !owner) co_return;
  const AcGeMatrix3d shift = AcGeMatrix3d::translation(at.value.asVector());
  cloneAll(AcDbImpDatabase::of(&source), livingOf(*space->children), *owner,
           [&](AcDbEntity& entity) { entity.transformBy(shift); });
}

constexpr CommandRow kTable[] = {
    {"WBLOCK", "-WBLOCK W WBLOC -WBLOC", wblock, "Écrit des objets ou un bloc dans un fichier."},
    {"COPYBASE", "COPIEBASE", copyBase, "Copie des objets dans le presse-papiers, avec un point de base."},
    {"COPYCLIP", "COPIERPRESS", copyClip, "Copie des objets dans le presse-papiers."},
    {"CUTCLIP", "COUPERPRESS", cutClip, "Met des objets dans le presse-papiers et les efface."},
    {"PASTECLIP", "COLLERPRESS", pasteClip, "Place ce qui est dans le presse-papiers."},
};

}  // namespace

std::span<const CommandRow> extractCommands() { return kTable; }

}  // namespace atelier
