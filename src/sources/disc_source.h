// Where discs come from: words lead to hits, a hit to the record of a disc.
#ifndef TAGRIX_SOURCES_DISC_SOURCE_H
#define TAGRIX_SOURCES_DISC_SOURCE_H

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/progress.h"

namespace tagrix {

struct DiscTrack {
  std::wstring title;
  std::int32_t frames = 0;  // length in CD frames (1/75 second); 0 unknown
  bool edited = false;      // by the user's hand
};

struct Disc {
  std::wstring artist, album, genre;
  std::optional<std::wstring> year;  // as written, may be empty; none when the source has no such field
  std::vector<DiscTrack> tracks;
};

// A disc found by a search. What a source needs to read it again.
struct DiscHit {
  std::wstring title;         // "Artist / Album", as the user sees it
  std::wstring category, id;  // of the disc in its source
};

struct SearchQuery {
  std::wstring words;
  bool any = false;  // one of the words is enough, for more results
};

// How a request to a source ended. Given: with an answer, be it that there is nothing. NotSecure: whoever answers can't
// show that he is the source.
enum class Answer { Given, NotReached, NotSecure, Refused, Cancelled };
struct SourceReply {
  Answer answer = Answer::Given;
  std::wstring words = {};  // of a refusal, as the server puts it; may be empty
};

// Network failures are no exceptions: they are replies.
class DiscSource {
 public:
  virtual ~DiscSource() = default;
  // Hands over what is found, as it comes.
  virtual SourceReply Search(const SearchQuery& query, const std::function<void(std::vector<DiscHit>)>& found,
                             Progress& progress) = 0;
  // Fills `disc`, which stays as it was unless the record was given.
  virtual SourceReply Read(const DiscHit& hit, std::optional<Disc>& disc, Progress& progress) = 0;
};

}  // namespace tagrix

#endif
