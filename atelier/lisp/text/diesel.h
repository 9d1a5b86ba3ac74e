// DIESEL, the string language of menus and status lines: "$(function,argument,...)" in a text is replaced by its value.
// Programs use it with (menucmd "M=...").
#pragma once
#include <functional>
#include <string>
#include <string_view>

namespace atelier::lisp {

// What the language needs from its host; empty texts stand for missing values.
struct DieselHost {
  std::function<std::string(std::string_view)> variable;                        // getvar, upper-case name
  std::function<std::string(std::string_view)> environment;                     // getenv
  std::function<std::string(double, int mode, int precision)> distance, angle;  // rtos, angtos; -1: as the drawing says
};

// The text with its macros replaced. Faults come out as text, as in the reference: "$(FOO)??" for an unknown function,
// "$(if,??)" for arguments that don't fit, "$?" for a syntax error.
std::string dieselText(const DieselHost& host, std::string_view macro);

// A day number with its fraction, as the variable DATE gives it, in a format of D DD DDD DDDD M MO MON MONTH YY YYYY
// H HH MM SS MSEC AM/PM A/P; names are French.
std::string editTime(double julian, std::string_view format);

}  // namespace atelier::lisp
