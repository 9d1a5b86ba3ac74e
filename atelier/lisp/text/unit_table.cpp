// The units that cvunit knows, each with its dimension and its size in SI units.
#include <array>
#include <cmath>
#include <numbers>

#include "atelier/lisp/text/encoding.h"
#include "atelier/lisp/text/units.h"

namespace atelier::lisp {
namespace {

// Powers of metre, kilogram, second, kelvin and radian.
using Dimension = std::array<int, 5>;
constexpr Dimension kLength{1}, kArea{2}, kVolume{3}, kMass{0, 1}, kTime{0, 0, 1}, kTemperature{0, 0, 0, 1},
    kAngle{0, 0, 0, 0, 1};

struct Unit {
  std::string_view names;  // separated by commas
  Dimension dimension;
  double size;
  double offset = 0;  // added after scaling, for temperatures
};

constexpr Unit kUnits[] = {
    {"m,meter,meters,metre,metres,metro,metros", kLength, 1},
    {"mm,millimeter,millimeters,millimetre,millimetres", kLength, 1e-3},
    {"cm,centimeter,centimeters,centimetre,centimetres", kLength, 1e-2},
    {"dm,decimeter,decimeters,decimetre,decimetres", kLength, 1e-1},
    {"dam,decameter,decametre,dekameter", kLength, 10},
    {"hm,hectometer,hectometre", kLength, 100},
    {"km,kilometer,kilometers,kilometre,kilometres", kLength, 1e3},
    {"micron,microns,micrometer,micrometre", kLength, 1e-6},
    {"in,inch,inches,inchs,\"", kLength, 0.0254},
    {"ft,foot,feet,'", kLength, 0.3048},
    {"survey_foot,survey_feet,ussurvey_foot", kLength, 1200.0 / 3937.0},
    {"yd,yard,yards", kLength, 0.9144},
    {"mi,mile,miles", kLength, 1609.344},
    {"nautical_mile,nautical_miles,nmi,inm", kLength, 1852},
    {"mil,mils", kLength, 2.54e-5},
    {"fathom,fathoms", kLength, 1.8288},
    {"furlong,furlongs", kLength, 201.168},
    {"rod,rods,pole,perch", kLength, 5.0292},
    {"chain,chains", kLength, 20.1168},
    {"light_year,light_years", kLength, 9.4607304725808e15},
    {"parsec,parsecs,pc", kLength, 3.0856775814913673e16},
    {"au,astronomical_unit", kLength, 1.495978707e11},
    {"acre,acres", kArea, 4046.8564224},
    {"hectare,hectares,ha", kArea, 1e4},
    {"are,ares", kArea, 100},
    {"centiare,centiares,ca", kArea, 1},
    {"l,liter,liters,litre,litres", kVolume, 1e-3},
    {"ml,milliliter,millilitre,cc", kVolume, 1e-6},
    {"cl,centiliter,centilitre", kVolume, 1e-5},
    {"hl,hectoliter,hectolitre", kVolume, 0.1},
    {"gal,gallon,gallons", kVolume, 3.785411784e-3},
    {"quart,quarts,qt", kVolume, 9.46352946e-4},
    {"pint,pints,pt", kVolume, 4.73176473e-4},
    {"barrel,barrels,bbl", kVolume, 0.158987294928},
    {"g,gram,grams,gramme,grammes", kMass, 1e-3},
    {"kg,kilogram,kilograms,kilogramme,kilogrammes", kMass, 1},
    {"tonne,tonnes,t", kMass, 1e3},
    {"lb,lbm,pound,pounds", kMass, 0.45359237},
    {"oz,ounce,ounces", kMass, 0.028349523125},
    {"ton,tons", kMass, 907.18474},
    {"s,sec,second,seconds,seconde,secondes", kTime, 1},
    {"min,minute,minutes", kTime, 60},
    {"h,hr,hour,hours,heure,heures", kTime, 3600},
    {"day,days,jour,jours", kTime, 86400},
    {"week,weeks,semaine,semaines", kTime, 604800},
    {"year,years,yr", kTime, 31556952},
    {"k,kelvin", kTemperature, 1},
    {"c,celsius,centigrade", kTemperature, 1, 273.15},
    {"f,fahrenheit", kTemperature, 5.0 / 9.0, 459.67 * 5.0 / 9.0},
    {"rankine", kTemperature, 5.0 / 9.0},
    {"rad,radian,radians", kAngle, 1},
    {"deg,degree,degrees,degre,degres", kAngle, std::numbers::pi / 180},
    {"grad,grads,grade,grades,gon,gons", kAngle, std::numbers::pi / 200},
    {"circle,circles,turn,turns,revolution", kAngle, 2 * std::numbers::pi},
    {"quadrant,quadrants", kAngle, std::numbers::pi / 2},
};

const Unit* simpleUnit(std::string_view name) {
  for (const Unit& unit : kUnits) {
    for (std::string_view names = unit.names;;) {
      const std::size_t comma = names.find(',');
      if (names.substr(0, comma) == name) return &unit;
      if (comma == std::string_view::npos) break;
      names.remove_prefix(comma + 1);
    }
  }
  return nullptr;
}

// A unit's name, after "sq" or "cu" or before ^2 or ^3.
std::optional<Unit> findUnit(std::string_view text) {
  std::string name = lowerCase(text);
  int power = 1;
  for (const auto& [prefix, exponent] : {std::pair{"sq ", 2}, {"square ", 2}, {"cu ", 3}, {"cubic ", 3}}) {
    if (!name.starts_with(prefix)) continue;
    power = exponent;
    name.erase(0, std::string_view(prefix).size());
    break;
  }
  if (name.ends_with("^2") || name.ends_with("^3")) {
    power = name.back() - '0';
    name.resize(name.size() - 2);
  }
  for (char& c : name)
    if (c == ' ') c = '_';
  const Unit* found = simpleUnit(name);
  if (!found) return std::nullopt;
  Unit unit = *found;
  for (int& exponent : unit.dimension) exponent *= power;
  unit.size = std::pow(unit.size, power);
  return unit;
}

}  // namespace

std::optional<double> convertUnit(double value, std::string_view from, std::string_view to) {
  const auto source = findUnit(from), target = findUnit(to);
  if (!source || !target || source->dimension != target->dimension) return std::nullopt;
  if (source->offset == 0 && target->offset == 0) return value * (source->size / target->size);
  return (value * source->size + source->offset - target->offset) / target->size;
}

}  // namespace atelier::lisp
