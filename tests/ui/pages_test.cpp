// Each side page by clicks and keys: a whole way through it, and the worst that can go wrong there.
#include <algorithm>
#include <fstream>

#include "ui/ui_fixture.h"

namespace tagrix::ui {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::wstring>;

class PagesTest : public UiTest {
 protected:
  void SetUp() override {
    UiTest::SetUp();
    music_ = folder_ / "My music";
    fs::create_directories(music_ / "Live");
    SetSetting(L"LastDir", music_.wstring());
    SetSetting(L"AutoUpd", L"0");
  }

  void Write(const std::string& name, const std::string& bytes = "music") const {
    std::ofstream(music_ / name, std::ios::binary) << bytes;
  }

  const Program& Open(const std::string& pageButton) {
    const Program& program = Start();
    program.Click(pageButton);
    return program;
  }

  // Takes the folder on which the chooser opens.
  static void Choose(const Program& program, const std::string& button, bool withSubfolders = false) {
    program.Click(button);
    if (withSubfolders) program.Click("recurse_chk");
    program.Click("ok_btn");
    ASSERT_TRUE(Until([&] { return !program.Shows("Choixrecoldir"); }));
  }

  static void Acknowledge(const Program& program, const std::wstring& message) {
    EXPECT_EQ(program.Message(), message);
    program.Answer(IDOK);
  }

  fs::path music_;
};

using ListerTest = PagesTest;

TEST_F(ListerTest, WritesACatalogueButNothingWithoutAnOutputFolder) {
  Write("one.mp3");
  Write("two.ogg");
  Write("Live/three.MP3", std::string(3'000'000, 'x'));
  const Program& program = Open("page_btn1");
  program.Fill("lister_input_txt", music_.wstring());
  program.Click("recurse_chk");
  program.Fill("ficname_txt", L"all");
  program.Fill("lister_output_txt", (music_ / "nowhere").wstring());
  program.Click("lister_go_btn");
  Acknowledge(program, L"The input or output directory does not exist. Please choose both with \"Browse\".");
  EXPECT_EQ(NamesIn(music_), (Names{L"Live", L"one.mp3", L"two.ogg"}));

  Choose(program, "output_btn");
  EXPECT_TRUE(Until([&] { return program.Text("lister_output_txt") == music_.wstring(); }));
  program.Fill("pattern_txt", L"%1|%2|%4");
  Picture("");
  program.Click("lister_go_btn");
  const fs::path catalogue = music_ / "all.txt";
  ASSERT_TRUE(Until([&] { return fs::exists(catalogue) && program.Enabled("lister_go_btn"); }));
  const std::string folder = music_.string();
  EXPECT_EQ(Bytes(catalogue), std::string("[").append(folder).append("]\r\none|.mp3|0.00 Mb\r\n\r\n[") + folder +
                                  "\\Live]\r\nthree|.MP3|2.86 Mb\r\n\r\n");
}

using BulkTest = PagesTest;

TEST_F(BulkTest, ShowsTheNewNamesRenamesAndTakesItBack) {
  Write("plain.mp3");
  Write("with_an_underscore.mp3");
  Write("Live/en_concert.ogg");
  const Program& program = Open("page_btn2");
  EXPECT_TRUE(Until([&] { return !program.Enabled("bulk_go_btn"); }));
  Choose(program, "addfolder_btn", true);
  ASSERT_TRUE(Until([&] { return program.Rows("bulk_lst").size() == 3; }));
  program.Click("under_chk");
  ASSERT_TRUE(Until([&] { return program.Enabled("bulk_go_btn"); }));
  EXPECT_EQ(program.Rows("bulk_lst", 1), (Names{L"plain.mp3", L"with an underscore.mp3", L"en concert.ogg"}));
  Picture("");

  program.Click("bulk_go_btn");
  Acknowledge(program, L"Done.\r\n\r\nFiles renamed: 2 of 3");
  EXPECT_EQ(NamesIn(music_), (Names{L"Live", L"plain.mp3", L"with an underscore.mp3"}));
  EXPECT_EQ(NamesIn(music_ / "Live"), (Names{L"en concert.ogg"}));

  program.Click("bulk_undo_btn");
  ASSERT_TRUE(Until([&] { return fs::exists(music_ / "Live" / "en_concert.ogg"); }));
  EXPECT_EQ(NamesIn(music_), (Names{L"Live", L"plain.mp3", L"with_an_underscore.mp3"}));
  EXPECT_TRUE(Until([&] { return program.Enabled("bulk_go_btn") && !program.Enabled("bulk_undo_btn"); }));
}

TEST_F(BulkTest, KeepsBothFilesWhenTheNameIsTaken) {
  Write("a_song.mp3", "under");
  Write("a song.mp3", "blank");
  const Program& program = Open("page_btn2");
  Choose(program, "addfolder_btn");
  program.Click("under_chk");
  program.Click("bulk_go_btn");
  Acknowledge(program, L"The file could not be renamed to \"" + (music_ / "a song.mp3").wstring() + L"\".");
  ASSERT_TRUE(Until([&] { return program.Message().starts_with(L"Done."); }));
  program.Answer(IDOK);
  EXPECT_EQ(Bytes(music_ / "a_song.mp3"), "under");
  EXPECT_EQ(Bytes(music_ / "a song.mp3"), "blank");

  // The list holds the name that was meant: what stands there is not the file to take back.
  program.Click("bulk_undo_btn");
  EXPECT_TRUE(program.Message().starts_with(L"The former name"));
  program.Answer(IDOK);
  EXPECT_EQ(Bytes(music_ / "a_song.mp3"), "under");
  EXPECT_EQ(Bytes(music_ / "a song.mp3"), "blank");
}

using PlaylistTest = PagesTest;

TEST_F(PlaylistTest, WritesThePlaylistButReplacesNoneUnasked) {
  Write("one.mp3");
  Write("Live/two.ogg");
  Write("Best.m3u", "old\r\n");
  const Program& program = Open("page_btn3");
  Choose(program, "pls_addfolder_btn", true);
  program.Fill("pls_name_txt", L" Best ");
  EXPECT_FALSE(program.Enabled("pls_go_btn"));
  Choose(program, "pls_output_btn");
  EXPECT_TRUE(Until([&] { return program.Text("pls_output_txt") == music_.wstring(); }));
  Picture("");

  const std::wstring question = L"The playlist exists already. Do you want to replace it?";
  program.Click("pls_go_btn");
  EXPECT_EQ(program.Message(), question);
  program.Answer(IDNO);
  ASSERT_TRUE(Until([&] { return program.Enabled("pls_go_btn"); }));
  EXPECT_EQ(Bytes(music_ / "Best.m3u"), "old\r\n");

  program.Click("pls_go_btn");
  EXPECT_EQ(program.Message(), question);
  program.Answer(IDYES);
  ASSERT_TRUE(Until([&] { return program.Message() != question; }));
  Acknowledge(program, L"Done.");
  EXPECT_EQ(Bytes(music_ / "Best.m3u"), "one.mp3\r\nLive\\two.ogg\r\n");
  EXPECT_EQ(NamesIn(music_), (Names{L"Best.m3u", L"Live", L"one.mp3"}));
}

class BurnTest : public PagesTest {
 protected:
  // An MP3 file of so many seconds at 128 kbit/s.
  void WriteSong(const std::string& name, size_t seconds) const {
    Write(name, "\xFF\xFB\x90" + std::string(seconds * 16'000 - 3, '\0'));
  }
};

TEST_F(BurnTest, HandsTheCompilationToTheBurningProgram) {
  // Stands where the system would look first for a path with a blank.
  fs::copy(BurnerFolder() / "copytocd.exe", folder_ / "my.exe");
  WriteSong("first.mp3", 61);
  WriteSong("second.mp3", 4);
  Write("no music.mp3");
  const Program& program = Open("page_btn4");
  Choose(program, "burn_addfolder_btn");
  ASSERT_TRUE(Until([&] { return program.Rows("burn_lst", 1) == Names{L"1:01", L"0:04"}; }));
  EXPECT_EQ(program.Text("burn_time_lbl"), L"Total time : 1min 5sec ");
  program.ClickRow("burn_lst", 0);
  program.Click("burn_down_btn");
  ASSERT_TRUE(Until([&] { return program.Rows("burn_lst", 1) == Names{L"0:04", L"1:01"}; }));
  Picture("");

  program.Click("burn_btn");
  ASSERT_TRUE(Until([&] { return fs::exists(BurnerFolder() / "called.txt"); }));
  const std::string list = (folder_ / "list.c2c").string();
  EXPECT_EQ(Bytes(BurnerFolder() / "called.txt"),
            (BurnerFolder() / "copytocd.exe").string() + " /fl=\"" + list + "\" /cdaudio=\"" + list + "\"\n" +
                (music_ / "second.mp3").string() + "\r\n" + (music_ / "first.mp3").string() + "\r\n");
  EXPECT_TRUE(Until([&] { return program.Text("status_lbl").starts_with(L"CopyToDVD is at work"); }));
  EXPECT_FALSE(program.Enabled("burn_btn"));

  std::ofstream(BurnerFolder() / "end.txt");
  EXPECT_TRUE(Until([&] { return program.Enabled("burn_btn"); }));
  EXPECT_TRUE(fs::exists(BurnerFolder() / "ended.txt"));
  EXPECT_EQ(program.Text("status_lbl"), L"");
}

TEST_F(BurnTest, GoesOnWithoutTheBurningProgram) {
  WriteSong("first.mp3", 4);
  InstallBurner(false);
  const Program& program = Start();
  EXPECT_EQ(program.Message(),
            L"CopyToDVD, which burns the audio CDs, was not found. Do you want to visit the web site of its maker?");
  program.Answer(IDNO);
  program.Click("page_btn4");
  Choose(program, "burn_addfolder_btn");
  ASSERT_TRUE(Until([&] { return program.Rows("burn_lst").size() == 1; }));
  program.Click("burn_btn");
  EXPECT_TRUE(Until([&] { return program.Enabled("burn_btn"); }));
  program.Close("tagrix");
  EXPECT_TRUE(program.Ends());
}

using SetupTest = PagesTest;

TEST_F(SetupTest, SavesNothingWithAProxyWithoutNameAndChangesTheLanguageAtOnce) {
  const Program& program = Open("page_btn5");
  program.Fill("setup_pat_cmb", L"%6 %2");
  program.Click("setup_proxy_chk");
  program.Click("setup_ok_btn");
  Acknowledge(program, L"Please enter the proxy's server name, or untick \"Use HTTP Proxy\".");
  EXPECT_EQ(Setting(L"Pattern"), L"");
  EXPECT_EQ(Setting(L"UseProxy"), L"");

  program.Fill("setup_proxyname_txt", L"proxy.example");
  program.Click("setup_lngcmb");
  Press('F');
  Press(VK_RETURN);
  ASSERT_TRUE(Until([&] { return program.Text("setup_lngcmb") == L"french"; }));
  program.Click("setup_ok_btn");
  EXPECT_TRUE(Until([&] { return program.Text("page_btn1") == L"Catalogue"; }));
  Picture("");
  program.Click("page_btn0");
  EXPECT_TRUE(Until([&] { return program.Text("browse_btn") == L"&Parcourir"; }));
  EXPECT_EQ(Setting(L"langue"), L"french");
  EXPECT_EQ(Setting(L"Pattern"), L"%6 %2");
  EXPECT_EQ(Setting(L"UseProxy"), L"1");
}

using AboutTest = PagesTest;

TEST_F(AboutTest, TellsTheVersionAndLooksForUpdates) {
  const Program& program = Open("page_btn6");
  EXPECT_EQ(program.Text("about_version_lbl"), L"Version " + std::to_wstring(TAGRIX_VERSION_MAJOR) + L"." +
                                                   std::to_wstring(TAGRIX_VERSION_MINOR) + L"." +
                                                   std::to_wstring(TAGRIX_VERSION_PATCH));
  Picture("");
  program.Click("about_update_btn");
  Acknowledge(program, L"The update server could not be reached. Please check your Internet connection.");
  EXPECT_TRUE(Until([&] { return program.Enabled("about_update_btn"); }));
}

}  // namespace
}  // namespace tagrix::ui
