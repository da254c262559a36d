// Pictures of every page and dialog, with the sample album in them. Run by scripts/pictures.
#include "ui/ui_fixture.h"

namespace tagrix::ui {
namespace {

// TAGRIX_LANGUAGE names the language.
class PicturesTest : public AlbumTest {
 protected:
  void SetUp() override {
    SetThreadDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
    AlbumTest::SetUp();
    if (IsSkipped()) return;
    const std::filesystem::path album = L"C:\\Music\\Harbour Lights";
    std::filesystem::remove_all(album);
    std::filesystem::create_directories(album.parent_path());
    std::filesystem::copy(album_, album);
    SetSetting(L"LastDir", album.wstring());
    Speak();
  }

  static void Speak() {
    if (const wchar_t* language = _wgetenv(L"TAGRIX_LANGUAGE")) SetSetting(L"langue", language);
  }

  void Keep(const std::string& name, const std::string& form = "tagrix") const {
    Sleep(500);  // the screen follows a moment later
    SaveScreenshot(PathFrom(L"TAGRIX_SCREENSHOTS") / (name + ".png"), program_->Window(form));
  }
  // Opens a dialog, keeps its picture and presses one of its buttons.
  void Open(const char* opener, const char* form, const char* name, const char* button) const {
    program_->Click(opener);
    program_->Window(form);
    Keep(name, form);
    program_->Click(button);
  }
  // A page whose list is filled from the album's folder.
  void KeepFilled(int page, const char* add, const char* list, const char* name) const {
    program_->Click("page_btn" + std::to_string(page));
    program_->Click(add);
    program_->Window("Choixrecoldir");
    if (page == 2) Keep("folders", "Choixrecoldir");
    program_->Click("ok_btn");
    EXPECT_TRUE(Until([&] { return program_->Rows(list).size() >= 8; }));
    Keep(name);
  }
};

TEST_F(PicturesTest, DISABLED_OfEveryPageAndDialog) {
  const Program& program = Start();
  program.Window("tagrix");
  Keep("start");
  Open("browse_btn", "Choixrecoldir", "folder", "ok_btn");
  Open("go_btn", "AskQuery", "query", "ok_btn");
  ASSERT_TRUE(Until([&] { return !program.Rows("resalb_lst").empty(); }));
  program.ClickRow("resalb_lst", 0);
  program.Click("fetch_btn");
  ASSERT_TRUE(Until([&] { return program.Enabled("apply_btn") && program.Enabled("go_btn"); }));
  program.Click("apply_btn");
  program.Window("question");
  Keep("question", "question");
  Press(VK_ESCAPE);
  program.Click("info_btn");
  program.Window("statistics");
  ASSERT_TRUE(Until([&] { return program.Enabled("ok_btn"); }));
  Keep("statistics-before", "statistics");
  program.Click("ok_btn");
  program.Click("autosort_btn");
  program.Click("search_btn");
  ASSERT_TRUE(Until([&] { return program.Enabled("ok_btn"); }));
  Keep("autosort", "Autosort");
  program.Click("ok_btn");
  Open("info_btn", "statistics", "statistics", "ok_btn");
  program.ClickRow("mp3_lst", 1);
  program.ClickRow("mp3_lst", 1);
  program.Window("trackedit");
  Keep("title", "trackedit");
  program.Click("cancel_btn");
  Open("helpgenre_btn", "genre", "genre", "cancel_btn");
  Keep("album");
  Open("apply_btn", "AskTagStyle", "style", "standard_btn");
  program.Window("summary");
  Keep("summary", "summary");
  Press(VK_RETURN);
  Keep("applied");

  KeepFilled(2, "addfolder_btn", "bulk_lst", "bulk");
  KeepFilled(3, "pls_addfolder_btn", "pls_lst", "playlist");
  KeepFilled(4, "burn_addfolder_btn", "burn_lst", "burn");

  // As a new user finds them.
  program_.reset();
  ForgetSettings();
  Speak();
  Start();
  for (const auto& [page, name] : {std::pair(1, "lister"), {5, "setup"}, {6, "about"}}) {
    program_->Click("page_btn" + std::to_string(page));
    Keep(name);
  }
}

}  // namespace
}  // namespace tagrix::ui
