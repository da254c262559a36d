#include "album/apply_report.h"

#include <algorithm>
#include <utility>

#include "base/paths.h"
#include "base/text.h"
#include "core/failure_text.h"
#include "core/messages.h"
#include "dialogs/ask_tag_style.h"
#include "dialogs/summary.h"

namespace tagrix {
namespace {

bool Has(const std::vector<Trouble>& troubles, std::initializer_list<Trouble> wanted) {
  return std::find_first_of(troubles.begin(), troubles.end(), wanted.begin(), wanted.end()) != troubles.end();
}

bool Tagged(const std::vector<Trouble>& troubles) {
  return !Has(troubles, {Trouble::ReadOnly, Trouble::TagsNotWritten, Trouble::NotReplaced});
}

}  // namespace

ApplyReport::Row& ApplyReport::RowOf(int i) {
  const auto at = static_cast<std::size_t>(i);
  if (rows_.size() <= at) rows_.resize(at + 1);
  return rows_[at];
}

void ApplyReport::Tell(const Incident& incident) {
  current_.push_back(incident.trouble);
  if (incident.failure != nullptr) cause_ = CauseText(context_.language, *incident.failure);
  incidents_.push_back({std::wstring(FileNamePart(incident.name)), Reason(incident)});
}

void ApplyReport::NameChanged(int i) {
  RowOf(i).renamed = true;
  page_.names.reset();  // what it says of taken names is out of date
  page_.mp3_lst.SetItemText(i, page_.session.files.at(static_cast<std::size_t>(i)).name);
}

void ApplyReport::FileDone(int i) {
  page_.settled = true;
  Row& row = RowOf(i);
  row.done = true;
  row.troubles = std::exchange(current_, {});
  row.cause = std::exchange(cause_, {});
}

void ApplyReport::PlaylistWritten(const std::wstring& path) {
  page_.settled = true;
  playlist_ = path;
}

void ApplyReport::Stopped(const Failure& failure) {
  incidents_.push_back({std::wstring(FileNamePart(failure.Path())), FailureText(context_.language, failure)});
}

bool ApplyReport::MayReplacePlaylist(const std::wstring& path) {
  const std::wstring name(FileNamePart(path));
  return context_.prompts.Question(FillMessage(context_.Text(message::kPlaylistExists), {name}));
}

std::optional<TagStyle> ApplyReport::ChooseTagStyle(const TagStyleReasons& reasons) {
  return AskTagStyle(context_, reasons);
}

std::wstring ApplyReport::Reason(const Incident& incident) const {
  const auto filled = [&](int message, const std::vector<std::wstring>& values) {
    return FillMessage(context_.Text(message), values);
  };
  switch (incident.trouble) {
    case Trouble::ReadOnly:
      return filled(message::kReadOnly, {incident.name});
    case Trouble::TagsNotWritten:
      if (incident.failure == nullptr) return context_.Text(message::kTagsNotWritten);
      return filled(message::kTagFailure, {incident.name, FailureText(context_.language, *incident.failure)});
    case Trouble::NameTaken:
      return clash_ == message::kUndoClash ? filled(clash_, {incident.target, incident.name})
                                           : filled(clash_, {incident.name, incident.target});
    case Trouble::KeptAside:
      return filled(message::kKeptAside, {incident.name, incident.target});
    case Trouble::PlaylistInUtf8:
      return filled(message::kPlaylistInUtf8, {incident.name});
    case Trouble::NotReplaced:
    case Trouble::NotRenamed:
      break;
  }
  return Replace(context_.Text(message::kRenameFailed), L"%%FIC%%", incident.target);
}

std::wstring ApplyReport::OutcomeOf(const Row& row, bool tagging) const {
  std::wstring words;
  const auto add = [&](bool holds, int message) {
    if (holds) words += (words.empty() ? L"" : L", ") + context_.Text(message);
  };
  const bool readOnly = Has(row.troubles, {Trouble::ReadOnly});
  add(readOnly, message::kSkippedReadOnly);
  add(tagging && Tagged(row.troubles), message::kTagged);
  add(row.renamed, message::kRenamed);
  add(!readOnly && !Tagged(row.troubles), message::kNotTagged);
  if (!row.cause.empty()) words += L" (" + row.cause + L")";
  add(Has(row.troubles, {Trouble::NameTaken}), message::kNotRenamedTaken);
  add(Has(row.troubles, {Trouble::NotRenamed}), message::kNotRenamed);
  add(words.empty(), message::kUnchanged);
  return words;
}

std::vector<std::wstring> ApplyReport::Outcomes(bool tagging) const {
  std::vector<std::wstring> words;
  for (const Row& row : rows_) words.push_back(row.done ? OutcomeOf(row, tagging) : std::wstring());
  return words;
}

void ApplyReport::Show(int heading, bool tagging) const {
  const auto count = [&](auto holds) {
    return std::to_wstring(
        std::count_if(rows_.begin(), rows_.end(), [&](const Row& row) { return row.done && holds(row); }));
  };
  const auto files = std::count_if(page_.session.files.begin(), page_.session.files.end(),
                                   [](const AlbumFile& file) { return !file.fake; });
  std::wstring text = FillMessage(context_.Text(message::kAppliedFigures),
                                  {count([](const Row&) { return true; }), std::to_wstring(files),
                                   count([&](const Row& row) { return tagging && Tagged(row.troubles); }),
                                   count([](const Row& row) { return row.renamed; }), count([&](const Row& row) {
                                     return !row.troubles.empty() && !row.renamed && !(tagging && Tagged(row.troubles));
                                   })});
  if (!playlist_.empty()) text += L"\r\n" + FillMessage(context_.Text(message::kPlaylistWritten), {playlist_});
  const bool renamed = std::any_of(rows_.begin(), rows_.end(), [](const Row& row) { return row.renamed; });
  if (renamed) text += L"\r\n\r\n" + context_.Text(message::kUndoGives);
  ShowWindow(heading, text);
}

void ApplyReport::ShowUndone(int heading) const {
  const auto back = std::count_if(rows_.begin(), rows_.end(), [](const Row& row) { return row.renamed; });
  ShowWindow(heading, FillMessage(context_.Text(message::kUndoneFigures), {std::to_wstring(back)}));
}

void ApplyReport::ShowWindow(int heading, const std::wstring& text) const {
  std::vector<SummaryLine> lines;
  for (const Line& line : incidents_) lines.push_back({line.file, line.reason});
  ShowSummary(context_, context_.Text(heading), text, std::move(lines));
}

}  // namespace tagrix
