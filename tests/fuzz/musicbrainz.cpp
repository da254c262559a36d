// What MusicBrainz's web service answers.
#include "sources/musicbrainz.h"

#include <cassert>
#include <cstdint>

namespace tagrix {
namespace {

void Check(const musicbrainz::Release& release) {
  const auto hits = musicbrainz::HitsOf(release);
  assert(hits.size() == release.media.size());
  std::size_t tracks = 0;
  for (const musicbrainz::Medium& medium : release.media) tracks += medium.tracks.size();
  for (const DiscHit& hit : hits) {
    assert(hit.id == release.id && hit.title.size() < 20'000);
    const auto disc = musicbrainz::DiscOf(release, std::stoll(hit.category));
    assert(disc && !disc->genre.empty() && disc->year && disc->tracks.size() <= tracks);
    for (const DiscTrack& track : disc->tracks) assert(track.frames >= 0);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view json(reinterpret_cast<const char*>(data), size);
  std::size_t pauses = 0;
  const auto reply = musicbrainz::ParseReply(json, [&] { return ++pauses <= size; });
  if (!reply) return 0;
  assert(pauses <= size);
  Check(reply->release);
  for (const musicbrainz::Release& release : reply->found.value_or(std::vector<musicbrainz::Release>())) Check(release);
  return 0;
}

}  // namespace tagrix
