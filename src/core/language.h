// The texts of the loaded language file, by number.
#ifndef TAGRIX_CORE_LANGUAGE_H
#define TAGRIX_CORE_LANGUAGE_H

#include <string>
#include <string_view>
#include <vector>

namespace tagrix {

struct Context;
class ComboBox;

struct Language {
  std::vector<std::wstring> lng_lst;  // item i is message i

  // The message's text, trimmed; empty when no valid file is loaded.
  std::wstring GetLangText(int message) const;
};

// The messages of a language file: of every line that has 3 or more characters when trimmed, what follows the first 3,
// trimmed again.
std::vector<std::wstring> ParseLanguageFile(std::wstring_view text);

// Loads a language file of the program folder ("english.lf") into `context.language`, shows it in the language combo
// and stores it in the setting "langue". A missing file leaves no texts; an invalid one is replaced by English; an
// invalid English file is reported and ends the program (throws EndProgram).
void loadlangue(Context& context, ComboBox& setup_lngcmb, std::wstring file);

// Appends every language file of the program folder but English to the combo.
void listlangues(Context& context, ComboBox& setup_lngcmb);

inline constexpr const wchar_t* kEnglishFile = L"english.lf";

}  // namespace tagrix

#endif
