#include "ui/ui_fixture.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>

namespace tagrix::ui {

namespace fs = std::filesystem;

fs::path PathFrom(const wchar_t* variable) {
  const wchar_t* path = _wgetenv(variable);
  return path == nullptr ? fs::path() : fs::path(L"Z:" + std::wstring(path)).make_preferred();
}

std::vector<std::wstring> NamesIn(const fs::path& folder) {
  std::vector<std::wstring> names;
  for (const auto& entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename().wstring());
  std::sort(names.begin(), names.end());
  return names;
}

std::string Bytes(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

void UiTest::ForgetSettings() {
  ClearSettings();
  SetSetting(L"AskCopyToDVD", L"0");
}

void UiTest::SetUp() {
  ForgetSettings();
  const fs::path program = PathFrom(L"TAGRIX_PROGRAM");
  ASSERT_TRUE(fs::exists(program)) << program;
  folder_ = fs::temp_directory_path() / "tagrix.ui";
  fs::remove_all(folder_);
  fs::create_directories(folder_);
  for (const auto& entry : fs::directory_iterator(program.parent_path())) {
    const fs::path ending = entry.path().extension();
    const bool text = ending == ".lf" || ending == ".lfx";
    const bool data = text || ending == ".exe" || ending == ".dat" || ending == ".wav";
    if (data || entry.path().filename() == "skin") {
      fs::copy(entry.path(), folder_ / entry.path().filename(), fs::copy_options::recursive);
    }
  }
}

void UiTest::TearDown() {
  if (HasFailure()) Picture(" failed");
  program_.reset();
  ClearSettings();
}

void UiTest::Picture(const std::string& suffix) {
  const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
  Sleep(500);  // the screen follows a moment later
  SaveScreenshot(PathFrom(L"TAGRIX_SCREENSHOTS") / (std::string(test.name()) + suffix + ".png"));
}

void AlbumTest::SetUp() {
  UiTest::SetUp();
  if (std::getenv("TAGRIX_PROXY_PORT") == nullptr) GTEST_SKIP() << "No disc server or no sample album is there.";
  album_ = folder_ / "Harbour";
  fs::copy(PathFrom(L"TAGRIX_SAMPLE"), album_);
  SetSetting(L"LastDir", album_.wstring());
  SetSetting(L"Source", L"FreeDB");
  SetSetting(L"UseProxy", L"1");
  SetSetting(L"ProxyName", L"127.0.0.1");
  const std::string port = std::getenv("TAGRIX_PROXY_PORT");
  SetSetting(L"ProxyPort", std::wstring(port.begin(), port.end()));
  SetSetting(L"MusicBrainzServer", L"http://127.0.0.1:" + std::wstring(port.begin(), port.end()));
  SetSetting(L"AutoUpd", L"0");
  SetSetting(L"Pattern", L"%1 - %6 - %2");
}

const Program& AlbumTest::StartWithDisc(const std::wstring& words) {
  const Program& program = Start(album_);
  EXPECT_TRUE(Until([&] { return program.Rows("mp3_lst").size() == NamesIn(album_).size(); }));
  program.Click("go_btn");
  program.Window("AskQuery");
  program.Fill("query_txt", words);
  Press(VK_RETURN);
  EXPECT_TRUE(Until([&] { return program.HasKeyboard("resalb_lst"); }));
  Press(VK_RETURN);
  // The one that is there at last, and the one that is closed as long as the program is busy.
  EXPECT_TRUE(Until([&] { return program.Enabled("apply_btn") && program.Enabled("go_btn"); }));
  return program;
}

}  // namespace tagrix::ui
