// The triangulation by CGAL: points in the order of a space-filling curve, then breaklines. Where a breakline crosses one that
// is there, CGAL makes a vertex, which gets its altitude here.
#include "etudes/surfaces/triangulation.h"

#include <CGAL/Constrained_Delaunay_triangulation_2.h>
#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/Spatial_sort_traits_adapter_2.h>
#include <CGAL/Triangulation_vertex_base_with_info_2.h>
#include <CGAL/property_map.h>
#include <CGAL/spatial_sort.h>

#include <numeric>

namespace etu {

namespace {

constexpr numero kAucun = std::numeric_limits<numero>::max();

struct infoSommet {
  double z = 0;
  numero rang = kAucun;
  bool croisement = false;
};

using Noyau = CGAL::Exact_predicates_inexact_constructions_kernel;
using Point = Noyau::Point_2;
using Sommet = CGAL::Triangulation_vertex_base_with_info_2<infoSommet, Noyau>;
using Face = CGAL::Constrained_triangulation_face_base_2<Noyau>;
using Base = CGAL::Constrained_Delaunay_triangulation_2<Noyau, CGAL::Triangulation_data_structure_2<Sommet, Face>,
                                                        CGAL::Exact_predicates_tag>;

// The altitude at p of the straight line from a to b.
double altitudeSur(const Point& a, double za, const Point& b, double zb, const Point& p) {
  const double dx = b.x() - a.x(), dy = b.y() - a.y(), l2 = dx * dx + dy * dy;
  return l2 > 0 ? za + (zb - za) * ((p.x() - a.x()) * dx + (p.y() - a.y()) * dy) / l2 : za;
}

class Triangulation : public Base {
 public:
  explicit Triangulation(listeContradictions& contradictions) : m_contradictions(contradictions) {}

  // Gives the number of points that were there already.
  std::size_t insererPoints(const std::vector<point3>& points) {
    std::vector<Point> plan;
    plan.reserve(points.size());
    for (const point3& p : points) plan.emplace_back(p.x, p.y);
    std::vector<std::size_t> ordre(points.size());
    std::iota(ordre.begin(), ordre.end(), 0);
    using Carte = CGAL::Pointer_property_map<Point>::type;
    CGAL::spatial_sort(ordre.begin(), ordre.end(),
                       CGAL::Spatial_sort_traits_adapter_2<Noyau, Carte>(CGAL::make_property_map(plan)));
    std::vector<std::size_t> doubles;
    m_sommets.resize(points.size());
    Face_handle voisine;
    for (const std::size_t i : ordre) {
      const Vertex_handle v = insert(plan[i], voisine);
      voisine = v->face();
      const numero avant = v->info().rang;
      if (avant != kAucun) doubles.push_back(std::max<std::size_t>(avant, i));
      const numero premier = std::min(avant, static_cast<numero>(i));
      v->info() = {points[premier].z, premier, false};
      m_sommets[i] = v;
    }
    std::sort(doubles.begin(), doubles.end());
    for (const std::size_t i : doubles)
      m_contradictions.ajouter(desaccord::pointDouble, points[i].x, points[i].y, m_sommets[i]->info().z, points[i].z);
    return doubles.size();
  }

  void insererSegments(const std::vector<std::pair<numero, numero>>& segments) {
    for (const auto& [a, b] : segments)
      if (m_sommets[a] != m_sommets[b]) insert_constraint(m_sommets[a], m_sommets[b]);
    for (const auto& [a, b] : segments) comparer(m_sommets[a], m_sommets[b]);
  }

  maillage extraire() {
    maillage m;
    m.points.reserve(number_of_vertices());
    m.triangles.reserve(number_of_faces());
    for (auto v = finite_vertices_begin(); v != finite_vertices_end(); ++v) {
      v->info().rang = static_cast<numero>(m.points.size());
      m.points.push_back({v->point().x(), v->point().y(), v->info().z});
    }
    for (auto f = finite_faces_begin(); f != finite_faces_end(); ++f)
      m.triangles.push_back({f->vertex(0)->info().rang, f->vertex(1)->info().rang, f->vertex(2)->info().rang});
    return m;
  }

 protected:
  // The edge (f, i) of an earlier breakline is crossed by the run from vaa to vbb of a later one. The base inserts a vertex there, then the
  // parts of the earlier one again, which may cross others: the vertex needs its altitude at once.
  Vertex_handle intersect(Face_handle f, int i, Vertex_handle vaa, Vertex_handle vbb) override {
    m_croisees = {f->vertex(cw(i)), f->vertex(ccw(i)), vaa, vbb};
    return Base::intersect(f, i, vaa, vbb);
  }

  Vertex_handle virtual_insert(const Point& p, Face_handle depart) override {
    const Vertex_handle v = Base::virtual_insert(p, depart);
    if (v->info().rang != kAucun || v->info().croisement) return v;
    const auto altitude = [&](Vertex_handle a, Vertex_handle b) {
      return altitudeSur(a->point(), a->info().z, b->point(), b->info().z, v->point());
    };
    const double ancienne = altitude(m_croisees[0], m_croisees[1]), nouvelle = altitude(m_croisees[2], m_croisees[3]);
    m_contradictions.ajouter(desaccord::lignesCroisees, v->point().x(), v->point().y(), ancienne, nouvelle);
    v->info() = {0.5 * (ancienne + nouvelle), kAucun, true};
    return v;
  }

 private:
  // Along a breakline from vertex to vertex; one that was given and lies on it ought to have its altitude.
  void comparer(Vertex_handle a, Vertex_handle b) {
    for (Vertex_handle v = a; v != b && !is_edge(v, b);) {
      v = suivant(v, b);
      if (v == nullptr) return;
      if (!v->info().croisement)
        m_contradictions.ajouter(desaccord::pointSurLigne, v->point().x(), v->point().y(), v->info().z,
                                 altitudeSur(a->point(), a->info().z, b->point(), b->info().z, v->point()));
    }
  }

  // The neighbour of v along a breakline that lies best in the direction of b; none when there is none ahead.
  Vertex_handle suivant(Vertex_handle v, Vertex_handle b) {
    const double dx = b->point().x() - v->point().x(), dy = b->point().y() - v->point().y();
    Vertex_handle mieux = nullptr;
    double cosinus = 0.99;
    auto arete = incident_edges(v);
    const auto premiere = arete;
    do {
      if (is_infinite(*arete) || !is_constrained(*arete)) continue;
      const Face_handle f = arete->first;
      const Vertex_handle p = f->vertex(cw(arete->second)), q = f->vertex(ccw(arete->second)), autre = p == v ? q : p;
      const double ex = autre->point().x() - v->point().x(), ey = autre->point().y() - v->point().y();
      const double c = (dx * ex + dy * ey) / std::sqrt((dx * dx + dy * dy) * (ex * ex + ey * ey));
      if (c > cosinus && ex * ex + ey * ey <= dx * dx + dy * dy) cosinus = c, mieux = autre;
    } while (++arete != premiere);
    return mieux;
  }

  std::vector<Vertex_handle> m_sommets;     // of the points as they were given
  std::array<Vertex_handle, 4> m_croisees;  // the ends of the two runs that cross
  listeContradictions& m_contradictions;
};

}  // namespace

triangulation trianguler(const std::vector<point3>& points, const std::vector<std::pair<numero, numero>>& segments,
                         listeContradictions& contradictions) {
  if (points.size() < 3) throw refus{L"trois points au moins sont attendus pour une surface"};
  Triangulation t(contradictions);
  triangulation resultat;
  resultat.doubles = t.insererPoints(points);
  if (t.dimension() < 2)
    throw refus{t.number_of_vertices() < 3 ? L"les points n'ont pas trois places en plan: ils ne font pas de surface"
                                           : L"tous les points sont sur une droite: ils ne font pas de surface"};
  t.insererSegments(segments);
  resultat.mesh = t.extraire();
  return resultat;
}

}  // namespace etu
