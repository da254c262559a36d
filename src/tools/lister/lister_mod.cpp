#include "tools/lister/lister_mod.h"

#include <string>
#include <utility>
#include <vector>

#include "base/file_names.h"
#include "base/paths.h"
#include "base/text.h"
#include "core/dispatch.h"
#include "core/long_work.h"
#include "core/messages.h"
#include "core/notices.h"
#include "dialogs/folder_chooser.h"
#include "storage/small_files.h"
#include "tools/lister/catalogue.h"
#include "tools/lister/lister_pattern.h"

namespace tagrix {
namespace {

constexpr const wchar_t* kPatterns[] = {setting::kListerPattern.standard, L"[%3] %1%2 (%4)", L"%5%1%2"};
constexpr const wchar_t* kFormats[] = {L"MP3", L"OGG", L"VQF", L"APE", L"MPC", L"WMA", L"WAV"};
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
  page.pattern_txt.SetText(context.settings.Get(setting::kListerPattern));
  ShowListerSample(page, context);

  page.pattern_txt.chosen = Notice(context, [&] { ShowListerSample(page, context); });
  page.pattern_txt.edited = page.pattern_txt.chosen;
  page.input_btn.clicked = Command(context, [&] { ChooseListerInput(page, context); });
  page.output_btn.clicked = Command(context, [&] { ChooseListerOutput(page, context); });
  page.ficname_txt.edited = Notice(context, [&] { FilterListerName(page); });
  page.lister_go_btn.clicked = Command(context, [&] { RunLister(page, context); });
}

void ChooseListerInput(ListerPage& page, Context& context) {
  const auto chosen = ChooseFolder(context, ChooserMode::ListerInput);
  if (!chosen) return;
  const std::wstring& path = chosen->path;
  page.lister_input_txt.SetText(path);
  if (path.find(L'\\') != path.npos && page.ficname_txt.Text().empty()) {
    page.ficname_txt.SetText(std::wstring(FileNamePart(path)));
  }
}

void ChooseListerOutput(ListerPage& page, Context& context) {
  if (const auto chosen = ChooseFolder(context, ChooserMode::ListerOutput))
    page.lister_output_txt.SetText(chosen->path);
}

void FilterListerName(ListerPage& page) { page.ficname_txt.SetText(CleanFileName(page.ficname_txt.Text())); }

void RunLister(ListerPage& page, Context& context) {
  TidyFields(page);
  const std::wstring& input = page.lister_input_txt.Text();
  const std::wstring& output = page.lister_output_txt.Text();
  if (!FolderExists(context.files, input) || !FolderExists(context.files, output)) {
    context.prompts.Message(context.Text(message::kFolderMissing));
    return;
  }
  if (!page.ficname_txt.Text().ends_with(L".txt")) page.ficname_txt.SetText(page.ficname_txt.Text() + L".txt");
  page.ficname_txt.SetText(SafeFileName(page.ficname_txt.Text()));
  std::vector<std::wstring> formats = SelectedFormats(page);
  if (formats.empty()) {
    context.prompts.Message(context.Text(message::kNoFormat));
    return;
  }

  const CatalogueRequest request{.input = input,
                                 .target = WithBackslash(output) + page.ficname_txt.Text(),
                                 .pattern = page.pattern_txt.Text(),
                                 .formats = std::move(formats),
                                 .recurse = page.recurse_chk.Checked()};
  CatalogueEnd end;
  {
    LongWork work(context, {&page.lister_go_btn});
    end = WriteCatalogue(context.files, context.codePage, request, work);
  }
  if (!end.complete) {
    ShowCancelMessage(context);
    return;
  }
  context.settings.Put(setting::kListerPattern, request.pattern);
  ShowNotice(context, FillMessage(context.Text(message::kFilesListed), {std::to_wstring(end.files), request.target}));
  ShowFoldersNotRead(context, end.notRead);
}

}  // namespace tagrix
