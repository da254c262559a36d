#include "tools/bulk/cleaning_rules.h"

#include <gtest/gtest.h>

namespace tagrix {

TEST(CleaningRules, CleanNames) {
  const CleaningRules multi{.multipleSpaces = true}, capitals{.letterCase = CaseRule::Capitals};
  const CleaningRules upper{.letterCase = CaseRule::Upper}, lower{.letterCase = CaseRule::Lower};
  const CleaningRules unmerge{.unmerge = true}, under{.underscores = true}, space{.spaces = true};
  const struct {
    CleaningRules rules;
    const wchar_t *before, *after;
  } cases[] = {
      {capitals, L"01 - an ode  to (live) a_b-c.d é (x) ( SONG.MP3", L"01 - An Ode To (Live) A_b-c.d É (X) ( Song.mp3"},
      {upper, L"My Song.mp3", L"MY SONG.mp3"},
      {lower, L"Any.FLAC", L"any.FLAC"},
      {upper, L" abc", L"abc"},  // shorter than an ending once it is trimmed
      {unmerge, L"AnOdeToNoOne.mp3", L"An Ode To No One.mp3"},
      {unmerge, L"abc1xyz-d_e.f Gh.mp3", L"abc 1xyz -d _e .f Gh.mp3"},
      {unmerge, L"ab1.mp3", L"ab1.mp3"},  // the last five are left alone
      // In any script.
      {unmerge, L"TiếngViệtĐẹpỞĐây.mp3", L"Tiếng Việt Đẹp ỞĐây.mp3"},
      {unmerge, L"ΟδυσσεύςΚαιΘάλασσα.mp3", L"Οδυσσεύς Και Θάλασσα.mp3"},
      {unmerge, L"თბილისი25.mp3", L"თბილისი 25.mp3"},
      {capitals, L"șI țARA ệ (đẸP) ωΔΉ ßA თბილისი ıx.mp3", L"Și Țara Ệ (Đẹp) Ωδή ßa თბილისი ıx.mp3"},
      // The rules run in one order.
      {{.unmerge = true, .spaces = true}, L"AnOdeToNoOne.mp3", L"An_Ode_To_No_One.mp3"},
      {{.merge = true, .spaces = true}, L"An Ode.mp3", L"AnOde.mp3"},
      {{.letterCase = CaseRule::Capitals, .unmerge = true}, L"anOde to.mp3", L"Anode To.mp3"},
      {under, L"a_b__c.mp3", L"a b  c.mp3"},
      {space, L"a b  c.mp3", L"a_b__c.mp3"},
      // Several spaces are only collapsed in names of at most three characters.
      {multi, L"a  b.mp3", L"a  b.mp3"},
      // Blanks at both ends go with any rule, but not in names of three characters.
      {space, L"  a.mp3", L"a.mp3"},
      {space, L" a ", L" a "},
      {upper, L"abc", L"abc"},
  };
  for (const auto& expected : cases) EXPECT_EQ(CleanedName(expected.before, expected.rules), expected.after);
  for (const auto& [before, after] : {std::pair(L"a  ", L"a "), {L"   ", L"  "}, {L"a  b", L"a  b"}, {L"", L""}}) {
    EXPECT_EQ(CollapseSpaces(before), after);
  }
}

}  // namespace tagrix
