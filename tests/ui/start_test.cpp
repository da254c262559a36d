// The program starts, switches its pages, refuses to start without its files, and closes.
#include <fstream>

#include "ui/ui_fixture.h"

namespace tagrix::ui {
namespace {

using StartTest = UiTest;

TEST_F(StartTest, ShowsEachPageAtAClick) {
  const Program& program = Start();
  // A control of each page, in the order of the buttons.
  const char* shown[] = {"mp3_lst",  "lister_input_txt", "bulk_lst",        "pls_lst",
                         "burn_lst", "setup_lngcmb",     "about_update_btn"};
  for (int page = 6; page >= 0; --page) {
    program.Click("page_btn" + std::to_string(page));
    const auto onlyThis = [&] {
      bool fits = true;
      for (int other = 0; other < 7; ++other) fits = fits && program.Shows(shown[other]) == (other == page);
      return fits;
    };
    EXPECT_TRUE(Until(onlyThis)) << shown[page];
    Picture(std::to_string(page));
  }
  EXPECT_TRUE(program.Enabled("browse_btn"));
  EXPECT_FALSE(program.Enabled("fetch_btn"));
  program.Close("tagrix");
  EXPECT_TRUE(program.Ends());
}

TEST_F(StartTest, NeedsTheDefaultLanguage) {
  std::filesystem::remove(folder_ / "english.lf");
  const Program& program = Start();
  EXPECT_EQ(program.Message(), L"Default language file (English) missing !!");
  EXPECT_FALSE(program.Shows("tagrix"));
  program.Answer(IDOK);
  EXPECT_TRUE(program.Ends());
}

TEST_F(StartTest, NeedsWholeLanguage) {
  std::ofstream(folder_ / "english.lf", std::ios::binary) << std::string(100'000, '\xFE');
  const Program& program = Start();
  EXPECT_EQ(program.Message(), L"Language file error, you must reinstall Tagrix and contact technical support");
  program.Answer(IDOK);
  EXPECT_TRUE(program.Ends());
}

TEST_F(StartTest, NeedsItsImages) {
  std::filesystem::remove_all(folder_ / "skin");
  const Program& program = Start();
  EXPECT_EQ(program.Message(), L"default images missing, please reinstall Tagrix");
  program.Answer(IDOK);
  EXPECT_TRUE(program.Ends());
}

TEST_F(StartTest, StartsWithoutGenres) {
  std::filesystem::remove(folder_ / "styles.dat");
  const Program& program = Start();
  EXPECT_NE(program.Message().find(L"styles.dat"), std::wstring::npos);
  program.Answer(IDOK);
  EXPECT_FALSE(program.Enabled("helpgenre_btn"));
}

TEST_F(StartTest, SpeaksTheLanguageOfTheSettings) {
  SetSetting(L"langue", L" french ");
  const Program& program = Start();
  const std::wstring caption = program.Text("browse_btn");
  EXPECT_FALSE(caption.empty());
  program.Close("tagrix");
  ASSERT_TRUE(program.Ends());
  SetSetting(L"langue", L"nothing of this name");
  EXPECT_NE(Start().Text("browse_btn"), caption);
}

}  // namespace
}  // namespace tagrix::ui
