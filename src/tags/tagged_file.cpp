#include "tags/tagged_file.h"

namespace tagrix {

bool OnLabelledVolume(Files& files, const std::wstring& path) {
  return path.size() >= 3 && files.HasVolumeLabel(path.substr(0, 2));
}

std::unique_ptr<File> OpenOnLabelledVolume(Files& files, const std::wstring& path) {
  if (!OnLabelledVolume(files, path)) return nullptr;
  const auto found = files.Find(path);
  return found && !found->folder ? files.OpenForReading(path) : nullptr;
}

}  // namespace tagrix
