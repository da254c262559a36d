// What an Apply or an Undo did, file by file, and the one window that tells it at the end.
#ifndef TAGRIX_ALBUM_APPLY_REPORT_H
#define TAGRIX_ALBUM_APPLY_REPORT_H

#include <optional>
#include <string>
#include <vector>

#include "album/album_page.h"
#include "session/apply.h"

namespace tagrix {

// Collects what happens, shows new names in the table at once and asks what has to be decided.
class ApplyReport : public ApplyWatcher {
 public:
  // `clash`: the message for a name that another file bears.
  ApplyReport(AlbumPage& page, Context& context, int clash) : page_(page), context_(context), clash_(clash) {}

  void Tell(const Incident& incident) override;
  void NameChanged(int i) override;
  void FileDone(int i) override;
  void PlaylistWritten(const std::wstring& path) override;
  bool MayReplacePlaylist(const std::wstring& path) override;
  std::optional<TagStyle> ChooseTagStyle(const TagStyleReasons& reasons) override;

  // The run has ended there.
  void Stopped(const Failure& failure);

  bool AnyIncident() const { return !incidents_.empty(); }
  // The outcome of each file in words, for its row. `tagging`: what had no trouble was tagged.
  std::vector<std::wstring> Outcomes(bool tagging) const;
  // Shows the closing window: the heading, the figures, who was left out and why, the playlist.
  void Show(int heading, bool tagging) const;
  // Likewise, for an Undo.
  void ShowUndone(int heading) const;

 private:
  struct Line {
    std::wstring file, reason;
  };
  struct Row {
    bool done = false, renamed = false;
    std::vector<Trouble> troubles;
    std::wstring cause;  // why the tags were not written, if that is known
  };
  Row& RowOf(int i);
  std::wstring Reason(const Incident& incident) const;
  std::wstring OutcomeOf(const Row& row, bool tagging) const;
  void ShowWindow(int heading, const std::wstring& text) const;

  AlbumPage& page_;
  Context& context_;
  const int clash_;
  std::vector<Row> rows_;
  std::vector<Trouble> current_;  // of the file whose turn it is
  std::wstring cause_;            // likewise
  std::vector<Line> incidents_;
  std::wstring playlist_;
};

}  // namespace tagrix

#endif
