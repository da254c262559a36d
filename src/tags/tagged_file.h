// How a file is opened to see which tags it has.
#ifndef TAGRIX_TAGS_TAGGED_FILE_H
#define TAGRIX_TAGS_TAGGED_FILE_H

#include <memory>
#include <string>

#include "platform/files.h"

namespace tagrix {

// Tags are only looked for on volumes that bear a label.
bool OnLabelledVolume(Files& files, const std::wstring& path);

// Nothing when the path is shorter than 3 characters, its volume has no label or the file isn't there. Throws Failure
// when it is there but can't be opened.
std::unique_ptr<File> OpenOnLabelledVolume(Files& files, const std::wstring& path);

}  // namespace tagrix

#endif
