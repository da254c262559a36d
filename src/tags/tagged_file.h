// How a file is opened to see which tags it has, and copied with new ones.
#ifndef TAGRIX_TAGS_TAGGED_FILE_H
#define TAGRIX_TAGS_TAGGED_FILE_H

#include <cstdint>
#include <memory>
#include <string>

#include "base/progress.h"
#include "platform/files.h"
#include "storage/temporary_file.h"

namespace tagrix {

// Tags are only looked for on volumes that bear a label.
bool OnLabelledVolume(Files& files, const std::wstring& path);

// Nothing when the path is shorter than 3 characters, its volume has no label or the file isn't there. Throws Failure
// when it is there but can't be opened.
std::unique_ptr<File> OpenOnLabelledVolume(Files& files, const std::wstring& path);

// The copy that gets the tags and takes the file's place bears this name in the file's folder.
inline constexpr const wchar_t* kTaggedCopy = L"temp";

// Whether the path names a file that may be written, on a drive, and other than the copy itself.
bool CanBeTagged(Files& files, const std::wstring& path);

// Shows which file gets which tag and lets events run.
void ShowTagging(Progress& progress, const wchar_t* step, const std::wstring& path);

// Copies what stands from `from` to before `to`, letting pending events run. Throws Failure, with the path when the
// file has become shorter.
void CopyPart(File& file, const std::wstring& path, std::uint64_t from, std::uint64_t to, TemporaryFile& target,
              Progress& progress);

}  // namespace tagrix

#endif
