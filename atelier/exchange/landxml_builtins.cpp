// landxml-lire and landxml-ecrire: LandXML as plain lists.
// An alignment is ((nom . "A") (origine . 0.0) (terrains ground ...) (projets project ...)), a ground
// ((nom . "TN") (etat . "existing") (troncons ((station altitude) ...) ...)), a project line ((nom . "P") (sommets vertex
// ...)). An alignment that is written may have (plan (x y bulge) ...). A vertex is (station altitude), followed by "P" and a length, "U" and two lengths, or "C", a radius and an arc.
#include <array>
#include <filesystem>

#include "atelier/base/error.h"
#include "atelier/exchange/exchange.h"
#include "atelier/exchange/landxml.h"
#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/evaluator/root.h"

namespace atelier::exchange {
namespace {

using lisp::Arguments;
using lisp::Interpreter;
using lisp::Items;
using lisp::Value;
using lisp::ValueStack;
using Curve = Vertex::Curve;

// --- to lists

Value keyed(Interpreter& in, const char* key, Value value) { return in.cons(in.symbol(key), value); }

template <class Item, class Make>
Value listOf(Interpreter& in, const std::vector<Item>& items, Make make) {
  ValueStack stack(in);
  for (const Item& item : items) stack.push(make(item));
  return stack.list();
}

Value pointValue(Interpreter& in, const StationLevel& at) { return in.point(at.station, at.level); }

Value vertexValue(Interpreter& in, const Vertex& v) {
  const Value station = Value::real(v.at.station), level = Value::real(v.at.level), length = Value::real(v.length);
  switch (v.curve) {
    case Curve::none: break;
    case Curve::parabola: return in.list({station, level, in.string("P"), length});
    case Curve::unsymmetric: return in.list({station, level, in.string("U"), length, Value::real(v.lengthOut)});
    case Curve::circle: return in.list({station, level, in.string("C"), Value::real(v.radius), length});
  }
  return in.list({station, level});
}

Value groundValue(Interpreter& in, const Ground& ground) {
  const Value pieces = listOf(in, ground.pieces, [&](const auto& piece) {
    return listOf(in, piece, [&](const StationLevel& at) { return pointValue(in, at); });
  });
  return in.list({keyed(in, "NOM", in.string(ground.name)), keyed(in, "ETAT", in.string(ground.state)),
                  keyed(in, "TRONCONS", pieces)});
}

Value projectValue(Interpreter& in, const Project& project) {
  return in.list(
      {keyed(in, "NOM", in.string(project.name)), keyed(in, "NU", project.bare ? in.symbol("T") : lisp::nil),
       keyed(in, "SOMMETS", listOf(in, project.vertices, [&](const Vertex& v) { return vertexValue(in, v); }))});
}

Value alignmentValue(Interpreter& in, const Alignment& a) {
  return in.list({keyed(in, "NOM", in.string(a.name)), keyed(in, "ORIGINE", Value::real(a.start)),
                  keyed(in, "TERRAINS", listOf(in, a.grounds, [&](const Ground& g) { return groundValue(in, g); })),
                  keyed(in, "PROJETS", listOf(in, a.projects, [&](const Project& p) { return projectValue(in, p); }))});
}

Value landXmlRead(Interpreter& in, Arguments arguments) {
  const std::string path(lisp::stringArgument(in, arguments[0]));
  LandXml file;
  try {
    file = readLandXml(in.search().find(path).value_or(path));
  } catch (const Error& error) {
    in.fail(error.what());
  }
  return in.list(
      {keyed(in, "METRES", Value::real(file.metres)),
       keyed(in, "AVERTISSEMENTS", listOf(in, file.warnings, [&](const std::string& w) { return in.string(w); })),
       keyed(in, "AXES", listOf(in, file.alignments, [&](const Alignment& a) { return alignmentValue(in, a); }))});
}

// --- from lists

Value under(Interpreter& in, Value list, const char* key) {
  const Value symbol = in.symbol(key);
  for (const Value item : Items(lisp::listArgument(in, list)))
    if (item.isPair() && item.car() == symbol) return item.cdr();
  return lisp::nil;
}

std::string textUnder(Interpreter& in, Value list, const char* key) {
  const Value text = under(in, list, key);
  return text ? std::string(lisp::stringArgument(in, text)) : std::string();
}

// The numbers of a list, in order; texts are left out.
std::vector<double> numbersOf(Interpreter& in, Value list) {
  std::vector<double> numbers;
  for (const Value item : Items(lisp::listArgument(in, list)))
    if (!item.isString()) numbers.push_back(lisp::numberArgument(in, item));
  return numbers;
}

Vertex vertexOf(Interpreter& in, Value list) {
  const std::vector<double> numbers = numbersOf(in, list);
  const auto need = [&](std::size_t count) {
    if (numbers.size() < count) in.failType("sommet", list);
  };
  need(2);
  Vertex v;
  v.at = {numbers[0], numbers[1]};
  const Value rest = list.cdr().cdr();
  const Value shape = rest.isPair() ? rest.car() : lisp::nil;
  if (shape.isNil()) return v;
  const std::string_view name = lisp::stringArgument(in, shape);
  need(name == "U" ? 4 : 3);
  if (name == "P" || name == "U") v.length = numbers[2];
  if (name == "U") v.lengthOut = numbers[3];
  if (name == "C") v.radius = numbers[2];
  v.curve = name == "P"   ? Curve::parabola
            : name == "U" ? Curve::unsymmetric
            : name == "C" ? Curve::circle
                          : Curve::none;
  if (v.curve == Curve::none) in.failType("sommet", list);
  return v;
}

StationLevel pointOf(Interpreter& in, Value list) {
  const std::vector<double> numbers = numbersOf(in, list);
  if (numbers.size() < 2) in.failType("station et altitude", list);
  return {numbers[0], numbers[1]};
}

Ground groundOf(Interpreter& in, Value list) {
  Ground ground{textUnder(in, list, "NOM"), textUnder(in, list, "ETAT"), {}};
  for (const Value piece : Items(under(in, list, "TRONCONS"))) {
    auto& points = ground.pieces.emplace_back();
    for (const Value point : Items(lisp::listArgument(in, piece))) points.push_back(pointOf(in, point));
  }
  return ground;
}

Project projectOf(Interpreter& in, Value list) {
  Project project{textUnder(in, list, "NOM"), {}};
  for (const Value vertex : Items(under(in, list, "SOMMETS"))) project.vertices.push_back(vertexOf(in, vertex));
  return project;
}

Alignment alignmentOf(Interpreter& in, Value list) {
  Alignment alignment;
  alignment.name = textUnder(in, list, "NOM");
  if (const Value start = under(in, list, "ORIGINE")) alignment.start = lisp::numberArgument(in, start);
  for (const Value vertex : Items(under(in, list, "PLAN"))) {
    const std::vector<double> numbers = numbersOf(in, vertex);
    if (numbers.size() < 3) in.failType("x, y et bulbe", vertex);
    alignment.plan.push_back({numbers[0], numbers[1], numbers[2]});
  }
  for (const Value ground : Items(under(in, list, "TERRAINS"))) alignment.grounds.push_back(groundOf(in, ground));
  for (const Value project : Items(under(in, list, "PROJETS"))) alignment.projects.push_back(projectOf(in, project));
  return alignment;
}

Value landXmlWrite(Interpreter& in, Arguments arguments) {
  const std::string path(lisp::stringArgument(in, arguments[0])), name(lisp::stringArgument(in, arguments[1]));
  std::vector<Alignment> alignments;
  for (const Value item : Items(lisp::listArgument(in, arguments[2]))) alignments.push_back(alignmentOf(in, item));
  try {
    writeLandXml(path, name, alignments);
  } catch (const Error& error) {
    in.fail(error.what());
  }
  return in.t();
}

constexpr lisp::Builtin kTable[] = {
    {"landxml-lire", landXmlRead, 1, 1, "(landxml-lire fichier)",
     "Les axes d'un fichier LandXML en listes, avec terrains et lignes de projet, en mètres."},
    {"landxml-ecrire", landXmlWrite, 3, 3, "(landxml-ecrire fichier projet axes)",
     "Écrit des axes, tels que landxml-lire les rend, en LandXML 1.2; rend T."},
};

}  // namespace

std::span<const lisp::Builtin> landXmlBuiltins() { return kTable; }

}  // namespace atelier::exchange
