// Albums with covers, which are no sound and stay in the files. tests/ui/covers.py makes them, and looks afterwards at
// the covers of the files that are left beside each.
#include <string>
#include <vector>

#include "ui/ui_fixture.h"

namespace tagrix::ui {
namespace {

namespace fs = std::filesystem;

constexpr int kDifference = 5;  // column of the table
constexpr const wchar_t *kQuickly = L"Measured the quick way", *kExactly = L"Measured exactly";

struct CoveredAlbum {
  const char* name;
  const wchar_t* measured;
  double off;  // seconds, at most
};

class CoversTest : public AlbumTest, public testing::WithParamInterface<CoveredAlbum> {};

TEST_P(CoversTest, DontCountAsSoundAndStay) {
  const fs::path made = PathFrom(L"TAGRIX_COVERS") / GetParam().name;
  fs::remove_all(made / "tagged");
  album_ = folder_ / GetParam().name;
  fs::copy(made / "album", album_);
  const Program& program = StartWithDisc(L"picture frames");
  program.Click("autosort_btn");
  program.Click("search_btn");
  ASSERT_TRUE(Until([&] { return program.Enabled("ok_btn"); }));
  Picture(" 1 sorted");
  EXPECT_TRUE(program.Text("how_lbl").starts_with(GetParam().measured))
      << testing::PrintToString(program.Text("how_lbl"));
  const std::vector<std::wstring> differences = program.Rows("lst", kDifference);
  ASSERT_EQ(differences.size(), 8U);
  for (const std::wstring& difference : differences) {
    EXPECT_LE(std::stod(difference.substr(1)), GetParam().off)
        << testing::PrintToString(difference);  // behind the sign
  }
  program.Click("ok_btn");

  program.Click("apply_btn");
  program.Click("standard_btn");
  program.Window("summary");
  EXPECT_TRUE(program.Text("text_lbl").starts_with(L"Files done: 8 of 8. Tagged: 8, renamed: 8, skipped: 0."));
  Picture(" 2 applied");
  Press(VK_RETURN);
  fs::copy(album_, made / "tagged");
  const std::vector<std::wstring> names = NamesIn(album_);  // in the order of the disc, then the playlist
  ASSERT_EQ(names.size(), 9U);
  EXPECT_EQ(names[3], L"Ada Thornbury - 04 - Under Glass.mp3");
  for (std::size_t i = 0; i < 8; ++i) {
    const std::string sound = Bytes(made / "sounds" / (std::to_string(i + 1) + ".mp3"));
    EXPECT_NE(Bytes(album_ / names[i]).find(sound), std::string::npos) << testing::PrintToString(names[i]);
  }
}

// By a Xing header where the quick way looks for it, that measures well enough whatever the size of the file; without a
// header, what encoders add counts as sound.
INSTANTIATE_TEST_SUITE_P(
    Of, CoversTest,
    testing::Values(CoveredAlbum{"constant", kExactly, 0}, CoveredAlbum{"large", kExactly, 0},
                    CoveredAlbum{"png", L"Measured the quick way, by size and bit rate; 8 of 8 files exactly", 0},
                    CoveredAlbum{"mono", kExactly, 0.1}, CoveredAlbum{"old", kQuickly, 0.3}),
    [](const testing::TestParamInfo<CoveredAlbum>& album) { return album.param.name; });

}  // namespace
}  // namespace tagrix::ui
