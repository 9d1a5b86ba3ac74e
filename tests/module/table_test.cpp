// The table of functions as the host sees it, and the module's entry.
// Rows are counted and named here because front-ends depend on every one.
#include <set>

#include "module/commande/porte/entree.h"
#include "module/commande/porte/tableFonctions.h"
#include "tests/module/aide.h"

using kaveltest::Session;

namespace {

TEST(Table, HasItsRowsInOrder) {
  const auto table = plv::tableFonctions();
  ASSERT_EQ(table.size(), 69u);
  const struct {
    std::size_t index;
    const wchar_t* name;
  } rows[] = {{0, L"pl_text"},          {7, L"pl_cotauto"},       {15, L"plsxd"},
              {21, L"pl_CreeMatrice"},  {29, L"pl_ChoixProfil"},  {42, L"pl_BlockVertical"},
              {43, L"pl_InfosTn"},      {51, L"pl_typelignemat"}, {62, L"pl_LireMatriceKavel"},
              {67, L"pl_TraceOptimal"}, {68, L"C:CUBPL"}};
  for (const auto& row : rows) EXPECT_STREQ(table[row.index].name, row.name);
}

TEST(Table, IsPublishedWholeInEachDrawing) {
  for (int drawing = 0; drawing < 2; ++drawing) {
    Session session;
    for (const plv::ligneFonction& row : plv::tableFonctions()) {
      const std::wstring wide = row.name;
      const std::string name(wide.begin(), wide.end());
      EXPECT_NE(session.eval("(type " + name + ")"), "nil") << name;
    }
    EXPECT_NE(session.eval("(tblsearch \"APPID\" \"KELMONT_PLV2\")"), "nil");
    EXPECT_EQ(session.eval("(tblsearch \"APPID\" \"PLV2_DATA\")"), "nil");
  }
}

// A row without a handler, or two rows with one, would be found only by the user who calls the second.
TEST(Table, HasAHandlerOfItsOwnInEveryRow) {
  std::set<void (*)()> handlers;
  for (const plv::ligneFonction& row : plv::tableFonctions())
    EXPECT_TRUE(row.handler && handlers.insert(row.handler).second) << &row - plv::tableFonctions().data();
}

TEST(Entry, AnswersEveryMessageWithOk) {
  EXPECT_EQ(acrxEntryPoint(AcRx::kSaveMsg, nullptr), AcRx::kRetOK);
  EXPECT_EQ(acrxEntryPoint(AcRx::kQuitMsg, nullptr), AcRx::kRetOK);
}

}  // namespace
