#include "tools/lister/lister_mod.h"

#include <string>
#include <utility>
#include <vector>

#include "core/dispatch.h"
#include "core/helpers.h"
#include "core/messages.h"
#include "core/paths.h"
#include "core/settings.h"
#include "core/text.h"
#include "dialogs/folder_chooser.h"
#include "tools/lister/catalogue.h"
#include "tools/lister/lister_pattern.h"

namespace tagrix {
namespace {

constexpr const wchar_t* kPatterns[] = {L"[%3] %1%2", L"[%3] %1%2 (%4)", L"%5%1%2"};
constexpr const wchar_t* kFormats[] = {L"MP3", L"OGG", L"VQF", L"APE", L"MPC", L"WMA", L"WAV"};
constexpr const wchar_t* kPatternSetting = L"LiserPattern";  // spelled as stored since ever

// The page while the catalogue is written.
class Listing {
 public:
  Listing(ListerPage& page, Context& context) : page_(page), context_(context) { Set(true); }
  ~Listing() { Set(false); }
  Listing(const Listing&) = delete;
  Listing& operator=(const Listing&) = delete;

 private:
  void Set(bool listing) {
    SetBusy(context_, listing);
    page_.lister_go_btn.SetEnabled(!listing);
    SetStatus(context_, {});
  }
  ListerPage& page_;
  Context& context_;
};

void TidyFields(ListerPage& page) {
  page.lister_input_txt.SetText(Trim(page.lister_input_txt.Text()));
  page.lister_output_txt.SetText(Trim(page.lister_output_txt.Text()));
  page.ficname_txt.SetText(CleanAndTrimFileName(page.ficname_txt.Text()));
}

std::vector<std::wstring> SelectedFormats(const ListerPage& page) {
  std::vector<std::wstring> formats;
  for (int i = 0; i < page.ext_lst.Count(); ++i) {
    if (page.ext_lst.Selected(i)) formats.push_back(Trim(page.ext_lst.ItemText(i)));
  }
  return formats;
}

}  // namespace

void InitListerPage(ListerPage& page, Context& context) {
  for (const wchar_t* format : kFormats) page.ext_lst.Add(format);
  page.ext_lst.SelectOnly(0);
  // The choice has to show while the keyboard is elsewhere, too.
  page.ext_lst.mark = [&](int i) { return page.ext_lst.Selected(i) ? RowMark::Changed : RowMark::None; };
  for (const wchar_t* pattern : kPatterns) page.pattern_txt.Add(pattern);
  const std::wstring used = context.settings.Get(kPatternSetting, kPageSettingsKey);
  page.pattern_txt.SetText(used.empty() ? kPatterns[0] : used);
  ShowListerSample(page, context);

  page.pattern_txt.chosen = Notice(context, [&] { ShowListerSample(page, context); });
  page.pattern_txt.edited = page.pattern_txt.chosen;
  page.input_btn.clicked = Command(context, [&] { ChooseListerInput(page, context); });
  page.output_btn.clicked = Command(context, [&] { ChooseListerOutput(page, context); });
  page.ficname_txt.edited = Notice(context, [&] { FilterListerName(page); });
  page.lister_go_btn.clicked = Command(context, [&] { RunLister(page, context); });
}

void ShowListerSample(ListerPage& page, Context& context) {
  page.sample_lbl.SetText(context.Text(message::kSample) + L" " + ListerSample(page.pattern_txt.Text()));
}

void ChooseListerInput(ListerPage& page, Context& context) {
  ChooseFolder(context, ChooserMode::ListerInput, {.folder = &page.lister_input_txt});
  const std::wstring& path = page.lister_input_txt.Text();
  if (path.find(L'\\') != path.npos && page.ficname_txt.Text().empty()) {
    page.ficname_txt.SetText(std::wstring(FileNamePart(path)));
  }
}

void ChooseListerOutput(ListerPage& page, Context& context) {
  ChooseFolder(context, ChooserMode::ListerOutput, {.folder = &page.lister_output_txt});
}

void FilterListerName(ListerPage& page) { page.ficname_txt.SetText(CleanFileName(page.ficname_txt.Text())); }

void RunLister(ListerPage& page, Context& context) {
  context.cancelled = false;
  const Listing listing(page, context);
  TidyFields(page);
  const std::wstring& input = page.lister_input_txt.Text();
  const std::wstring& output = page.lister_output_txt.Text();
  if (!FolderExists(context, input) || !FolderExists(context, output)) {
    context.prompts.Message(context.Text(message::kFolderMissing));
    return;
  }
  if (!page.ficname_txt.Text().ends_with(L".txt")) page.ficname_txt.SetText(page.ficname_txt.Text() + L".txt");
  std::vector<std::wstring> formats = SelectedFormats(page);
  if (formats.empty()) {
    context.prompts.Message(context.Text(message::kNoFormat));
    return;
  }

  const std::wstring pattern = page.pattern_txt.Text();
  const bool complete = WriteCatalogue(context, {.input = input,
                                                 .target = WithBackslash(output) + page.ficname_txt.Text(),
                                                 .pattern = pattern,
                                                 .formats = std::move(formats),
                                                 .recurse = page.recurse_chk.Checked()});
  if (!complete) {
    SetStatus(context, {});
    ShowCancelMessage(context);
    return;
  }
  context.settings.Put(kPatternSetting, pattern, kPageSettingsKey);
}

}  // namespace tagrix
