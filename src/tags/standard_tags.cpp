#include "tags/standard_tags.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <utility>

#include "base/failure.h"
#include "base/paths.h"
#include "base/text.h"
#include "storage/temporary_file.h"
#include "tags/id3v1.h"
#include "tags/id3v2.h"
#include "tags/standard_id3v2.h"
#include "tags/tag_layout.h"
#include "tags/tagged_file.h"

namespace tagrix {
namespace {

// A longer change is no longer quicker in place; with it in the journal, too, a file gets at most 16 KiB.
constexpr std::size_t kLongestPatch = 5000;
constexpr std::size_t kClassicLimit = 127;  // bytes of a text
constexpr std::size_t kWritten = 1 << 20;
constexpr std::size_t kPadding = 1024;  // bytes

// Every text that becomes a text frame.
std::vector<std::wstring> TextsOf(const TagFields& fields) {
  return {fields.title, fields.artist, fields.album, fields.year, fields.genre, fields.track};
}

// Whether the code page's bytes are those of ISO-8859-1, as which the classic writer passes them off.
bool FitsClassic(const std::wstring& text, CodePage& codePage) {
  const std::string bytes = codePage.ToBytes(text);
  return FitsLatin1(text) && std::equal(bytes.begin(), bytes.end(), text.begin(), text.end(),
                                        [](char byte, wchar_t c) { return byte == static_cast<char>(c); });
}

// What has to be done to a file, and what was seen of it.
struct Plan {
  TagLayout layout;
  Id3v2Frames old;
  std::string front;              // the new tag with padding; empty: it stays as it is
  std::string end;                // the new ID3v1 tag; likewise
  std::vector<TagPatch> patches;  // the same, where that can be done in place
  bool Nothing() const { return front.empty() && end.empty(); }
};

// From the first to the last byte that differs, in two texts of one length; empty when none does.
TagPatch Difference(std::uint64_t offset, std::string_view before, std::string_view after) {
  const auto first =
      static_cast<std::size_t>(std::mismatch(before.begin(), before.end(), after.begin()).first - before.begin());
  const auto last = static_cast<std::size_t>(
      std::mismatch(before.rbegin(), before.rend(), after.rbegin()).first.base() - before.begin());
  const std::size_t length = last > first ? last - first : 0;
  return {offset + first, std::string(before.substr(first, length)), std::string(after.substr(first, length))};
}

class Planner {
 public:
  Planner(const TagPorts& ports, const TagFields& fields, File& file) : ports_(ports), fields_(fields), file_(file) {
    plan_.layout = LocateTags(file);
  }

  Plan Make(bool id3v1, bool id3v2) {
    if (id3v2 && !plan_.layout.cut) PlanFront();
    if (id3v1) PlanEnd();
    if (!inPlace_) plan_.patches.clear();
    return std::move(plan_);
  }

 private:
  void PlanFront() {
    const TagLayout& layout = plan_.layout;
    std::vector<std::string> tags = ReadSpans(file_, layout.leading);
    const bool alone = tags.size() == 1 && layout.appended.empty();
    for (std::string& tag : ReadSpans(file_, layout.appended)) tags.push_back(std::move(tag));
    plan_.old = ReadId3v2Frames(std::move(tags));
    const std::string_view before = alone ? plan_.old.bytes.front() : std::string_view();
    if (alone && IsGoodClassic(before)) return;

    std::string tag = BuildStandardId3v2(plan_.old, fields_);
    const std::size_t length = tag.size();
    if (length <= before.size()) {
      tag = Padded(std::move(tag), before.size());
      TagPatch patch = Difference(0, before, tag);
      if (patch.before.empty()) return;
      if (patch.before.size() <= kLongestPatch) {
        plan_.front = std::move(tag);
        plan_.patches.push_back(std::move(patch));
        return;
      }
    }
    inPlace_ = false;
    plan_.front = Padded(std::move(tag), std::min(length + kPadding, kLongestId3v2));
  }

  // A tag of the other writer that every reader understands says the same already.
  bool IsGoodClassic(std::string_view tag) const {
    for (const std::wstring& text : TextsOf(fields_)) {
      if (text.size() >= kClassicLimit || !FitsClassic(text, ports_.codePage)) return false;
    }
    return tag == BuildID3v2(fields_, ports_.codePage);
  }

  void PlanEnd() {
    const std::string after = std::string(kId3v1Mark) + BuildID3v1(fields_, ports_.styles, ports_.codePage);
    if (plan_.layout.id3v1) {
      const std::uint64_t end = plan_.layout.End();
      const std::string before = ReadSpans(file_, {{end, plan_.layout.size}})[0];
      if (before == after) return;
      plan_.patches.push_back({end, before, after});
    } else {
      inPlace_ = false;
    }
    plan_.end = after;
  }

  const TagPorts& ports_;
  const TagFields& fields_;
  File& file_;
  Plan plan_;
  bool inPlace_ = true;
};

TagConcerns ConcernsOf(const Plan& plan, const TagFields& fields, CodePage& codePage, bool id3v1, bool id3v2) {
  TagConcerns concerns;
  concerns.overwritesEnd = id3v1 && !plan.layout.id3v1;
  if (!id3v2) return concerns;
  const std::vector<Id3v2Frame>& frames = plan.old.frames;
  concerns.dropsFrames = std::any_of(frames.begin(), frames.end(),
                                     [&](const Id3v2Frame& frame) { return !IsReplaced(frame, plan.old.version); });
  concerns.oldTag = !plan.layout.leading.empty() || plan.layout.cut;
  for (const std::wstring& text : TextsOf(fields)) {
    concerns.longText = concerns.longText || codePage.ToBytes(Trim(text)).size() >= kClassicLimit;
    concerns.foreignText = concerns.foreignText || !FitsClassic(text, codePage);
  }
  return concerns;
}

// The copy: the new tag, or the old ones, then the sound with what stands behind it, then ID3v1.
void Rewrite(Files& files, const std::wstring& path, std::unique_ptr<File> file, const Plan& plan, Progress& progress) {
  const TagLayout& layout = plan.layout;
  TemporaryFile copy(files, std::wstring(FolderPart(path)) + kTaggedCopy, path);
  for (std::string_view rest = plan.front; !rest.empty(); rest.remove_prefix(std::min(rest.size(), kWritten))) {
    copy.Append(rest.substr(0, kWritten));
    progress.LetEventsRun();
  }
  std::uint64_t from = plan.front.empty() ? 0 : layout.Sound();
  if (!plan.front.empty()) {
    for (const TagSpan& gone : layout.appended) {
      CopyPart(*file, path, from, gone.begin, copy, progress);
      from = gone.end;
    }
  }
  CopyPart(*file, path, from, plan.end.empty() ? layout.size : layout.End(), copy, progress);
  copy.Append(plan.end);
  copy.Finish();
  file.reset();
  copy.Replace();
}

}  // namespace

TagOutlook LookAtTags(const TagPorts& ports, const TagFields& fields, const std::wstring& path, bool id3v1,
                      bool id3v2) {
  if (!CanBeTagged(ports.files, path)) return {};
  Plan plan = Planner(ports, fields, *ports.files.OpenForReading(path)).Make(id3v1, id3v2);
  return {ConcernsOf(plan, fields, ports.codePage, id3v1, id3v2), std::move(plan.patches)};
}

StandardWritten WriteStandardTags(const TagPorts& ports, const TagFields& fields, const std::wstring& path, bool id3v1,
                                  bool id3v2, TagJournal& journal, Progress& progress) {
  if (!CanBeTagged(ports.files, path)) return {};
  ShowTagging(progress, id3v2 ? L"Updating ID3v2 : " : L"Updating ID3v1 : ", path);
  const std::wstring name(FileNamePart(path));
  auto file = journal.Knows(name) ? ports.files.OpenForWriting(path) : ports.files.OpenForReading(path);
  Plan plan = Planner(ports, fields, *file).Make(id3v1, id3v2);
  if (plan.layout.cut && id3v2) return {};
  StandardWritten result{true, std::move(plan.old.aside)};
  plan.old = {};
  if (plan.Nothing()) {
    result.aside.clear();
  } else if (journal.Holds(name, plan.patches)) {
    journal.Patch(*file, name);
  } else {
    Rewrite(ports.files, path, std::move(file), plan, progress);
  }
  progress.Status({});
  return result;
}

}  // namespace tagrix
