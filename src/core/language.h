// The texts of the loaded language, by number.
#ifndef TAGRIX_CORE_LANGUAGE_H
#define TAGRIX_CORE_LANGUAGE_H

#include <string>
#include <string_view>
#include <vector>

namespace tagrix {

struct Language {
  std::vector<std::wstring> lng_lst;  // of the language file; item i is message i
  std::vector<std::wstring> more;     // of the companion beside it; item i is message 200 + i

  // The message's text, trimmed; empty when no valid file is loaded. What the companion lacks is told in English.
  std::wstring GetLangText(int message) const;
};

// The messages of a language file: of every line that has 3 or more characters when trimmed, what follows the first 3,
// trimmed again.
std::vector<std::wstring> ParseLanguageFile(std::wstring_view text);

inline constexpr const wchar_t* kEnglishFile = L"english.lf";

}  // namespace tagrix

#endif
