// The host's chains: nodes, strings, and the translation of groups.
// Every node is made and released here, so that a chain that leaks shows in the count.
#include "atelier/database/objects/chain.h"

#include <cstring>

#include "atelier/database/objects/imp_database.h"
#include "hote/acut.h"

namespace atelier {
namespace {

std::int64_t alive = 0;

bool carriesString(int restype) {
  constexpr int kFilterOperator = -4;
  if (restype == RTSTR || restype == kFilterOperator) return true;
  if (restype >= 5000 || restype < 0) return false;
  const GroupKind kind = kindOfCode(restype);
  return kind == GroupKind::text || restype == 5 || restype == 105 || restype == 1005;
}

bool carriesBinary(int restype) { return restype >= 0 && restype < 5000 && kindOfCode(restype) == GroupKind::binary; }

ACHAR* copyWide(std::wstring_view text) {
  ACHAR* copy = new ACHAR[text.size() + 1];
  std::memcpy(copy, text.data(), text.size() * sizeof(ACHAR));
  copy[text.size()] = 0;
  return copy;
}

bool isShort(int code) {
  return (code >= 60 && code <= 79) || (code >= 170 && code <= 179) || (code >= 270 && code <= 299) ||
         (code >= 370 && code <= 389) || (code >= 400 && code <= 409) || (code >= 1060 && code <= 1070);
}

}  // namespace

std::int64_t liveNodes() { return alive; }

resbuf*& heldArguments() {
  static thread_local resbuf* held = nullptr;
  return held;
}

bool isPointCode(int code) {
  return (code >= 10 && code <= 18) || (code >= 110 && code <= 112) || (code >= 210 && code <= 213) || (code >= 1010 && code <= 1013);
}

resbuf* newNode(int restype) {
  resbuf* node = new resbuf{};
  node->restype = static_cast<short>(restype);
  ++alive;
  return node;
}

void setString(resbuf& node, std::string_view utf8) {
  delete[] node.resval.rstring;
  node.resval.rstring = copyWide(toWide(utf8));
}

std::string stringOf(const resbuf& node) { return toUtf8(node.resval.rstring); }

resbuf* textNode(int restype, std::string_view utf8) {
  resbuf* node = newNode(restype);
  node->resval.rstring = copyWide(toWide(utf8));
  return node;
}

resbuf* realNode(int restype, double value) {
  resbuf* node = newNode(restype);
  node->resval.rreal = value;
  return node;
}

AcDbStub* stubOfName(const ads_name name) { return name[1] == 0 ? reinterpret_cast<AcDbStub*>(name[0]) : nullptr; }

void nameOf(const AcDbStub* stub, ads_name name) {
  name[0] = reinterpret_cast<std::int64_t>(stub);
  name[1] = 0;
}

resbuf* nameNode(int restype, const AcDbStub* stub) {
  resbuf* node = newNode(restype);
  nameOf(stub, node->resval.rlname);
  return node;
}

resbuf** appendNode(resbuf** tail, const Group& group, AcDbImpDatabase& database) {
  const int code = group.code();
  resbuf* node = nullptr;
  switch (group.kind()) {
    case GroupKind::text: node = textNode(code, group.text()); break;
    case GroupKind::real: node = realNode(code, group.real()); break;
    case GroupKind::integer:
      node = newNode(code);
      if (code >= 160 && code <= 169) node->resval.mnInt64 = group.integer();
      else if (isShort(code)) node->resval.rint = static_cast<short>(group.integer());
      else node->resval.rlong = static_cast<Adesk::Int32>(group.integer());
      break;
    case GroupKind::handle:
      if (carriesString(code) || (code >= 320 && code <= 329)) node = textNode(code, handleText(group.handle()));
      else node = nameNode(code, database.stubOrLost(group.handle()));
      break;
    case GroupKind::binary: {
      node = newNode(code);
      const std::string& bytes = group.text();
      node->resval.rbinary.clen = static_cast<short>(bytes.size());
      node->resval.rbinary.buf = new char[bytes.size() + 1];
      std::memcpy(node->resval.rbinary.buf, bytes.data(), bytes.size());
      break;
    }
  }
  *tail = node;
  return &node->rbnext;
}

resbuf* toChain(std::span<const Group> groups, AcDbImpDatabase& database) {
  resbuf* head = nullptr;
  resbuf** tail = &head;
  for (std::size_t i = 0; i < groups.size(); ++i) {
    const int code = groups[i].code();
    if (groups[i].kind() == GroupKind::real && isPointCode(code)) {
      resbuf* node = newNode(code);
      node->resval.rpoint[0] = groups[i].real();
      for (int k = 1; k <= 2 && i + 1 < groups.size() && groups[i + 1].code() == code + 10 * k; ++k)
        node->resval.rpoint[k] = groups[++i].real();
      *tail = node;
      tail = &node->rbnext;
    } else {
      tail = appendNode(tail, groups[i], database);
    }
  }
  return head;
}

void appendGroups(std::vector<Group>& groups, const resbuf& node, AcDbImpDatabase& database) {
  (void)database;
  const int code = node.restype == RTDXF0 ? 0 : node.restype;
  if (isPointCode(code)) {
    for (int k = 0; k < 3; ++k) groups.push_back(Group::real(code + 10 * k, node.resval.rpoint[k]));
    return;
  }
  switch (kindOfCode(code)) {
    case GroupKind::text: groups.push_back(Group::text(code, stringOf(node))); break;
    case GroupKind::real: groups.push_back(Group::real(code, node.resval.rreal)); break;
    case GroupKind::integer:
      groups.push_back(Group::integer(code, code >= 160 && code <= 169 ? node.resval.mnInt64
                                            : isShort(code)            ? node.resval.rint
                                                                       : node.resval.rlong));
      break;
    case GroupKind::handle: {
      if (carriesString(code) || (code >= 320 && code <= 329)) {
        groups.push_back(Group::handle(code, parseHandle(stringOf(node)).value_or(0)));
      } else {
        const AcDbStub* stub = stubOfName(node.resval.rlname);
        groups.push_back(Group::handle(code, stub ? stub->handle : 0));
      }
      break;
    }
    case GroupKind::binary:
      groups.push_back(Group::binary(
          code, std::string(node.resval.rbinary.buf, static_cast<std::size_t>(node.resval.rbinary.clen))));
      break;
  }
}

}  // namespace atelier

using namespace atelier;

resbuf* acutNewRb(int restype) { return newNode(restype); }

int acutRelRb(resbuf* chain) {
  if (chain && chain == heldArguments()) heldArguments() = nullptr;
  while (chain) {
    resbuf* next = chain->rbnext;
    if (carriesString(chain->restype)) delete[] chain->resval.rstring;
    else if (carriesBinary(chain->restype)) delete[] chain->resval.rbinary.buf;
    delete chain;
    --alive;
    chain = next;
  }
  return RTNORM;
}

namespace {

enum class Argument { none, text, real, point, integer, longInteger, name, binary };

Argument argumentOf(int restype) {
  switch (restype) {
    case RTREAL:
    case RTANG:
    case RTORINT: return Argument::real;
    case RTPOINT:
    case RT3DPOINT: return Argument::point;
    case RTSHORT:
    case RTLONG: return Argument::integer;
    case RTSTR:
    case RTDXF0: return Argument::text;
    case RTENAME:
    case RTPICKS: return Argument::name;
    default: break;
  }
  if (restype == -1 || restype == -2) return Argument::name;
  if (carriesString(restype)) return Argument::text;
  if (restype < 0 || restype >= 5000) return Argument::none;
  if (isPointCode(restype)) return Argument::point;
  if (restype >= 320 && restype <= 329) return Argument::text;
  switch (kindOfCode(restype)) {
    case GroupKind::real: return Argument::real;
    case GroupKind::integer: return restype >= 160 && restype <= 169 ? Argument::longInteger : Argument::integer;
    case GroupKind::handle: return Argument::name;
    case GroupKind::binary: return Argument::binary;
    default: return Argument::text;
  }
}

void fill(resbuf& node, va_list& values) {
  switch (argumentOf(node.restype)) {
    case Argument::none: break;
    case Argument::text: {
      const ACHAR* text = va_arg(values, const ACHAR*);
      node.resval.rstring = copyWide(text ? std::wstring_view(text) : std::wstring_view());
      if (node.restype == RTDXF0) node.restype = 0;
      break;
    }
    case Argument::real: node.resval.rreal = va_arg(values, double); break;
    case Argument::point: {
      const double* p = va_arg(values, const double*);
      const int ordinates = node.restype == RTPOINT ? 2 : 3;
      for (int i = 0; i < ordinates; ++i) node.resval.rpoint[i] = p[i];
      break;
    }
    case Argument::integer: {
      const int value = va_arg(values, int);
      if (node.restype == RTSHORT || isShort(node.restype)) node.resval.rint = static_cast<short>(value);
      else node.resval.rlong = value;
      break;
    }
    case Argument::longInteger: node.resval.mnInt64 = va_arg(values, Adesk::Int64); break;
    case Argument::name: {
      const std::int64_t* name = va_arg(values, const std::int64_t*);
      node.resval.rlname[0] = name[0];
      node.resval.rlname[1] = name[1];
      break;
    }
    case Argument::binary: {
      const ads_binary* bytes = va_arg(values, const ads_binary*);
      node.resval.rbinary.clen = bytes->clen;
      node.resval.rbinary.buf = new char[static_cast<std::size_t>(bytes->clen) + 1];
      std::memcpy(node.resval.rbinary.buf, bytes->buf, static_cast<std::size_t>(bytes->clen));
      break;
    }
  }
}

}  // namespace

resbuf* acutBuildList(int restype, ...) {
  resbuf* head = nullptr;
  resbuf** tail = &head;
  va_list values;
  va_start(values, restype);
  // RTNONE ends the list; so does a 0 that is not the first code, since 0 is also the code of an entity's type.
  for (bool first = true; restype != RTNONE && (first || restype != 0); first = false) {
    resbuf* node = newNode(restype);
    fill(*node, values);
    *tail = node;
    tail = &node->rbnext;
    restype = va_arg(values, int);
  }
  va_end(values);
  return head;
}

Acad::ErrorStatus acutNewString(const ACHAR* source, ACHAR*& copy) {
  copy = copyWide(source ? std::wstring_view(source) : std::wstring_view());
  return Acad::eOk;
}

void acutDelString(ACHAR*& text) {
  delete[] text;
  text = nullptr;
}
