#include "tags/id3tag.h"

#include <memory>
#include <string_view>

#include "base/failure.h"
#include "base/paths.h"
#include "storage/temporary_file.h"
#include "tags/id3v1.h"
#include "tags/id3v2.h"
#include "tags/tagged_file.h"

namespace tagrix {
namespace {

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
  if (source.size < bytes.size()) throw Failure(Action::Tag, source.path, Cause::TooShort);
  return bytes;
}

// Puts the new tag before what stands in the file from `oldTag` on, the last bytes replaced by `tail`. The header of
// the old tag is not counted in `oldTag`, so the last 10 bytes of the old tag stay: kept.
void Rewrite(Files& files, Progress& progress, Source& source, const std::string& newTag, std::uint64_t oldTag,
             std::string_view tail) {
  TemporaryFile temporary(files, std::wstring(FolderPart(source.path)) + kTaggedCopy, source.path);
  temporary.Append(newTag);
  const std::uint64_t end = source.size - tail.size();
  CopyPart(*source.file, source.path, oldTag, end, temporary, progress);
  if (oldTag > end) tail.remove_prefix(static_cast<std::size_t>(oldTag - end));
  temporary.Append(tail);
  temporary.Finish();
  source.file.reset();
  temporary.Replace();
}

// False when the file's old ID3v2 tag forbids a new one.
bool WriteWanted(const TagPorts& ports, const TagFields& fields, Source& source, bool id3v1, bool id3v2,
                 Progress& progress) {
  const std::uint64_t oldTag = id3v2 && source.labelled ? GetID3v2Size(*source.file) : 0;
  if (oldTag >= kId3v2FirstByte || (oldTag > 0 && oldTag + kId3v2HeaderSize > source.size)) return false;
  std::string tail;
  if (id3v1) {
    const std::string record = BuildID3v1(fields, ports.styles, ports.codePage);
    ShowTagging(progress, L"Updating ID3v1 : ", source.path);
    tail = Id3v1Bytes(source, record);
    if (!id3v2) source.file->Write(source.size - tail.size(), tail);
  }
  if (id3v2) {
    ShowTagging(progress, L"Updating ID3v2 : ", source.path);
    Rewrite(ports.files, progress, source, BuildID3v2(fields, ports.codePage), oldTag, tail);
  }
  return true;
}

}  // namespace

bool WriteTags(const TagPorts& ports, const TagFields& fields, const std::wstring& path, bool id3v1, bool id3v2,
               Progress& progress) {
  Files& files = ports.files;
  if (!CanBeTagged(files, path)) return false;
  if (id3v1 || id3v2) {
    std::unique_ptr<File> file = id3v2 ? files.OpenForReading(path) : files.OpenForWriting(path);
    const std::uint64_t size = file->Size();
    Source source{path, std::move(file), size, OnLabelledVolume(files, path)};
    if (!WriteWanted(ports, fields, source, id3v1, id3v2, progress)) return false;
  }
  progress.Status({});
  return true;
}

}  // namespace tagrix
