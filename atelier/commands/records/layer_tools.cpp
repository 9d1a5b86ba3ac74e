// LAYOFF LAYFRZ LAYLCK LAYISO LAYMCUR ...: states of layers by picking objects, and objects from layer to layer.
// Names may be given in place of picks where programs do so.
#include <set>

#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/commands/records/command_records.h"
#include "atelier/document/document.h"
#include "hote/dbsymtb.h"

namespace atelier {
namespace {

using Layer = AcDbLayerTableRecord;

void eachLayer(const Command& c, const std::function<void(Layer&)>& work) {
  for (AcDbStub* stub : *c.document.imp().table("LAYER")->children) {
    if (stub->is(AcDbStub::kErased)) continue;
    const AcDbObjectPointer<Layer> layer(AcDbObjectId(stub), AcDb::kForWrite);
    if (layer.openStatus() == Acad::eOk) work(*layer);
  }
}

AcDbObjectId layerOf(AcDbObjectId entity) {
  const AcDbEntityPointer opened(entity);
  return opened.openStatus() == Acad::eOk ? opened->layerId() : AcDbObjectId();
}

std::string nameOf(const Command& c, AcDbObjectId layer) {
  return c.document.imp().recordName(*static_cast<AcDbStub*>(layer));
}

AcDbObjectId layerNamed(const Command& c, const std::string& name) {
  AcDbStub* stub = c.document.imp().tableRecord("LAYER", name);
  if (!stub) c.fail("Calque inconnu: " + name);
  return AcDbObjectId(stub);
}

void setOff(Layer& layer) { layer.setIsOff(true); }
void setFrozen(Layer& layer) { layer.setIsFrozen(true); }
void setLocked(Layer& layer) { layer.setIsLocked(true); }
void setUnlocked(Layer& layer) { layer.setIsLocked(false); }
void setOn(Layer& layer) { layer.setIsOff(false); }
void setThawed(Layer& layer) { layer.setIsFrozen(false); }

struct State {
  std::string_view command;
  void (*set)(Layer&);
  bool sparesCurrent;  // the current layer can't have it
};
constexpr State kStates[] = {
    {"LAYOFF", setOff, false},        {"LAYFRZ", setFrozen, true},   {"LAYLCK", setLocked, false},
    {"LAYULK", setUnlocked, false},   {"LAYON", setOn, false},       {"LAYTHW", setThawed, false},
    {"CALINACT", setOff, false},      {"CALGELER", setFrozen, true}, {"CALVER", setLocked, false},
    {"CALDEVER", setUnlocked, false}, {"CALACT", setOn, false},      {"CALLIB", setThawed, false}};

const State& stateOf(const Command& c) { return *std::ranges::find(kStates, commandName(c.typed), &State::command); }

// The layers of picked objects, one after the other.
CommandTask pickedLayers(Command& c) {
  const State& state = stateOf(c);
  for (;;) {
    const auto picked = co_await c.entity("\nObjet du calque <fin>: ");
    if (!picked.given()) co_return;
    const AcDbObjectId id = layerOf(picked->id);
    if (state.sparesCurrent && id == c.document.database().clayer())
      c.fail("Le calque courant ne peut pas être gelé: " + nameOf(c, id));
    const AcDbObjectPointer<Layer> layer(id, AcDb::kForWrite);
    if (layer.openStatus() == Acad::eOk) state.set(*layer);
    c.print("\nCalque " + nameOf(c, id));
  }
}

CommandTask allLayers(Command& c) {
  eachLayer(c, stateOf(c).set);
  co_return;
}

std::set<AcDbObjectId> layersOf(const SelectionSet& set) {
  std::set<AcDbObjectId> layers;
  for (AcDbStub* stub : set.list())
    if (!stub->is(AcDbStub::kErased)) layers.insert(layerOf(AcDbObjectId(stub)));
  return layers;
}

// LAYISO: the layers of the objects alone stay on. LAYUNISO gives all those back that it took.
CommandTask isolate(Command& c) {
  const auto chosen = co_await c.objects();
  if (!chosen.given()) co_return;
  const std::set<AcDbObjectId> kept = layersOf(**chosen);
  c.document.isolatedFrom.clear();
  eachLayer(c, [&](Layer& layer) {
    if (kept.contains(layer.objectId()) || layer.isOff()) return;
    layer.setIsOff(true);
    c.document.isolatedFrom.push_back(static_cast<AcDbStub*>(layer.objectId())->handle);
  });
  if (!kept.contains(c.document.database().clayer())) c.document.database().setClayer(*kept.begin());
}

CommandTask endIsolation(Command& c) {
  for (const std::uint64_t handle : c.document.isolatedFrom) {
    AcDbStub* stub = c.document.imp().stubOf(handle);
    if (!stub || stub->is(AcDbStub::kErased)) continue;
    const AcDbObjectPointer<Layer> layer(AcDbObjectId(stub), AcDb::kForWrite);
    if (layer.openStatus() == Acad::eOk) layer->setIsOff(false);
  }
  c.document.isolatedFrom.clear();
  co_return;
}

CommandTask makeCurrent(Command& c) {
  const auto picked = co_await c.entity("\nObjet dont le calque devient courant: ");
  if (!picked.given()) co_return;
  const AcDbObjectId id = layerOf(picked->id);
  if (!c.document.variables().set("CLAYER", nameOf(c, id))) c.fail("Ce calque ne peut pas devenir courant.");
  c.print("\nCalque courant: " + nameOf(c, id));
}

void moveTo(const Command& c, const SelectionSet& set, AcDbObjectId layer) {
  c.change(set, [&](AcDbEntity& entity) { entity.setLayer(layer); });
}

// The layer of an object, or of a name; none after Enter.
CommandTask askLayer(Command& c, AcDbObjectId& layer) {
  const auto like = co_await c.entity("\nObjet du calque d'arrivée ou [Nom]: ", "Nom _Name");
  if (like.is("Name")) {
    const auto name = co_await c.line("\nNom du calque: ");
    layer = layerNamed(c, name.value);
  } else if (like.given()) {
    layer = layerOf(like->id);
  }
}

// LAYMCH: objects onto the layer of another one, or of a name. LAYCUR: onto the current layer.
CommandTask matchLayer(Command& c) {
  const auto chosen = co_await c.objects();
  if (!chosen.given()) co_return;
  if (commandName(c.typed) == "LAYCUR" || commandName(c.typed) == "CALCOUR") {
    moveTo(c, **chosen, c.document.database().clayer());
    co_return;
  }
  AcDbObjectId layer;
  co_await askLayer(c, layer);
  if (layer.isNull()) co_return;
  moveTo(c, **chosen, layer);
}

// COPYTOLAYER: copies on the layer of another object, or of a name, displaced when two points are given.
CommandTask copyToLayer(Command& c) {
  const auto chosen = co_await c.objects();
  if (!chosen.given()) co_return;
  AcDbObjectId layer;
  co_await askLayer(c, layer);
  if (layer.isNull()) co_return;
  AcGeVector3d displacement;
  if (const auto base = co_await c.pointOrEnter("\nPoint de base <en place>: "); base.given()) {
    const auto to = co_await c.point("\nDeuxième point: ", *base);
    displacement = to.value - *base;
  }
  AcDbStub* space = c.document.database().currentSpaceId();
  const std::size_t before = space->children->size();
  c.copies(**chosen, AcGeMatrix3d::translation(displacement));
  SelectionSet made;
  for (std::size_t i = before; i < space->children->size(); ++i) made.add(AcDbObjectId((*space->children)[i]));
  moveTo(c, made, layer);
}

constexpr CommandRow kTable[] = {
    {"LAYOFF", "CALINACT", pickedLayers, "Rend inactifs les calques d'objets choisis."},
    {"LAYFRZ", "CALGELER", pickedLayers, "Gèle les calques d'objets choisis."},
    {"LAYLCK", "CALVER", pickedLayers, "Verrouille le calque d'un objet choisi."},
    {"LAYULK", "CALDEVER", pickedLayers, "Déverrouille le calque d'un objet choisi."},
    {"LAYON", "CALACT", allLayers, "Rend actifs tous les calques."},
    {"LAYTHW", "CALLIB", allLayers, "Libère tous les calques."},
    {"LAYISO", "CALISO", isolate, "Rend inactifs les calques hors ceux des objets choisis."},
    {"LAYUNISO", "CALDESISO", endIsolation, "Rend actifs les calques que LAYISO a rendus inactifs."},
    {"LAYMCUR", "AI_MOLC CALDEFCOUR", makeCurrent, "Rend courant le calque d'un objet."},
    {"LAYMCH", "-LAYMCH CALCORRESP", matchLayer, "Met des objets sur le calque d'un autre."},
    {"LAYCUR", "CALCOUR", matchLayer, "Met des objets sur le calque courant."},
    {"COPYTOLAYER", "COPIECALQUE", copyToLayer, "Copie des objets sur un autre calque."},
};

}  // namespace

std::span<const CommandRow> layerToolCommands() { return kTable; }

}  // namespace atelier
