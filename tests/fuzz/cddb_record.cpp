// The disc record that a CDDB server answers.
#include <cassert>
#include <cstdint>

#include "freedb/cddb.h"

namespace tagrix {
namespace {

bool IsOneLine(std::string_view text) { return text.find("\r\n") == text.npos; }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view answer(reinterpret_cast<const char*>(data), size);
  const auto disc = ParseDiscRecord(answer);
  if (!disc) return 0;
  assert(answer.find("\r\n\r\n210") != answer.npos);
  assert(IsOneLine(disc->artist) && IsOneLine(disc->album) && IsOneLine(disc->year.value_or("")));
  assert(disc->tracks.size() * std::string_view("TITLE0=").size() <= size);
  std::size_t texts = disc->artist.size() + disc->album.size();
  for (const CddbTrack& track : disc->tracks) {
    assert(IsOneLine(track.title));
    texts += track.title.size();
  }
  assert(texts <= 2 * size + (1 << 20));
  return 0;
}

}  // namespace tagrix
