#include "core/load_language.h"

#include <utility>
#include <vector>

#include "base/failure.h"
#include "base/letter_case.h"
#include "base/publisher.h"
#include "base/text.h"
#include "core/dispatch.h"
#include "core/messages.h"
#include "storage/small_files.h"

namespace tagrix {
namespace {

std::wstring WithoutEnding(const std::wstring& file) { return file.substr(0, file.size() - 3); }

// As the name of a language is shown.
std::wstring Capitalised(std::wstring name) {
  name.front() = ToUpper(name.front());
  return name;
}

bool IsEnglish(const std::wstring& file) { return EqualIgnoringCase(Trim(file), kEnglishFile); }

std::vector<std::wstring> ReadMessages(Context& context, const std::wstring& path) {
  return ParseLanguageFile(context.codePage.ToText(ReadWholeFile(context.files, path)));
}

// English stands for what a companion lacks, and for the whole of one that isn't there.
std::vector<std::wstring> ReadMore(Context& context, const std::wstring& path) {
  try {
    if (FileExists(context.files, path)) return ReadMessages(context, path);
  } catch (const Failure&) {
  }
  return {};
}

}  // namespace

void loadlangue(Context& context, ComboBox& setup_lngcmb, std::wstring file) {
  if (file.starts_with(L'&')) file.erase(0, 1);
  const std::wstring path = context.programFolder + L"\\" + file;
  if (!FileExists(context.files, path)) {
    context.language = {};
    return;
  }

  Language language{ReadMessages(context, path), ReadMore(context, path + L"x")};
  if (language.lng_lst.size() == message::kCount) {
    context.language = std::move(language);
    setup_lngcmb.SetText(WithoutEnding(file));
    context.settings.Put(setting::kLanguage, WithoutEnding(file));
  } else if (IsEnglish(file)) {
    context.prompts.Message(L"Language file error, you must reinstall " + std::wstring(publisher::kProduct) +
                            L" and contact technical support");
    throw EndProgram();
  } else {
    Language inForce = context.language;
    loadlangue(context, setup_lngcmb, kEnglishFile);
    if (context.language.lng_lst.empty()) context.language = std::move(inForce);
  }
}

void listlangues(Context& context, ComboBox& setup_lngcmb) {
  context.files.List(context.programFolder, L"*.lf", [&](const FileInfo& entry) {
    const bool language = entry.name.size() > 3 && EqualIgnoringCase(entry.name.substr(entry.name.size() - 3), L".lf");
    if (language && !entry.folder && !IsEnglish(entry.name)) setup_lngcmb.Add(Capitalised(WithoutEnding(entry.name)));
    return true;
  });
}

}  // namespace tagrix
