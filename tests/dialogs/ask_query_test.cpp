#include "dialogs/ask_query.h"

#include <gtest/gtest.h>

#include "fakes/fakes.h"

namespace tagrix {

TEST(AskQueryDialog, StartsWithTheFoldersNameAndWritesTheWordsOnOkOnly) {
  TestContext test;
  TextBox words("query_txt");
  const struct {
    const wchar_t *folder, *start, *typed;
    bool ok;
    const wchar_t* words;
  } cases[] = {{L"C:\\Music\\Artist - Album", L"Artist - Album", L"Artist - Album", true, L"Artist - Album"},
               {L"C:\\Music", L"", L"  a  b ", true, L"a  b"},  // blanks within stay
               {L"C:\\Music\\", L"", L"other", false, L"a  b"}};
  for (const auto& expected : cases) {
    test.prompts.dialogs.emplace_back([&](Form& form) {
      auto& text = Find<TextBox>(form.layout, "query_txt");
      EXPECT_EQ(text.Text(), expected.start);
      text.Type(expected.typed);
      expected.ok ? form.defaultButton->Click() : form.RequestClose();
      EXPECT_TRUE(form.Closing());
    });
    AskForWords(test.context, expected.folder, words);
    EXPECT_EQ(words.Text(), expected.words);
  }
}

}  // namespace tagrix
