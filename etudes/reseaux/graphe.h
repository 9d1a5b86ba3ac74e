// Networks as files of other programs have them: nodes and links, of which a way from end to end becomes the network of a profile.
#pragma once
#include <string>
#include <vector>

#include "etudes/reseaux/situer.h"

namespace etu {

struct noeudGraphe {
  std::wstring nom, type;
  double radier = 0;  // lowest
  std::optional<double> tampon;
  diametres diametre;
};

struct lienGraphe {
  std::wstring nom;
  std::size_t de = 0, a = 0;
  double zDe = 0, zA = 0;  // inverts
  double longueur = 0;     // in plan
  diametres diametre;
  std::wstring materiau;
  double strickler = 0;
};

struct grapheReseau {
  std::vector<noeudGraphe> noeuds;
  std::vector<lienGraphe> liens;
  std::vector<std::wstring> remarques;  // sentences: what couldn't be used, by name

  // Throws `refus`, which says who asks, for a name that no node has.
  std::size_t noeud(const std::wstring& nom, const std::wstring& ou) const;
};

// The rows of a profile's network: the way between two nodes, or the longest one without their names, from a station on. Manholes without a
// diameter get the given one (a text as rows have it, perhaps empty). Throws `refus` where there is no way. Nodes beside it become remarks.
rangees rangeesDuGraphe(grapheReseau& g, const std::wstring& de, const std::wstring& a, double station,
                        const std::wstring& diametreRegard);

// Where the manholes of a network are in plan, in their order.
using lieuxRegards = std::vector<pointLigne>;

grapheReseau lireSwmm(const std::wstring& chemin);
grapheReseau lirePipeNetworks(const std::wstring& chemin);
std::string texteSwmm(const reseauPose& p, const lieuxRegards& lieux, const std::wstring& titre);
std::string textePipeNetworks(const reseauPose& p, const lieuxRegards& lieux, const std::wstring& titre);

}  // namespace etu
