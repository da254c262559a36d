#include "storage/small_files.h"

#include "base/paths.h"
#include "storage/temporary_file.h"

namespace tagrix {

bool FileExists(Files& files, const std::wstring& path) {
  const auto found = files.Find(path);
  return found && !found->folder;
}

bool FolderExists(Files& files, const std::wstring& path) {
  const auto found = files.Find(path);
  return found && found->folder;
}

std::vector<std::wstring> FilesOfFormat(Files& files, const std::wstring& folder, const std::wstring& format) {
  std::vector<std::wstring> names;
  files.List(folder, L"*." + format, [&](const FileInfo& entry) {
    if (!entry.folder && HasFormat(entry.name, format)) names.push_back(entry.name);
    return true;
  });
  return names;
}

std::string ReadWholeFile(Files& files, const std::wstring& path) {
  const auto file = files.OpenForReading(path);
  std::string bytes(static_cast<std::size_t>(file->Size()), '\0');
  bytes.resize(file->Read(0, bytes.data(), bytes.size()));
  return bytes;
}

void WriteWholeFile(Files& files, const std::wstring& path, std::string_view bytes) {
  TemporaryFile file(files, FreePathBeside(files, path), path);
  file.Append(bytes);
  file.Finish();
  file.PutInPlace();
}

}  // namespace tagrix
