#include "tags/id3tag.h"

#include <algorithm>
#include <memory>
#include <string_view>

#include "core/failure.h"
#include "core/helpers.h"
#include "core/paths.h"
#include "core/temporary_file.h"
#include "core/text.h"
#include "tags/id3v1.h"
#include "tags/id3v2.h"
#include "tags/tagged_file.h"

namespace tagrix {
namespace {

constexpr std::size_t kPiece = 1 << 20;  // what is copied at a time; at most 3 MiB
constexpr const wchar_t* kTemporaryName = L"temp";

bool CanBeTagged(Files& files, const std::wstring& path) {
  // A path to a file that is there, with a drive, needs no look at the drive.
  if (path.size() < 3 || path[1] != L':' || EqualIgnoringCase(FileNamePart(path), kTemporaryName)) return false;
  const auto found = files.Find(path);
  return found && !found->folder && !found->readOnly;
}

void ShowStep(Context& context, const wchar_t* step, const std::wstring& path) {
  SetStatus(context, step + DoubleAmpersands(Trim(path)));
  context.events.DoEvents();
}

// The open audio file.
struct Source {
  const std::wstring& path;
  std::unique_ptr<File> file;
  std::uint64_t size;
  bool labelled;  // its volume
};

// What replaces the last bytes of the file: with an old tag all but its mark, without one the mark, too.
std::string Id3v1Bytes(const Source& source, const std::string& record) {
  const bool tagged = source.labelled && HasID3v1(*source.file, source.size);
  std::string bytes = tagged ? record : std::string(kId3v1Mark) + record;
  if (source.size < bytes.size()) throw Failure(L"Write the ID3v1 tag", source.path, L"The file is too short.");
  return bytes;
}

// Copies what stands from `from` to before `to`, letting pending events run.
void Copy(Context& context, const Source& source, std::uint64_t from, std::uint64_t to, TemporaryFile& target) {
  if (from >= to) return;
  const auto longest = static_cast<std::size_t>(std::min<std::uint64_t>(kPiece, to - from));
  const auto piece = std::make_unique_for_overwrite<char[]>(longest);
  while (from < to) {
    const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(longest, to - from));
    if (source.file->Read(from, piece.get(), count) != count) {
      throw Failure(L"Copy", source.path, L"The file has become shorter.");
    }
    target.Append({piece.get(), count});
    from += count;
    context.events.DoEvents();
  }
}

// Puts the new tag before what stands in the file from `oldTag` on, the last bytes replaced by `tail`. The header of
// the old tag is not counted in `oldTag`, so the last 10 bytes of the old tag stay: kept.
void Rewrite(Context& context, Source& source, const std::string& newTag, std::uint64_t oldTag, std::string_view tail) {
  TemporaryFile temporary(context.files, std::wstring(FolderPart(source.path)) + kTemporaryName);
  temporary.Append(newTag);
  const std::uint64_t end = source.size - tail.size();
  Copy(context, source, oldTag, end, temporary);
  if (oldTag > end) tail.remove_prefix(static_cast<std::size_t>(oldTag - end));
  temporary.Append(tail);
  temporary.Finish();
  source.file.reset();
  try {
    temporary.Replace(source.path);
  } catch (const Failure&) {
    ShowRenameFailure(context, source.path);
  }
}

// False when the file's old ID3v2 tag forbids a new one.
bool WriteWanted(Context& context, const TagFields& fields, Source& source, bool id3v1, bool id3v2) {
  const std::uint64_t oldTag = id3v2 && source.labelled ? GetID3v2Size(*source.file) : 0;
  if (oldTag >= kId3v2FirstByte || (oldTag > 0 && oldTag + kId3v2HeaderSize > source.size)) return false;
  std::string tail;
  if (id3v1) {
    const std::string record = BuildID3v1(fields, context.styles, context.codePage);
    ShowStep(context, L"Updating ID3v1 : ", source.path);
    tail = Id3v1Bytes(source, record);
    if (!id3v2) source.file->Write(source.size - tail.size(), tail);
  }
  if (id3v2) {
    ShowStep(context, L"Updating ID3v2 : ", source.path);
    Rewrite(context, source, BuildID3v2(fields, context.codePage), oldTag, tail);
  }
  return true;
}

}  // namespace

bool WriteTags(Context& context, const TagFields& fields, const std::wstring& path, bool id3v1, bool id3v2) {
  Files& files = context.files;
  if (!CanBeTagged(files, path)) return false;
  if (id3v1 || id3v2) {
    std::unique_ptr<File> file = id3v2 ? files.OpenForReading(path) : files.OpenForWriting(path);
    const std::uint64_t size = file->Size();
    Source source{path, std::move(file), size, OnLabelledVolume(files, path)};
    if (!WriteWanted(context, fields, source, id3v1, id3v2)) return false;
  }
  SetStatus(context, L"");
  return true;
}

}  // namespace tagrix
