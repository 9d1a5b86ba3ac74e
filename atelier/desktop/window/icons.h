// Icons of the tool bar, drawn in the colours of the palette in force.
#pragma once
#include <QIcon>
#include <QString>

namespace atelier::desktop {

// By name: "nouveau", "ouvrir", "enregistrer", "annuler", "retablir", "etendu", "fenetre", "profil", "tableaux", "projet",
// "optimal", "metres", "plan", "tracer". An unknown name gives an empty icon.
QIcon iconNamed(const QString& name);

}  // namespace atelier::desktop
