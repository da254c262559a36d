#include "dialogs/ask_query.h"

#include <gtest/gtest.h>

#include "fakes/fakes.h"

namespace tagrix {
namespace {

struct AskQueryDialog : testing::Test {
  // Types into the dialog, if anything, and presses OK or closes it. Returns what stood there at first.
  std::wstring Ask(std::wstring_view folder, const wchar_t* typed, bool ok) {
    std::wstring start;
    test.prompts.dialogs.push_back([&](Form& form) {
      auto& text = Find<TextBox>(form.layout, "query_txt");
      start = text.Text();
      if (typed != nullptr) text.Type(typed);
      ok ? form.defaultButton->Click() : form.RequestClose();
      EXPECT_TRUE(form.Closing());
    });
    AskForWords(test.context, folder, words);
    return start;
  }

  TestContext test;
  TextBox words{"query_txt"};
};

TEST_F(AskQueryDialog, StartsWithTheFoldersName) {
  EXPECT_EQ(Ask(L"C:\\Music\\Artist - Album", nullptr, true), L"Artist - Album");
  EXPECT_EQ(words.Text(), L"Artist - Album");
  for (const wchar_t* folder : {L"", L"C:", L"C:\\Music", L"C:\\Music\\"}) EXPECT_EQ(Ask(folder, nullptr, false), L"");
}

TEST_F(AskQueryDialog, WritesTheWordsOnOkOnly) {
  Ask(L"", L"  a  b ", true);
  EXPECT_EQ(words.Text(), L"a  b");  // blanks within stay
  Ask(L"", L"other", false);
  EXPECT_EQ(words.Text(), L"a  b");
}

}  // namespace
}  // namespace tagrix
