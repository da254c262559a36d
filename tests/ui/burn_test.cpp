// The hand-over of a compilation to the burning program, by clicks.
#include <fstream>

#include "ui/ui_fixture.h"

namespace tagrix::ui {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::wstring>;
using BurnTest = UiTest;

void Write(const fs::path& path, const std::string& bytes) { std::ofstream(path, std::ios::binary) << bytes; }

// An MP3 file of so many seconds at 128 kbit/s.
std::string Song(size_t seconds) { return "\xFF\xFB\x90" + std::string(seconds * 16'000 - 3, '\0'); }

TEST_F(BurnTest, HandsTheCompilationToTheBurningProgram) {
  // Stands where the system would look first for a path with a blank.
  fs::copy(BurnerFolder() / "copytocd.exe", folder_ / "my.exe");
  const fs::path music = folder_ / "My music";
  fs::create_directories(music);
  Write(music / "first.mp3", Song(61));
  Write(music / "second.mp3", Song(4));
  Write(music / "no music.mp3", "music");
  SetSetting(L"LastDir", music.wstring());
  SetSetting(L"AutoUpd", L"0");
  const Program& program = Start();
  program.Click("page_btn4");
  program.Click("burn_addfolder_btn");
  program.Click("ok_btn");
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
                (music / "second.mp3").string() + "\r\n" + (music / "first.mp3").string() + "\r\n");
  EXPECT_TRUE(Until([&] { return program.Text("status_lbl").starts_with(L"CopyToDVD is at work"); }));
  EXPECT_FALSE(program.Enabled("burn_btn"));

  std::ofstream(BurnerFolder() / "end.txt");
  EXPECT_TRUE(Until([&] { return program.Enabled("burn_btn"); }));
  EXPECT_TRUE(fs::exists(BurnerFolder() / "ended.txt"));
  EXPECT_EQ(program.Text("status_lbl"), L"");
}

TEST_F(BurnTest, AsksOverTheWindowWhenItIsMissing) {
  InstallBurner(false);
  SetSetting(L"AutoUpd", L"0");
  const Program& program = Start();
  program.Window("question");
  EXPECT_TRUE(program.Shows("tagrix"));
  program.Click("again_chk");
  Picture("");
  program.Click("answer1_btn");
  ASSERT_TRUE(Until([&] { return Setting(L"AskCopyToDVD") == L"0"; }));
}

}  // namespace
}  // namespace tagrix::ui
