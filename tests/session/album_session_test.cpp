#include "session/album_session.h"

#include <gtest/gtest.h>

namespace tagrix {

TEST(AlbumSession, CanBeSortedWhenEveryTrackHasItsFile) {
  AlbumSession session;
  session.disc.tracks = {{L"One"}, {L"Two"}};
  session.files = {{L"a.mp3"}, AlbumFile::Fake()};
  EXPECT_FALSE(CanBeSorted(session));
  session.files[1] = {L"b.mp3"};
  EXPECT_TRUE(CanBeSorted(session));
  session.files.push_back({L"c.mp3"});
  EXPECT_FALSE(CanBeSorted(session));
}

TEST(AlbumSession, NumbersItsTracks) {
  AlbumSession session;
  session.disc.tracks.assign(123, {L"Intro"});
  session.disc.tracks[8].edited = true;
  EXPECT_EQ(TrackLine(session, 0), L"[01] Intro");
  EXPECT_EQ(TrackLine(session, 8), L"[09]Intro");
  EXPECT_EQ(TrackLine(session, 122), L"[123] Intro");
}

}  // namespace tagrix
