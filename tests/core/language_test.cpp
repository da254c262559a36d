#include <gtest/gtest.h>

#include "core/dispatch.h"
#include "core/load_language.h"
#include "core/messages.h"
#include "fakes/fakes.h"

namespace tagrix {
namespace {

struct LanguageTest : testing::Test {
  LanguageTest() {
    setup_lngcmb.Add(L"English");
    test.files.Put(L"C:\\Tagrix\\english.lf", LanguageFile(178, "en"));
    test.files.Put(L"C:\\Tagrix\\French.lf", LanguageFile(178, "fr"));
  }
  std::wstring Load(const std::wstring& file) {
    loadlangue(test.context, setup_lngcmb, file);
    return test.context.Text(177);
  }
  TestContext test;
  ComboBox setup_lngcmb{"setup_lngcmb"};
};

TEST(LanguageFiles, CountOnlyLinesOfThreeCharactersAndMore) {
  EXPECT_EQ(ParseLanguageFile(L"  001 Search \r\n\r\nab\r\nxyzGo on\n003\r\n  x  \r\n"),
            (Texts{L"Search", L"Go on", L""}));
}

TEST_F(LanguageTest, AValidFileIsShownAndStored) {
  listlangues(test.context, setup_lngcmb);
  EXPECT_EQ(setup_lngcmb.Count(), 2);
  EXPECT_EQ(Load(L"&French.lf"), L"fr177");
  EXPECT_EQ(setup_lngcmb.Text(), L"French");
  EXPECT_EQ(test.context.settings.Get(setting::kLanguage), L"French");
}

TEST_F(LanguageTest, AWrongCountFallsBackToEnglish) {
  for (const std::string& rubbish : {LanguageFile(179, "x"), std::string("\0\xFF\r\n\x1A", 5), std::string()}) {
    test.files.Put(L"C:\\Tagrix\\bad.lf", rubbish);
    EXPECT_EQ(Load(L"bad.lf"), L"en177");
    EXPECT_EQ(test.context.settings.Get(setting::kLanguage), L"english");
  }
  test.files.Delete(L"C:\\Tagrix\\english.lf");
  EXPECT_EQ(Load(L"bad.lf"), L"en177");  // the texts in force
  EXPECT_EQ(Load(L"missing.lf"), L"");
  EXPECT_TRUE(test.prompts.messages.empty());
}

// What a companion lacks is told in English, as it is built in.
TEST_F(LanguageTest, TheCompanionTellsOurOwnTexts) {
  test.files.Put(L"C:\\Tagrix\\French.lfx", "200Trouve\r\n201-\r\n");
  Load(L"French.lf");
  EXPECT_EQ(test.context.Text(message::kPurpose), L"Trouve");
  EXPECT_EQ(test.context.Text(message::kAuthors), L"By %%1%%");
  EXPECT_EQ(test.context.Text(message::kFileColumn), L"File");
  Load(L"english.lf");
  EXPECT_EQ(test.context.Text(message::kPurpose), L"Finds, names and tags the albums among your MP3 files.");
}

}  // namespace
}  // namespace tagrix
