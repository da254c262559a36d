#include "tags/tagged_file.h"

#include <algorithm>

#include "base/failure.h"
#include "base/letter_case.h"
#include "base/paths.h"
#include "base/text.h"

namespace tagrix {
namespace {

constexpr std::size_t kCopied = 1 << 20;  // what is copied at a time; at most 3 MiB

}  // namespace

bool OnLabelledVolume(Files& files, const std::wstring& path) {
  return path.size() >= 3 && files.HasVolumeLabel(path.substr(0, 2));
}

std::unique_ptr<File> OpenOnLabelledVolume(Files& files, const std::wstring& path) {
  if (!OnLabelledVolume(files, path)) return nullptr;
  const auto found = files.Find(path);
  return found && !found->folder ? files.OpenForReading(path) : nullptr;
}

bool CanBeTagged(Files& files, const std::wstring& path) {
  // A path to a file that is there, with a drive, needs no look at the drive.
  if (path.size() < 3 || path[1] != L':' || EqualIgnoringCase(FileNamePart(path), kTaggedCopy)) return false;
  const auto found = files.Find(path);
  return found && !found->folder && !found->readOnly;
}

void ShowTagging(Progress& progress, const wchar_t* step, const std::wstring& path) {
  progress.Status(step + Trim(path));
  progress.LetEventsRun();
}

void CopyPart(File& file, const std::wstring& path, std::uint64_t from, std::uint64_t to, TemporaryFile& target,
              Progress& progress) {
  if (from >= to) return;
  const auto longest = static_cast<std::size_t>(std::min<std::uint64_t>(kCopied, to - from));
  const auto piece = std::make_unique_for_overwrite<char[]>(longest);
  while (from < to) {
    const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(longest, to - from));
    if (file.Read(from, piece.get(), count) != count) throw Failure(Action::Read, path, Cause::Shrunk);
    target.Append({piece.get(), count});
    from += count;
    progress.LetEventsRun();
  }
}

}  // namespace tagrix
