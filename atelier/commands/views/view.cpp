// ZOOM PAN REGEN REDRAW -VIEW UCS: the part of the drawing that is shown.
// A view is a centre and a height. Even without a window it decides how near a pick must be.
#include "atelier/base/interruption.h"
#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/document/document.h"
#include "hote/adaptation.h"

namespace atelier {
namespace {

void show(const Command& c, const AcGePoint3d& low, const AcGePoint3d& high) {
  const Document::Pointing& screen = c.document.pointing;
  const double height = std::max(high.y - low.y, (high.x - low.x) * screen.screenHeight / screen.screenWidth);
  if (!(height > 0) || !std::isfinite(height)) return;
  c.document.view().centre = low + (high - low) * 0.5;
  c.document.view().height = height;
}

AcDbExtents extentsOf(const Command& c, const SelectionSet& set) {
  AcDbExtents box;
  for (AcDbStub* stub : set.list()) {
    checkInterruption();
    const AcDbEntity* entity =
        stub->is(AcDbStub::kErased) ? nullptr : AcDbEntity::cast(&c.document.imp().object(*stub));
    AcDbExtents part;
    if (entity && entity->getGeomExtents(part) == Acad::eOk) box.addExt(part);
  }
  return box;
}

void showExtents(const Command& c, const AcDbExtents& box) {
  if (adaptation::isEmpty(box)) return;
  show(c, box.minPoint(), box.maxPoint());
  c.document.view().height *= kExtentsMargin;
}

// "2x" and "2" enlarge, "0.5x" reduces.
std::optional<double> factorOf(std::string text) {
  for (const char* ending : {"XP", "X"})
    if (upperCase(text).ends_with(ending)) {
      text.resize(text.size() - std::string_view(ending).size());
      break;
    }
  const auto factor = parseReal(text);
  return factor && *factor > 0 ? factor : std::nullopt;
}

CommandTask zoom(Command& c) {
  const View before = c.document.view();
  const auto first = co_await c.pointOrWord(
      "\nCoin de la fenêtre, facteur ou [Tout/Centre/ETendu/Précédent/ECHelle/Fenêtre/OBjet]: ",
      "Tout Centre Dynamique ETendu Précédent ECHelle Fenêtre OBjet _All Center Dynamic Extents Previous "
      "Scale Window Object");
  if (first.is("All") || first.is("Extents")) {
    showExtents(c, c.document.spatialIndex().extents(c.document.database().currentSpaceId()));
  } else if (first.is("Previous")) {
    c.document.view() = c.document.previousView;
  } else if (first.is("Center")) {
    const auto centre = co_await c.pointOrEnter("\nCentre: ");
    const std::string prompt = "\nHauteur <" + realText(before.height) + ">: ";
    const auto height = co_await c.distanceOrEnter(prompt);
    c.document.view() = {centre.valueOr(before.centre), height.valueOr(before.height)};
  } else if (first.is("Object")) {
    const auto chosen = co_await c.objects();
    if (chosen.given()) showExtents(c, extentsOf(c, **chosen));
  } else if (first.is("Window") || first.given()) {
    AcGePoint3d corner = first.valueOr({});
    if (!first.given()) {
      const auto given = co_await c.point("\nPremier coin: ");
      corner = given.value;
    }
    const auto opposite = co_await c.corner("\nCoin opposé: ", corner);
    const AcGePoint3d &a = corner, &b = opposite.value;
    show(c, {std::min(a.x, b.x), std::min(a.y, b.y), 0}, {std::max(a.x, b.x), std::max(a.y, b.y), 0});
  } else if (first.isKeyword() && !first.is("Dynamic")) {
    std::string text = first.keyword();
    if (first.is("Scale")) {
      const auto given = co_await c.word("\nFacteur d'échelle (nX): ");
      text = given.value;
    }
    const auto factor = factorOf(text);
    if (!factor) c.fail("Facteur de zoom non valide: " + text);
    c.document.view().height /= *factor;
  }
  c.document.previousView = before;
}

CommandTask pan(Command& c) {
  const auto base = co_await c.pointOrEnter("\nPoint de base: ");
  if (!base.given()) co_return;
  const auto to = co_await c.pointOrEnter("\nDeuxième point: ", *base);
  if (to.given()) c.document.view().centre += *base - *to;
}

// Redraws: vectors drawn on the screen only are removed.
CommandTask regen(Command& c) {
  c.document.transients().clearVectors();
  co_return;
}

CommandTask view(Command& c) {
  const auto option = co_await c.keyword("\nOption [?/SUpprimer/REstaurer/ENregistrer]: ",
                                         "? SUpprimer REstaurer ENregistrer DEssus _? Delete Restore Save Top");
  if (!option.isKeyword() || option.is("Top")) co_return;  // there is no other direction
  auto& views = c.document.namedViews;
  if (option.is("?")) {
    for (const auto& [name, kept] : views) c.print("\n  " + name);
    co_return;
  }
  const auto given = co_await c.line("\nNom de la vue: ");
  const std::string name = upperCase(trimmed(given.value));
  if (option.is("Save")) views[name] = c.document.view();
  else if (!views.contains(name)) c.fail("Vue inconnue: " + given.value);
  else if (option.is("Restore")) c.document.view() = views[name];
  else views.erase(name);
}

CommandTask ucs(Command& c) {
  const auto option =
      co_await c.keyword("\nOption [Général/Précédent] <Général>: ", "Général Précédent _World Previous");
  if (option.isKeyword() && !option.is("World") && !option.is("Previous"))
    c.fail("SCU: seul le repère général est offert.");
}

constexpr CommandRow kTable[] = {
    {"ZOOM", "Z", zoom, "Règle la vue: tout, étendu, fenêtre, échelle.", true},
    {"PAN", "-PAN P PANORAMIQUE", pan, "Déplace la vue.", true},
    {"REGEN", "RE REGENALL REGENERER REGENT", regen, "Régénère le dessin.", true},
    {"REDRAW", "R REDRAWALL REDESSIN", regen, "Redessine l'écran.", true},
    {"-VIEW", "VIEW VUE -VUE", view, "Garde et rappelle des vues, pour la session.", true},
    {"UCS", "SCU", ucs, "Repère: le général seulement."},
};

}  // namespace

std::span<const CommandRow> viewCommands() { return kTable; }

}  // namespace atelier
