// The pieces of a cut curve take its place in the drawing: the first takes over its identity, the others are new.
// Used where a curve of the drawing is open for writing.
#pragma once
#include "module/support/kitCourbes.h"
#include "module/support/kitEntites.h"

namespace plv {

class identiteCourbe {
 public:
  // Takes a curve that is open for write, and closes it at the end if it still stands.
  explicit identiteCourbe(AcDbCurve* courbe) : m_courbe(courbe) {}
  ~identiteCourbe() { fermer(); }
  identiteCourbe(const identiteCourbe&) = delete;
  identiteCourbe& operator=(const identiteCourbe&) = delete;

  bool presente() const { return m_courbe != nullptr; }
  // The source can't be kept: pieces are all new.
  void effacer() {
    if (m_courbe) m_courbe->erase();
    fermer();
  }
  void fermer() {
    if (m_courbe) m_courbe->close();
    m_courbe = nullptr;
  }
  // The piece takes over the identity of the source while it stands; otherwise it goes to model space, and its id to
  // the list.
  void placer(pieceCourbe piece, AcDbObjectIdArray& nouveaux) {
    if (m_courbe && m_courbe->handOverTo(piece.get(), true, true) == Acad::eObjectToBeDeleted) {
      piece.release()->close();
      delete m_courbe;
      m_courbe = nullptr;
      return;
    }
    ajouterEtRetenir(nouveaux, std::unique_ptr<AcDbEntity>(piece.release()));
  }

 private:
  AcDbCurve* m_courbe;
};

}  // namespace plv
