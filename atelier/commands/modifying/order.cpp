// DRAWORDER and OOPS: what lies above what, and what was erased last.
#include <algorithm>

#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/database/objects/draw_order.h"
#include "atelier/document/document.h"

namespace atelier {
namespace {

CommandTask drawOrder(Command& c) {
  const auto chosen = co_await c.objects();
  if (!chosen.given()) co_return;
  const auto place =
      co_await c.keyword("\nOrdre de tracé [au-DEssus de/au-dessouS de/Premier plan/Arrière-plan] <Arrière-plan>: ",
                         "DEssus desSous Premier Arrière _Above Under Front Back");
  AcDbStub* reference = nullptr;
  if (place.is("Above") || place.is("Under")) {
    const auto given = co_await c.entity("\nObjet de référence: ");
    if (!given.given()) co_return;
    reference = given->id;
  }
  AcDbStub* space = c.document.database().currentSpaceId();
  if (!space) co_return;
  const auto isMoved = [&](const AcDbStub* stub) { return (*chosen)->contains(stub); };
  std::vector<AcDbStub*> order = inDrawOrder(c.document.imp(), *space);
  const auto rest =
      std::stable_partition(order.begin(), order.end(), isMoved);  // the moved ones first, which is the back
  if (place.is("Front")) {
    std::rotate(order.begin(), rest, order.end());
  } else if (reference && !isMoved(reference)) {
    auto at = std::find(rest, order.end(), reference);
    if (at == order.end()) c.fail("L'objet de référence n'est pas dans cet espace.");
    std::rotate(order.begin(), rest, place.is("Above") ? at + 1 : at);
  }
  setDrawOrder(c.document.imp(), *space, order);
}

CommandTask oops(Command& c) {
  int back = 0;
  for (const AcDbObjectId id : c.document.lastErased) {
    AcDbObject* object = nullptr;
    if (!static_cast<AcDbStub*>(id)->is(AcDbStub::kErased) ||
        acdbOpenObject(object, id, AcDb::kForWrite, true) != Acad::eOk)
      continue;
    back += object->erase(false) == Acad::eOk;
    object->close();
  }
  if (back == 0) c.fail("REPRISE: rien n'a été effacé.");
  c.document.lastErased.clear();
  co_return;
}

constexpr CommandRow kTable[] = {
    {"DRAWORDER", "DR ORDRETRACE", drawOrder, "Met des objets au-dessus ou au-dessous d'autres."},
    {"OOPS", "REPRISE", oops, "Rétablit ce que la dernière commande EFFACER a effacé."},
};

}  // namespace

std::span<const CommandRow> orderCommands() { return kTable; }

}  // namespace atelier
