// ArgsLisp and the typed readers of one node.
// Nothing here speaks to the user: a null chain is a normal value.
#include "module/commande/arguments/argsLisp.h"

#include "hote/acdb.h"

namespace plv {

namespace {

resbuf* derniere(resbuf* rb) {
  while (rb && rb->rbnext) rb = rb->rbnext;
  return rb;
}

bool estDuType(const resbuf* rb, char type) {
  switch (type) {
    case 'R': return estNombre(rb);
    case 'E': return estEntier(rb);
    case 'C': return estChaine(rb);
    case 'P': return estPoint(rb);
    case 'N': return estNom(rb);
    default: return false;
  }
}

}  // namespace

void ArgsLisp::liberer() {
  if (m_tete && m_proprietaire) acutRelRb(m_tete);
  m_tete = nullptr;
}

resbuf* ArgsLisp::lireArgs() {
  liberer();
  m_proprietaire = false;
  return m_tete = acedGetArgs();
}

resbuf* ArgsLisp::lireXData(const AcDbObject& objet, const ACHAR* application) {
  liberer();
  m_proprietaire = true;
  return m_tete = objet.xData(application);
}

Adesk::UInt32 ArgsLisp::nombre() const {
  Adesk::UInt32 n = 0;
  for (const resbuf* rb = m_tete; rb; rb = rb->rbnext) ++n;
  return n;
}

resbuf* ArgsLisp::nieme(Adesk::Int32 i) const {
  resbuf* rb = m_tete;
  for (; rb && i > 0; --i) rb = rb->rbnext;
  return rb;
}

bool ArgsLisp::ajouter(resbuf* chaine) {
  if (!chaine) return false;
  if (m_tete) derniere(m_tete)->rbnext = chaine;
  else m_tete = chaine;
  return true;
}

void commencerAppel(ArgsLisp& args) {
  args.lireArgs();
  acedRetNil();
}

bool conforme(const ArgsLisp& args, std::string_view types) {
  const resbuf* rb = args.tete();
  for (const char type : types) {
    if (!estDuType(rb, type)) return false;
    rb = rb->rbnext;
  }
  return true;
}

bool estNombre(const resbuf* rb) { return rb && (rb->restype == RTREAL || estEntier(rb)); }
bool estEntier(const resbuf* rb) { return rb && (rb->restype == RTSHORT || rb->restype == RTLONG); }
bool estChaine(const resbuf* rb) { return rb && rb->restype == RTSTR; }
bool estPoint(const resbuf* rb) { return rb && (rb->restype == RTPOINT || rb->restype == RT3DPOINT); }
bool estNom(const resbuf* rb) { return rb && rb->restype == RTENAME; }

double valeurReelle(const resbuf* rb) {
  if (rb && rb->restype == RTREAL) return rb->resval.rreal;
  return estEntier(rb) ? valeurEntiere(rb) : kReelAbsent;
}

Adesk::Int32 valeurEntiere(const resbuf* rb) {
  if (!estEntier(rb)) return kSansValeur;
  return rb->restype == RTSHORT ? rb->resval.rint : rb->resval.rlong;
}

std::wstring valeurTexte(const resbuf* rb) {
  return estChaine(rb) && rb->resval.rstring ? rb->resval.rstring : std::wstring();
}

AcGePoint3d valeurPoint(const resbuf* rb) {
  if (!estPoint(rb)) return {};
  const ads_real* p = rb->resval.rpoint;
  return {p[0], p[1], rb->restype == RT3DPOINT ? p[2] : 0.0};
}

AcDbObjectId valeurId(const resbuf* rb) {
  AcDbObjectId id;
  if (!estNom(rb) || acdbGetObjectId(id, rb->resval.rlname) != Acad::eOk) return AcDbObjectId::kNull;
  return id;
}

double reelXData(const resbuf* rb) {
  if (!rb) return 0.0;
  if (rb->restype == kXReel || rb->restype == kXDistance) return rb->resval.rreal;
  return entierXData(rb);
}

Adesk::Int32 entierXData(const resbuf* rb) {
  if (!estEntierXData(rb)) return 0;
  return rb->restype == kXEntier16 ? rb->resval.rint : rb->resval.rlong;
}

bool estEntierXData(const resbuf* rb) { return rb && (rb->restype == kXEntier16 || rb->restype == kXEntier32); }

bool estHandleXData(const resbuf* rb) { return rb && rb->restype == kXHandle; }
bool estReelXData(const resbuf*) { return true; }

resbuf* chercheCode(resbuf* rb, int code) {
  while (rb && rb->restype != code) rb = rb->rbnext;
  return rb;
}

}  // namespace plv
