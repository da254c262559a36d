#include "session/name_plan.h"

#include <gtest/gtest.h>

#include "fakes/fake_files.h"

namespace tagrix {
namespace {

// Each position's new name and what stands in its way: T taken, L too long, E empty, - none.
std::vector<std::wstring> Plan(const AlbumSession& session, FakeFiles& files, const wchar_t* pattern) {
  NamePlan plan(session, files, pattern, L"2004");
  std::vector<std::wstring> names;
  for (int i = 0; i < FileCount(session); ++i) {
    const auto& planned = plan.At(i);
    names.push_back(planned ? L"-TLE"[static_cast<int>(planned->trouble)] + planned->name : std::wstring());
  }
  return names;
}

TEST(NamePlan, SaysWhatApplyWillMeet) {
  using Names = std::vector<std::wstring>;
  FakeFiles files;
  AlbumSession session;
  session.folder = L"C:\\M";
  for (const wchar_t* name : {L"two.mp3", L"b.mp3", L"c.mp3"}) {
    files.Put(AlbumPath(session, name));
    session.files.push_back({name});
  }
  session.files.push_back(AlbumFile::Fake());
  session.files.push_back({L"e.mp3"});
  files.Put(L"C:\\M\\Stranger.mp3");
  session.disc = {L"A", L"B", L"", L"03", {{L"One"}, {L"TWO"}, {L"?"}, {L"x"}}};
  // The first file has left its name when the second wants it; the last has no track.
  EXPECT_EQ(Plan(session, files, L"%2"), (Names{L"-One.mp3", L"-TWO.mp3", L"E.mp3", L"", L""}));
  EXPECT_EQ(Plan(session, files, L"%4"), (Names{L"-2004.mp3", L"T2004.mp3", L"T2004.mp3", L"", L""}));
  EXPECT_EQ(Plan(session, files, L"stranger")[0], L"Tstranger.mp3");
  session.disc.tracks = {{L"c"}, {L"B"}, {L"two"}};
  EXPECT_EQ(Plan(session, files, L"%2"), (Names{L"Tc.mp3", L"-B.mp3", L"-two.mp3", L"", L""}));
  session.disc.tracks = {{std::wstring(252, L'x')}, {std::wstring(249, L'y')}};
  EXPECT_EQ(Plan(session, files, L"%2")[0][0], L'L');
  EXPECT_EQ(Plan(session, files, L"%2")[1][0], L'-');
}

}  // namespace
}  // namespace tagrix
