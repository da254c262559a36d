#include "session/measure_album.h"

#include <gtest/gtest.h>

#include "dialogs/fixtures.h"
#include "fakes/quiet_progress.h"

namespace tagrix {
namespace {

// Sound behind a tag of 16000 bytes, which the quick way takes for four seconds of sound.
std::string Covered(const std::string& sound, const std::string& picture = {}) {
  return std::string("ID3\3\0\0\0\0\x7D\0", 10) + picture + std::string(16000 - picture.size(), '\0') + sound;
}

struct MeasureAlbumTest : testing::Test, FakeFiles, MeasureWatcher {
  // Lays files ("": one that is gone) and tracks of so many seconds.
  void Lay(std::initializer_list<std::string> contents, std::initializer_list<double> tracks) {
    session = {};
    session.folder = L"C:";
    for (const std::string& content : contents) {
      session.files.push_back({std::to_wstring(session.files.size())});
      if (!content.empty()) Put(AlbumPath(session, session.files.back().name), content);
    }
    for (const double seconds : tracks) session.disc.tracks.push_back({L"", static_cast<int>(seconds * 75)});
  }
  // The times and the order, and whether all were measured exactly.
  void Expect(const std::vector<std::int32_t>& milliseconds, const std::vector<int>& order, bool exactly) {
    const AlbumTimes times = MeasureAlbum(session, *this, progress, *this);
    EXPECT_EQ(times.milliseconds, milliseconds);
    EXPECT_EQ(times.allExact, exactly);
    EXPECT_EQ(SortAlbum(session, times, progress), order);
  }
  void Measured(std::size_t, std::int32_t) override { ++measured; }
  void NotRead(const Failure&) override {}

  AlbumSession session;
  QuietProgress progress;
  int measured = 0;
};

TEST_F(MeasureAlbumTest, MeasuresExactlyWhatHasNoQuickTimeAndAllWhereQuickTimesFitInNoOrder) {
  // A header that is not valid, no sound, and a file that is gone, beside one that is measured with its cover.
  Lay({Covered(SmallMp3(2400)), "no sound", Covered(SmallMp3(4800), "\xFF\xFB\xFC"), {}}, {5, 6, 1, 1});
  Expect({6402, 0, 4800, 0}, {2, 0, 1, 3}, false);
  Lay({Covered(SmallMp3(4800)), SmallMp3(9600), SmallMp3(7200)}, {5, 7, 10});
  Expect({4800, 9600, 7200}, {0, 2, 1}, true);
  measured = 0;
  progress.eachTime = [&] { progress.cancelled = measured >= 4; };  // one file the second time
  Expect({4800, 0, 0}, {1, 2, 0}, true);
}

TEST_F(MeasureAlbumTest, SortsExactTimesAsAWholeWhereThatDeviatesLess) {
  const auto order = [&](std::vector<std::int32_t> times, std::initializer_list<double> tracks, bool exact) {
    Lay({}, tracks);
    return SortAlbum(session, {std::move(times), 0, exact}, progress);
  };
  EXPECT_EQ(order({101000, 99000}, {100, 102}, false), (std::vector<int>{0, 1}));
  EXPECT_EQ(order({101000, 99000}, {100, 102}, true), (std::vector<int>{1, 0}));
  // The second file is no track of this disc: as a whole it would move all others from their places.
  EXPECT_EQ(order({200500, 250000, 300200}, {200, 300, 100}, true), (std::vector<int>{0, 2, 1}));
}

}  // namespace
}  // namespace tagrix
