// The conversion of a LISP value into XDATA.
// One switch over the result-type codes.
#include "module/commande/conversionXData.h"

#include "module/commande/argsLisp.h"

namespace plv {

namespace {

resbuf* paireMarque(const ACHAR* cle, Adesk::Int32 marque) {
  return acutBuildList(kXTexte, cle, kXEntier32, marque, RTNONE);
}

resbuf* paireEntite(const ACHAR* cle, const resbuf& valeur) {
  const AcDbObjectId id = valeurId(&valeur);
  ACHAR handle[32] = L"";
  if (id.isNull() || !id.handle().getIntoAsciiBuffer(handle, std::size(handle))) return paireMarque(cle, kObjetNul);
  return acutBuildList(kXTexte, cle, kXHandle, handle, RTNONE);
}

}  // namespace

resbuf* paireXData(const std::wstring& cle, const resbuf& valeur) {
  const ACHAR* c = cle.c_str();
  switch (valeur.restype) {
    case RTREAL: return acutBuildList(kXTexte, c, kXReel, valeur.resval.rreal, RTNONE);
    case RTSHORT: return acutBuildList(kXTexte, c, kXEntier16, int{valeur.resval.rint}, RTNONE);
    case RTSTR: return acutBuildList(kXTexte, c, kXTexte, valeurTexte(&valeur).c_str(), RTNONE);
    case RTENAME: return paireEntite(c, valeur);
    case RTLONG: return acutBuildList(kXTexte, c, kXEntier32, valeur.resval.rlong, RTNONE);
    case RTNIL: return paireMarque(c, kSansValeur);
    default: return paireMarque(c, kObjetNul);
  }
}

}  // namespace plv
