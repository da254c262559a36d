#include "sources/musicbrainz_json.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <limits>
#include <nlohmann/json.hpp>

#include "base/text.h"
#include "base/utf8.h"

namespace tagrix::musicbrainz {
namespace {

constexpr std::size_t kTextPiece = 1 << 16;  // bytes between two looks at what goes on outside
constexpr std::size_t kLongestText = 4096;   // bytes
constexpr std::size_t kDeepest = 32;

// The text byte by byte, with a pause before each piece.
class Bytes {
 public:
  using iterator_category = std::input_iterator_tag;
  using value_type = char;
  using difference_type = std::ptrdiff_t;
  using pointer = const char*;
  using reference = const char&;

  Bytes(const char* at, const char* end, const std::function<bool()>& goOn)
      : at_(at), pieceEnd_(at), end_(end), goOn_(&goOn) {
    NextPiece();
  }

  reference operator*() const { return *at_; }
  Bytes& operator++() {
    if (++at_ != pieceEnd_) return *this;
    if (at_ != end_ && !(*goOn_)()) at_ = end_;
    NextPiece();
    return *this;
  }
  bool operator==(const Bytes& other) const { return at_ == other.at_; }
  bool operator!=(const Bytes& other) const { return at_ != other.at_; }

 private:
  // A piece in which no text begins or ends would be part of an endless number or text, which its reader gathers and
  // quotes when it is wrong: that takes very long.
  void NextPiece() {
    const std::string_view piece(at_, std::min<std::size_t>(kTextPiece, static_cast<std::size_t>(end_ - at_)));
    std::size_t mark = piece.find('"', 1);
    while (mark != piece.npos && piece[mark - 1] == '\\') mark = piece.find('"', mark + 1);
    const bool endless = piece.size() == kTextPiece && mark == piece.npos;
    if (endless) at_ = end_;
    pieceEnd_ = at_ == end_ ? end_ : at_ + piece.size();
  }

  const char *at_, *pieceEnd_, *end_;
  const std::function<bool()>* goOn_;
};

// Takes what the reader meets, whose place is told by the keys around it, joined by "/"; arrays add nothing to it. A
// search answers with a list of what a lookup answers with: "releases/title" is one of them.
class Handler : public nlohmann::json_sax<nlohmann::json> {
 public:
  std::optional<Reply> Result() { return complete_ ? std::optional(std::move(reply_)) : std::nullopt; }

  bool null() override { return true; }
  bool boolean(bool) override { return true; }
  bool binary(binary_t&) override { return true; }
  bool number_float(double, const std::string&) override { return true; }  // the service has whole numbers only
  bool number_integer(std::int64_t value) override { return Take(value); }
  bool number_unsigned(std::uint64_t value) override {
    return Take(static_cast<std::int64_t>(std::min<std::uint64_t>(value, std::numeric_limits<std::int64_t>::max())));
  }
  bool string(std::string& value) override { return Take(value); }
  bool key(std::string& name) override {
    std::replace(name.begin(), name.end(), '/', '?');
    place_.resize(outside_.back());
    if (!place_.empty()) place_ += '/';
    place_ += name;
    return place_.size() <= kLongestText;
  }
  bool start_object(std::size_t) override { return Enter() && Begin(); }
  bool start_array(std::size_t) override {
    if (place_ == kReleases) AddFound();
    return Enter();
  }
  bool end_object() override {
    Leave();
    return Finish();
  }
  bool end_array() override { return Leave(); }
  bool parse_error(std::size_t, const std::string&, const nlohmann::detail::exception&) override { return false; }

 private:
  static constexpr std::string_view kReleases = "releases";
  struct Credit {
    std::wstring name, artist, join;
  };

  bool Enter() {
    outside_.push_back(place_.size());
    return outside_.size() <= kDeepest;
  }
  bool Leave() {
    place_.resize(outside_.back());
    outside_.pop_back();
    complete_ = outside_.empty();
    return true;
  }

  // The place within a release.
  std::string_view Place() const {
    std::string_view place = place_;
    if (reply_.found && place.starts_with("releases/")) place.remove_prefix(kReleases.size() + 1);
    return place;
  }
  std::vector<Release>& AddFound() { return reply_.found ? *reply_.found : reply_.found.emplace(); }
  Release& Current() { return reply_.found && !reply_.found->empty() ? reply_.found->back() : reply_.release; }
  Medium* CurrentMedium() { return Current().media.empty() ? nullptr : &Current().media.back(); }
  Track* CurrentTrack() {
    Medium* medium = CurrentMedium();
    return medium == nullptr || medium->tracks.empty() ? nullptr : &medium->tracks.back();
  }

  // An object begins.
  bool Begin() {
    const std::string_view place = Place();
    if (place == kReleases) {
      AddFound().emplace_back();
      return --releasesLeft_ >= 0;
    }
    if (place == "media") {
      Current().media.emplace_back();
      return --mediaLeft_ >= 0;
    }
    if (Medium* medium = CurrentMedium(); medium != nullptr && place == "media/tracks") {
      medium->tracks.emplace_back();
      return --tracksLeft_ >= 0;
    }
    if (place.ends_with("artist-credit")) credit_ = {};
    if (place == "genres") genre_ = {};
    return true;
  }

  // An object has ended.
  bool Finish() {
    const std::string_view place = Place();
    Track* track = CurrentTrack();
    const auto credit = [this] { return (credit_.name.empty() ? credit_.artist : credit_.name) + credit_.join; };
    if (place == "artist-credit") {
      Current().artist += credit();
      return Current().artist.size() <= kLongestText;
    }
    if (place == "media/tracks/artist-credit" && track != nullptr) {
      track->artist += credit();
    } else if (place == "genres" && (Current().genre.empty() || genre_.votes > Current().genreVotes)) {
      Current().genre = genre_.name;
      Current().genreVotes = genre_.votes;
    }
    return true;
  }

  bool Take(const std::string& value) {
    std::wstring* target = TextAt(Place());
    if (target == nullptr) return true;
    if (value.size() > kLongestText) return false;
    *target = WithoutControls(FromUtf8(value).value_or(std::wstring()));
    return true;
  }
  std::wstring* TextAt(std::string_view place) {
    if (place == "error") return &reply_.error;
    if (place == "id") return &Current().id;
    if (place == "title") return &Current().title;
    if (place == "date") return &Current().date;
    if (place == "country") return &Current().country;
    if (place == "genres/name") return &genre_.name;
    if (place.ends_with("artist-credit/name")) return &credit_.name;
    if (place.ends_with("artist-credit/artist/name")) return &credit_.artist;
    if (place.ends_with("artist-credit/joinphrase")) return &credit_.join;
    if (Medium* medium = CurrentMedium(); medium != nullptr && place == "media/format") return &medium->format;
    if (Track* track = CurrentTrack(); track != nullptr && place == "media/tracks/title") return &track->title;
    return nullptr;
  }

  bool Take(std::int64_t value) {
    std::int64_t* target = NumberAt(Place());
    if (target != nullptr) *target = value;
    return true;
  }
  std::int64_t* NumberAt(std::string_view place) {
    if (place == "genres/count") return &genre_.votes;
    if (Medium* medium = CurrentMedium(); medium != nullptr) {
      if (place == "media/position") return &medium->position;
      if (place == "media/track-count") return &medium->trackCount;
    }
    if (Track* track = CurrentTrack(); track != nullptr) {
      if (place == "media/tracks/length") return &track->length;
      if (place == "media/tracks/recording/length") return &track->recordingLength;
    }
    return nullptr;
  }

  Reply reply_;
  std::string place_;
  std::vector<std::size_t> outside_;  // of each open object or array: the length of the place where it stands
  Credit credit_;                     // that is being read
  struct {
    std::wstring name;
    std::int64_t votes = 0;
  } genre_;  // likewise
  int releasesLeft_ = 1000, mediaLeft_ = 5000, tracksLeft_ = 100'000;
  bool complete_ = false;
};

}  // namespace

std::optional<Reply> ParseReply(std::string_view json, const std::function<bool()>& goOn) {
  const char* end = json.data() + json.size();
  Handler handler;
  if (!nlohmann::json::sax_parse(Bytes(json.data(), end, goOn), Bytes(end, end, goOn), &handler)) return std::nullopt;
  return handler.Result();
}

}  // namespace tagrix::musicbrainz
