#include "dialogs/audio_walk.h"

#include <deque>

#include "core/failure.h"
#include "core/helpers.h"
#include "core/paths.h"

namespace tagrix {
namespace {

constexpr int kEntriesBetweenEvents = 256;

}  // namespace

std::vector<std::wstring> AudioFilesBelow(Context& context, const std::wstring& folder, bool recurse) {
  std::vector<std::wstring> found;
  std::deque<std::wstring> lst{WithoutBackslash(folder)};  // folders still to be walked
  int entries = 0;
  for (bool first = true; !lst.empty() && !context.cancelled; first = false) {
    const std::wstring current = WithBackslash(std::move(lst.front()));
    lst.pop_front();
    SetStatus(context, DoubleAmpersands(current));
    context.events.DoEvents();
    try {
      context.files.List(current, L"*", [&](const FileInfo& entry) {
        if (!entry.folder) {
          if (IsAudioName(entry.name)) found.push_back(current + entry.name);
        } else if (recurse && !entry.link) {
          lst.push_back(current + entry.name);
        }
        if (++entries % kEntriesBetweenEvents == 0) context.events.DoEvents();
        return !context.cancelled;
      });
    } catch (const Failure&) {
      if (first) throw;
    }
  }
  SetStatus(context, L"");
  return found;
}

}  // namespace tagrix
