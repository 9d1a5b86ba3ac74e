// AcDbDatabase: its tables and current settings, ids and handles, and the services of the host application.
// Reading goes through the DrawingReader that the dxf room provides.
#include <filesystem>

#include "atelier/database/objects/imp_database.h"
#include "hote/acdb.h"
#include "hote/dbdict.h"
#include "hote/dbsymtb.h"

using namespace atelier;

AcDbHostApplicationServices* acdbHostApplicationServices() {
  static AcDbHostApplicationServices services;
  return &services;
}

AcDbDatabase::AcDbDatabase(bool buildDefaultDrawing, bool) : mpImp(new AcDbImpDatabase(*this)) {
  if (buildDefaultDrawing) drawingReader().readNewDrawing(*this);
}
AcDbDatabase::~AcDbDatabase() {
  AcDbHostApplicationServices* services = acdbHostApplicationServices();
  if (services->workingDatabase() == this) services->setWorkingDatabase(nullptr);
  delete mpImp;
}

AcDbObjectId AcDbDatabase::blockTableId() const { return idOf(mpImp->table("BLOCK_RECORD")); }
AcDbObjectId AcDbDatabase::layerTableId() const { return idOf(mpImp->table("LAYER")); }
AcDbObjectId AcDbDatabase::textStyleTableId() const { return idOf(mpImp->table("STYLE")); }
AcDbObjectId AcDbDatabase::linetypeTableId() const { return idOf(mpImp->table("LTYPE")); }
AcDbObjectId AcDbDatabase::regAppTableId() const { return idOf(mpImp->table("APPID")); }
AcDbObjectId AcDbDatabase::namedObjectsDictionaryId() const { return idOf(mpImp->rootDictionary); }
AcDbObjectId AcDbDatabase::groupDictionaryId() const { return idOf(&mpImp->namedDictionary("ACAD_GROUP")); }
bool AcDbDatabase::tilemode() const { return mpImp->header.integer("$TILEMODE", 1) != 0; }
AcDbObjectId AcDbDatabase::currentSpaceId() const {
  return idOf(tilemode() ? mpImp->modelSpace() : mpImp->currentSheet());
}

AcDbObjectId AcDbDatabase::textstyle() const {
  AcDbStub* style = mpImp->tableRecord("STYLE", mpImp->header.text("$TEXTSTYLE", "Standard"));
  return idOf(style ? style : mpImp->tableRecord("STYLE", "Standard"));
}
Acad::ErrorStatus AcDbDatabase::setTextstyle(AcDbObjectId style) {
  if (style.isNull()) return Acad::eNullObjectId;
  mpImp->header.set("$TEXTSTYLE", Group::text(7, mpImp->recordName(*style)));
  return Acad::eOk;
}
AcDbObjectId AcDbDatabase::clayer() const {
  AcDbStub* layer = mpImp->tableRecord("LAYER", mpImp->header.text("$CLAYER", "0"));
  return idOf(layer ? layer : mpImp->tableRecord("LAYER", "0"));
}
Acad::ErrorStatus AcDbDatabase::setClayer(AcDbObjectId layer) {
  if (layer.isNull()) return Acad::eNullObjectId;
  mpImp->header.set("$CLAYER", Group::text(8, mpImp->recordName(*layer)));
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::getBlockTable(AcDbBlockTable*& t, AcDb::OpenMode mode) {
  return acdbOpenObject(t, blockTableId(), mode);
}
Acad::ErrorStatus AcDbDatabase::getLayerTable(AcDbLayerTable*& t, AcDb::OpenMode mode) {
  return acdbOpenObject(t, layerTableId(), mode);
}
Acad::ErrorStatus AcDbDatabase::getTextStyleTable(AcDbTextStyleTable*& t, AcDb::OpenMode mode) {
  return acdbOpenObject(t, textStyleTableId(), mode);
}
Acad::ErrorStatus AcDbDatabase::getRegAppTable(AcDbRegAppTable*& t, AcDb::OpenMode mode) {
  return acdbOpenObject(t, regAppTableId(), mode);
}
Acad::ErrorStatus AcDbDatabase::getNamedObjectsDictionary(AcDbDictionary*& d, AcDb::OpenMode mode) {
  return acdbOpenObject(d, namedObjectsDictionaryId(), mode);
}
Acad::ErrorStatus AcDbDatabase::getGroupDictionary(AcDbDictionary*& d, AcDb::OpenMode mode) {
  return acdbOpenObject(d, groupDictionaryId(), mode);
}

Acad::ErrorStatus AcDbDatabase::getAcDbObjectId(AcDbObjectId& id, bool, const AcDbHandle& handle, Adesk::UInt32) {
  AcDbStub* stub = mpImp->stubOf(handle.value());
  if (!stub) return Acad::eUnknownHandle;
  id = idOf(stub);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::readDwgFile(const ACHAR* path, int, bool, const ACHAR*) {
  // Only DXF drawings can be read: for a name in .dwg the .dxf file beside it is read.
  std::filesystem::path file(toUtf8(path));
  if (upperCase(file.extension().string()) == ".DWG") file.replace_extension(".dxf");
  std::error_code error;
  if (!std::filesystem::exists(file, error)) return Acad::eFileNotFound;
  try {
    drawingReader().readFile(*this, file.string());
  } catch (const Error&) {
    return Acad::eFilerError;
  }
  return Acad::eOk;
}

void AcDbImpDatabase::makeRootDictionary() {
  auto* root = new AcDbDictionary;
  AcDbStub& stub = addStub(takeHandle(), "DICTIONARY", nullptr);
  stub.set(AcDbStub::kVirtual);
  AcDbImpObject& imp = AcDbImpObject::of(root);
  imp.record.setObjectHandle(stub.handle);
  imp.record.setOwner(0);
  imp.stub = &stub;
  stub.object = root;
  objects.insert(objects.begin(), &stub);
  rootDictionary = &stub;
}

AcDbStub& AcDbImpDatabase::namedDictionary(std::string_view key) {
  const std::wstring name = toWide(key);
  if (!rootDictionary) makeRootDictionary();
  AcDbObjectId id;
  {
    const AcDbObjectPointer<AcDbDictionary> root(idOf(rootDictionary));
    if (root.openStatus() == Acad::eOk && root->getAt(name.c_str(), id) == Acad::eOk)
      return *static_cast<AcDbStub*>(id);
  }
  const AcDbObjectPointer<AcDbDictionary> root(idOf(rootDictionary), AcDb::kForWrite);
  ATELIER_ASSERT(root.openStatus() == Acad::eOk);
  auto* dictionary = new AcDbDictionary;
  root->setAt(name.c_str(), dictionary, id);
  dictionary->close();
  return *static_cast<AcDbStub*>(id);
}

bool AcDbObjectId::isErased() const { return !mStub || mStub->is(AcDbStub::kErased); }
bool AcDbObjectId::isResident() const { return mStub && mStub->object; }
AcDbHandle AcDbObjectId::handle() const {
  if (mStub) mStub->set(AcDbStub::kHandleAsked);
  return AcDbHandle(mStub ? mStub->handle : 0);
}
AcDbDatabase* AcDbObjectId::database() const { return mStub ? &mStub->database->database() : nullptr; }
AcRxClass* AcDbObjectId::objectClass() const { return mStub ? mStub->database->object(*mStub).isA() : nullptr; }

AcDbHandle::AcDbHandle(const ACHAR* text) {
  std::string digits = toUtf8(text);
  std::size_t n = 0;
  while (n < digits.size() && n < 16 && std::isxdigit(static_cast<unsigned char>(digits[n]))) ++n;
  mValue = n == 0 ? 0 : parseHandle(std::string_view(digits).substr(0, n)).value_or(0);
}
bool AcDbHandle::getIntoAsciiBuffer(ACHAR* buffer, std::size_t size) const {
  const std::wstring text = toWide(handleText(mValue));
  if (text.size() + 1 > size) return false;
  std::copy(text.begin(), text.end(), buffer);
  buffer[text.size()] = 0;
  return true;
}
bool AcDbHandle::getIntoAsciiBuffer(ACHAR* buffer) const { return getIntoAsciiBuffer(buffer, 17); }
