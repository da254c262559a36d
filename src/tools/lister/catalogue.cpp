#include "tools/lister/catalogue.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

#include "base/failure.h"
#include "base/letter_case.h"
#include "base/paths.h"
#include "storage/folder_walk.h"
#include "storage/temporary_file.h"
#include "tools/lister/lister_pattern.h"

namespace tagrix {
namespace {

constexpr std::size_t kShortestName = 4;
constexpr std::size_t kMostHeld = 1 << 14;  // entries of a folder
constexpr std::size_t kPiece = 1 << 16;     // characters written at a time

class Catalogue {
 public:
  Catalogue(Files& files, CodePage& codePage, const CatalogueRequest& request, Progress& progress)
      : files_(files),
        codePage_(codePage),
        request_(request),
        progress_(progress),
        separator_(codePage.DecimalSeparator()),
        file_(files, FreePathBeside(files, request.target), request.target) {}

  CatalogueEnd Write() {
    // A bare drive is listed as its root.
    const std::wstring root = WithoutBackslash(request_.input);
    FolderWalk folders(root.ends_with(L':') ? WithBackslash(root) : root);
    bool first = true;
    while (const auto folder = folders.Next()) {
      progress_.Percent(folders.Percent());
      ListFolder(*folder, folders, std::exchange(first, false));
      if (progress_.Cancelled()) return {};
    }
    WritePiece();
    file_.Finish();
    file_.PutInPlace();
    return {true, listed_, std::move(notRead_)};
  }

 private:
  void ListFolder(const std::wstring& folder, FolderWalk& folders, bool first) {
    progress_.LetEventsRun();
    const std::wstring prefix = WithBackslash(folder);
    std::wstring last;  // of the names listed
    bool block = false, more = true;
    while (more) {
      for (const FileInfo& entry : EntriesAfter(last, prefix, first, more)) {
        if (progress_.Cancelled()) return;
        last = entry.name;
        if (entry.folder) {
          folders.Add(prefix + entry.name);
          continue;
        }
        if (!std::exchange(block, true)) text_.append(L"[").append(folder).append(L"]\r\n");
        WriteLine(entry, prefix);
      }
    }
    if (block) text_ += L"\r\n";
  }

  // The folders to walk and the files to list whose names come after `last`, in order. Of a folder that holds very many
  // only the first: so memory doesn't grow with it, and it is read again for the others (`more`).
  std::vector<FileInfo> EntriesAfter(const std::wstring& last, const std::wstring& folder, bool first, bool& more) {
    std::vector<FileInfo> entries;
    more = false;
    const auto byName = [](const FileInfo& a, const FileInfo& b) { return a.name < b.name; };
    const auto keepFirst = [&] {
      if (entries.size() <= kMostHeld) return;
      std::nth_element(entries.begin(), entries.begin() + kMostHeld, entries.end(), byName);
      entries.resize(kMostHeld);
      more = true;
    };
    try {
      files_.List(folder, L"*", [&](const FileInfo& entry) {
        const bool wanted = entry.folder ? request_.recurse && !entry.link : IsListed(entry.name);
        if (wanted && entry.name > last) entries.push_back(entry);
        if (entries.size() == 2 * kMostHeld) keepFirst();
        progress_.Pass(entry.name);
        return !progress_.Cancelled();
      });
    } catch (const Failure&) {
      if (first) throw;
      notRead_.push_back(WithoutBackslash(folder));
    }
    keepFirst();
    std::sort(entries.begin(), entries.end(), byName);
    return entries;
  }

  bool IsListed(std::wstring_view name) const {
    if (name.size() < kShortestName) return false;
    const std::wstring_view ending = name.substr(name.size() - 3);
    return std::any_of(request_.formats.begin(), request_.formats.end(),
                       [&](const std::wstring& format) { return EqualIgnoringCase(ending, format); });
  }

  void WriteLine(const FileInfo& entry, const std::wstring& folder) {
    text_ += ExpandListerPattern(request_.pattern, ValuesOf(entry.name, entry.size, folder, separator_));
    text_ += L"\r\n";
    ++listed_;
    if (text_.size() >= kPiece) WritePiece();
    progress_.Pass(entry.name);
  }

  void WritePiece() {
    file_.Append(codePage_.ToBytes(text_));
    text_.clear();
  }

  Files& files_;
  CodePage& codePage_;
  const CatalogueRequest& request_;
  Progress& progress_;
  const wchar_t separator_;
  TemporaryFile file_;
  std::wstring text_;  // not written yet
  int listed_ = 0;     // files
  std::vector<std::wstring> notRead_;
};

}  // namespace

CatalogueEnd WriteCatalogue(Files& files, CodePage& codePage, const CatalogueRequest& request, Progress& progress) {
  return Catalogue(files, codePage, request, progress).Write();
}

}  // namespace tagrix
