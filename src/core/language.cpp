#include "core/language.h"

#include "base/text.h"
#include "core/english_lfx.h"
#include "core/messages.h"

namespace tagrix {
namespace {

const std::wstring* Item(const std::vector<std::wstring>& texts, int i) {
  const auto index = static_cast<std::size_t>(i);
  return index < texts.size() && texts[index] != L"-" ? &texts[index] : nullptr;
}

}  // namespace

std::wstring Language::GetLangText(int message) const {
  if (message < message::kFirstMore) {
    const auto i = static_cast<std::size_t>(message);
    return i < lng_lst.size() ? Trim(lng_lst[i]) : std::wstring();
  }
  if (const std::wstring* text = Item(more, message - message::kFirstMore)) return *text;
  static const std::vector<std::wstring> english = ParseLanguageFile(Widen(kEnglishLfx));
  const std::wstring* text = Item(english, message - message::kFirstMore);
  return text == nullptr ? std::wstring() : *text;
}

std::vector<std::wstring> ParseLanguageFile(std::wstring_view text) {
  std::vector<std::wstring> messages;
  for (const std::wstring& raw : TextLines(text)) {
    const std::wstring line = Trim(raw);
    if (line.size() >= 3) messages.push_back(Trim(std::wstring_view(line).substr(3)));
  }
  return messages;
}

}  // namespace tagrix
