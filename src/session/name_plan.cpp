#include "session/name_plan.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "base/file_names.h"
#include "base/text.h"
#include "session/rename_pattern.h"

namespace tagrix {
namespace {

// The longest name, and the longest path that programs without a manifest of their own can open.
constexpr std::size_t kLongestName = 255, kLongestPath = 259;

bool HasFile(const AlbumSession& session, int i) { return !session.files[static_cast<std::size_t>(i)].fake; }

}  // namespace

std::wstring NewFileName(const AlbumSession& session, int i, std::wstring_view pattern, std::wstring_view year) {
  const Disc& disc = session.disc;
  const bool isYear = disc.year && IsYear(*disc.year);
  const std::wstring base = CleanAndTrimFileName(
      ExpandPattern(pattern, disc.artist, disc.album, static_cast<std::int16_t>(i + 1),
                    disc.tracks.at(static_cast<std::size_t>(i)).title, isYear ? *disc.year : year, disc.genre));
  return SafeFileName(base + L"." + ToLower(session.format));
}

NamePlan::NamePlan(const AlbumSession& session, Files& files, std::wstring pattern, std::wstring year)
    : session_(session), files_(files), pattern_(std::move(pattern)), year_(std::move(year)) {
  const int count = std::min(FileCount(session), TrackCount(session));
  names_.resize(static_cast<std::size_t>(count));
  for (int i = 0; i < FileCount(session); ++i) {
    if (HasFile(session, i)) now_.emplace(session.files[static_cast<std::size_t>(i)].name, i);
  }
  for (int i = 0; i < count; ++i) {
    if (HasFile(session, i)) later_.emplace(NameOf(i), i);
  }
}

const std::optional<PlannedName>& NamePlan::At(int i) {
  static const std::optional<PlannedName> none;
  const auto at = static_cast<std::size_t>(i);
  if (at >= names_.size() || !HasFile(session_, i)) return none;
  if (!names_[at]) {
    std::wstring name = NameOf(i);
    const NameTrouble trouble = TroubleOf(i, name);
    names_[at] = PlannedName{std::move(name), trouble};
  }
  return names_[at];
}

NameTrouble NamePlan::TroubleOf(int i, const std::wstring& name) const {
  if (IsNoName(session_, name)) return NameTrouble::Empty;
  const std::wstring path = AlbumPath(session_, name);
  if (name.size() > kLongestName || path.size() > kLongestPath) return NameTrouble::TooLong;
  if (EqualIgnoringCase(name, session_.files[static_cast<std::size_t>(i)].name)) return NameTrouble::None;
  if (later_.at(name) < i) return NameTrouble::Taken;
  const auto owner = now_.find(name);
  if (owner == now_.end()) return files_.Find(path) ? NameTrouble::Taken : NameTrouble::None;
  return owner->second > i || owner->second >= TrackCount(session_) ? NameTrouble::Taken : NameTrouble::None;
}

}  // namespace tagrix
