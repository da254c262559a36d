#include "core/language.h"

#include "core/context.h"
#include "core/dispatch.h"
#include "core/helpers.h"
#include "core/messages.h"
#include "core/publisher.h"
#include "core/text.h"
#include "forms/lists.h"

namespace tagrix {
namespace {

std::wstring WithoutEnding(const std::wstring& file) { return file.substr(0, file.size() - 3); }

bool IsEnglish(const std::wstring& file) { return EqualIgnoringCase(Trim(file), kEnglishFile); }

}  // namespace

std::wstring Language::GetLangText(int message) const {
  const auto i = static_cast<std::size_t>(message);
  return i < lng_lst.size() ? Trim(lng_lst[i]) : std::wstring();
}

std::vector<std::wstring> ParseLanguageFile(std::wstring_view text) {
  std::vector<std::wstring> messages;
  for (const std::wstring& raw : TextLines(text)) {
    const std::wstring line = Trim(raw);
    if (line.size() >= 3) messages.push_back(Trim(std::wstring_view(line).substr(3)));
  }
  return messages;
}

void loadlangue(Context& context, ComboBox& setup_lngcmb, std::wstring file) {
  context.language.lng_lst.clear();
  if (file.starts_with(L'&')) file.erase(0, 1);
  const std::wstring path = context.programFolder + L"\\" + file;
  if (!FileExists(context, path)) return;

  context.language.lng_lst = ParseLanguageFile(context.codePage.ToText(ReadWholeFile(context.files, path)));
  if (context.language.lng_lst.size() == message::kCount) {
    setup_lngcmb.SetText(WithoutEnding(file));
    context.settings.Put(L"langue", WithoutEnding(file));
  } else if (IsEnglish(file)) {
    context.prompts.Message(L"Language file error, you must reinstall " + std::wstring(publisher::kProduct) +
                            L" and contact technical support");
    throw EndProgram();
  } else {
    loadlangue(context, setup_lngcmb, kEnglishFile);
  }
}

void listlangues(Context& context, ComboBox& setup_lngcmb) {
  context.files.List(context.programFolder, L"*.lf", [&](const FileInfo& entry) {
    const bool language = entry.name.size() > 3 && EqualIgnoringCase(entry.name.substr(entry.name.size() - 3), L".lf");
    if (language && !entry.folder && !IsEnglish(entry.name)) setup_lngcmb.Add(WithoutEnding(entry.name));
    return true;
  });
}

}  // namespace tagrix
