#include "discserver/archive_reader.h"

#include <archive.h>
#include <archive_entry.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <vector>

namespace discserver {
namespace {

constexpr std::string_view kFileName = "#FILENAME=", kNextFile = "\n#FILENAME=";

// "rock", "47013c08" of "freedb/rock/47013c08".
std::pair<std::string, std::string> FolderAndName(std::string_view path) {
  const std::size_t slash = path.rfind('/');
  if (slash == path.npos) return {"", std::string(path)};
  const std::string_view folder = path.substr(0, slash);
  return {std::string(folder.substr(folder.rfind('/') + 1)), std::string(path.substr(slash + 1))};
}

using Archive = std::unique_ptr<archive, decltype(&archive_read_free)>;

[[noreturn]] void Fail(const std::filesystem::path& path, const char* reason) {
  throw std::runtime_error(path.string() + ": " + (reason == nullptr ? "can't be read" : reason));
}

// Runs a step of reading; true when there is more, false at the end.
bool Step(int result, const std::filesystem::path& path, archive* reader) {
  if (result == ARCHIVE_EOF) return false;
  if (result == ARCHIVE_OK || result == ARCHIVE_WARN) return true;
  Fail(path, archive_error_string(reader));
}

void ReadPacked(const std::filesystem::path& path, const RecordSink& sink) {
  const Archive reader(archive_read_new(), archive_read_free);
  archive_read_support_filter_all(reader.get());
  archive_read_support_format_tar(reader.get());
  if (archive_read_open_filename(reader.get(), path.c_str(), 1 << 16) != ARCHIVE_OK) {
    Fail(path, archive_error_string(reader.get()));
  }
  archive_entry* entry = nullptr;
  while (Step(archive_read_next_header(reader.get(), &entry), path, reader.get())) {
    const char* name = archive_entry_pathname(entry);
    if (name == nullptr) continue;
    if (const char* target = archive_entry_hardlink(entry)) {
      const auto [category, id] = FolderAndName(name);
      const auto [linkCategory, linkId] = FolderAndName(target);
      sink({category, id, "", linkCategory, linkId});
    } else if (archive_entry_filetype(entry) == AE_IFREG) {
      RecordSplitter splitter(name, sink);
      const void* bytes = nullptr;
      std::size_t size = 0;
      la_int64_t offset = 0;
      while (Step(archive_read_data_block(reader.get(), &bytes, &size, &offset), path, reader.get())) {
        splitter.Take({static_cast<const char*>(bytes), size});
      }
      splitter.End();
    }
  }
}

void ReadFolder(const std::filesystem::path& folder, const RecordSink& sink) {
  std::vector<std::filesystem::path> inner;  // in order, so that every import is the same
  for (const auto& entry : std::filesystem::directory_iterator(folder)) inner.push_back(entry.path());
  std::sort(inner.begin(), inner.end());
  for (const auto& path : inner) {
    if (std::filesystem::is_directory(path) && !std::filesystem::is_symlink(path)) {
      ReadFolder(path, sink);
    } else if (std::filesystem::is_regular_file(path)) {
      std::ifstream file(path, std::ios::binary);
      RecordSplitter splitter(path.string(), sink);
      std::array<char, 1 << 16> bytes{};
      while (file.read(bytes.data(), bytes.size()) || file.gcount() > 0) {
        splitter.Take({bytes.data(), static_cast<std::size_t>(file.gcount())});
      }
      if (!file.eof()) Fail(path, nullptr);
      splitter.End();
    }
  }
}

}  // namespace

RecordSplitter::RecordSplitter(std::string_view path, const RecordSink& sink) : sink_(sink) {
  std::tie(category_, name_) = FolderAndName(path);
}

void RecordSplitter::Emit(std::string&& file) {
  std::string id = name_;
  if (file.starts_with(kFileName)) {
    const std::size_t end = std::min(file.find('\n'), file.size());
    id = file.substr(kFileName.size(), end - kFileName.size());
    id.erase(std::min(id.find_last_not_of(" \t\r") + 1, id.size()));
    file.erase(0, std::min(end + 1, file.size()));
  }
  sink_({category_, std::move(id), std::move(file), "", ""});
}

void RecordSplitter::Take(std::string_view bytes) {
  pending_ += bytes;
  std::size_t start = 0;
  for (std::size_t at = pending_.find(kNextFile, searched_); at != pending_.npos;
       at = pending_.find(kNextFile, start)) {
    Emit(pending_.substr(start, std::min(at + 1 - start, kMaxRecord)));
    start = at + 1;
  }
  pending_.erase(0, start);
  // Of an overlong record only what may be the beginning of the next one is of use.
  if (pending_.size() > kMaxRecord + kNextFile.size()) {
    pending_.erase(kMaxRecord, pending_.size() - kMaxRecord - kNextFile.size());
  }
  searched_ = pending_.size() < kNextFile.size() ? 0 : pending_.size() - kNextFile.size();
}

void RecordSplitter::End() {
  if (!pending_.empty()) Emit(std::move(pending_));
  pending_.clear();
  searched_ = 0;
}

void ReadArchive(const std::filesystem::path& archive, const RecordSink& sink) {
  if (std::filesystem::is_directory(archive)) {
    ReadFolder(archive, sink);
  } else {
    ReadPacked(archive, sink);
  }
}

}  // namespace discserver
