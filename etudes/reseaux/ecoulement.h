// Flow in a circular pipe after Manning and Strickler: v = K R^(2/3) I^(1/2), R the hydraulic radius, I the slope.
#pragma once
#include <string>

#include "etudes/reseaux/reseau.h"

namespace etu {

struct ecoulement {
  double vitesse, debit;  // m/s, m3/s
};

// The coefficient of a pipe: the one it was given, or the usual one of its material.
double stricklerDe(const tuyau& t);

// With the pipe full. The slope counts without its sign.
ecoulement pleineSection(double diametre, double pente, double strickler);
// How fast a part of the full discharge flows, over the velocity of the full pipe.
double vitesseRelative(double partDuDebit);

}  // namespace etu
