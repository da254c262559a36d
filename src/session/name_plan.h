// What Apply will call the files of an album, and where that won't work.
#ifndef TAGRIX_SESSION_NAME_PLAN_H
#define TAGRIX_SESSION_NAME_PLAN_H

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/letter_case.h"
#include "session/album_session.h"

namespace tagrix {

// What the pattern makes of the file at a position, with its ending. `year` stands for an album's year that is none.
std::wstring NewFileName(const AlbumSession& session, int i, std::wstring_view pattern, std::wstring_view year);
// Whether nothing but the ending is left of it.
inline bool IsNoName(const AlbumSession& session, std::wstring_view name) {
  return name.size() <= session.format.size() + 1;
}

// Taken: another file bears the name when its turn comes. TooLong: for Windows, or for most programs.
enum class NameTrouble { None, Taken, TooLong, Empty };

struct PlannedName {
  std::wstring name;
  NameTrouble trouble = NameTrouble::None;
};

// Computes a name when it is first asked for. Stands for the session, the pattern and the folder as they are: when one
// of them changes a new plan is due. The session outlives it.
class NamePlan {
 public:
  NamePlan(const AlbumSession& session, Files& files, std::wstring pattern, std::wstring year);
  // Of a position that has a file and a track; nothing for others.
  const std::optional<PlannedName>& At(int i);

 private:
  using Owners = std::unordered_map<std::wstring, int, HashIgnoringCase, SameIgnoringCase>;
  std::wstring NameOf(int i) const { return NewFileName(session_, i, pattern_, year_); }
  NameTrouble TroubleOf(int i, const std::wstring& name) const;

  const AlbumSession& session_;
  Files& files_;
  const std::wstring pattern_, year_;
  std::vector<std::optional<PlannedName>> names_;  // those computed so far
  Owners now_, later_;                             // which file bears a name, and which is the first to get it
};

}  // namespace tagrix

#endif
