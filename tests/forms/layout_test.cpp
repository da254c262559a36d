#include "forms/layout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>

#include "forms/buttons.h"
#include "forms/lists.h"
#include "forms/text_controls.h"

namespace tagrix {
namespace {

// A font whose characters are all 6 x 15 units (headings twice as large), words never broken.
struct FixedFont : TextMeasurer {
  explicit FixedFont(int perInch) : dpi(perInch) {}
  Size Measure(std::wstring_view text, int wrapAt, bool heading) const override {
    const int times = heading ? 2 : 1, length = static_cast<int>(text.size());
    const int perLine = wrapAt == 0 ? 1 << 20 : std::max(1, wrapAt * 96 / dpi / (6 * times));
    const int lines = std::max(1, (length + perLine - 1) / perLine);
    return {std::min(length, perLine) * 6 * times * dpi / 96, lines * 15 * times * dpi / 96};
  }
  int dpi;
};

std::map<std::string, Placement> Places(const Node& tree, Size size, int dpi = 96) {
  std::map<std::string, Placement> places;
  for (const Placement& place : Arrange(tree, {0, 0, size.width, size.height}, dpi, FixedFont(dpi))) {
    places.emplace(place.control->Name(), place);
  }
  return places;
}

Size Least(const Node& tree, int dpi = 96) { return MinimumSize(tree, dpi, FixedFont(dpi)); }

// One of nearly everything, at the least size: twice the resolution makes all of it twice as large.
TEST(Layout, EverythingHasItsSizeAndScales) {
  Frame files("files", L"&Files");
  ListBox list("list");
  Button up("up", L"&Up"), down("down", L"Move this far down");
  TextBox field("field");
  ComboBox combo("combo");
  CheckBox tick("tick", L"Write && check");
  Label caption("caption");
  caption.SetText(L"A caption of two lines");
  for (const wchar_t* text : {L"ISO", L"a much longer entry"}) combo.Add(text);
  const Node tree =
      Margin(11, Column({Framed(files, Row({list, Column({up, down, Spacer()})})),
                         Row({field, combo, MinSize(100, 0, tick)}), Row({Wrap(90, caption), Spacer()})}));
  const Size least = Least(tree);
  const auto places = Places(tree, least), doubled = Places(tree, {2 * least.width, 2 * least.height}, 192);
  EXPECT_EQ(Least(tree, 192), (Size{2 * least.width, 2 * least.height}));
  for (const auto& [name, place] : places) {
    const Rect& rect = place.rect;
    EXPECT_EQ(doubled.at(name).rect, (Rect{2 * rect.x, 2 * rect.y, 2 * rect.width, 2 * rect.height})) << name;
  }
  EXPECT_EQ(places.at("files").rect, (Rect{11, 11, 328, 120}));
  EXPECT_EQ(places.at("list").rect, (Rect{20, 32, 120, 90}));
  EXPECT_EQ(places.at("caption").rect, (Rect{11, 166, 90, 30}));
  EXPECT_EQ(places.at("tick").rect, (Rect{239, 140, 100, 17}));
}

TEST(Layout, SpareRoomIsSharedToTheLastPixelInProportion) {
  TextBox one("one"), two("two"), fixed("fixed");
  const Node tree = Gap(0, Row({Stretch(1, one), fixed, Stretch(2, two)}));
  const int natural = Least(fixed).width;
  const auto places = Places(tree, {3 * natural + 100, 23});
  EXPECT_EQ(places.at("one").rect.width, natural + 33);
  EXPECT_EQ(places.at("fixed").rect.width, natural);
  EXPECT_EQ(places.at("two").rect.width, natural + 67);
}

TEST(Layout, AcrossARowListsAndGroupsAreTallAndTheRestIsCentred) {
  ListBox list("list");
  Button beside("beside"), inGroup("in_group");
  const auto places = Places(Row({list, beside, Column({Spacer(), inGroup})}), {400, 200});
  EXPECT_EQ(places.at("list").rect.height, 200);
  EXPECT_EQ(places.at("beside").rect.height, 23);
  EXPECT_EQ(places.at("beside").rect.y, (200 - 23) / 2);
  EXPECT_EQ(places.at("in_group").rect.y, 200 - 23);
}

TEST(Layout, FramesGovernWhatIsInThemAndHiddenPartsTakeNoRoomNorGap) {
  Button first("first"), second("second"), third("third");
  Frame frame("frame");
  const Node tree = Column({first, Framed(frame, Row({second, Spacer()})), Row({third, Spacer()})});
  const int button = Least(first).height;
  EXPECT_EQ(Least(tree).height, 3 * button + 2 * 6);
  frame.SetText(std::wstring(99, L'W'));
  EXPECT_GT(Least(tree).height, 3 * button + 2 * 6 + 15) << "the title takes room";
  EXPECT_GT(Least(tree).width, 99 * 6);
  frame.SetEnabled(false);
  frame.SetVisible(false);
  EXPECT_EQ(Least(tree).height, 2 * button + 6);
  third.SetVisible(false);  // a row without anything in it goes, too
  EXPECT_EQ(Least(tree).height, button);
  const auto places = Places(tree, {300, 300});
  EXPECT_TRUE(places.at("first").visible && places.at("first").enabled);
  EXPECT_FALSE(places.at("second").visible || places.at("second").enabled);
}

TEST(Layout, AnEmptyRowTakesTheRoomItIsGiven) {
  Button button("button");
  EXPECT_EQ(Places(Row({MinSize(14, 0, Row({})), Stretch(1, button)}), {200, 23}).at("button").rect.x, 14 + 6);
}

TEST(Layout, AStackIsAsLargeAsItsLargestPageShownOrNot) {
  Frame page("page"), otherPage("other_page");
  Button small("small");
  ListBox large("large");
  otherPage.SetVisible(false);
  const Node tree = Stack({Framed(page, Column({small})), Framed(otherPage, Column({Stretch(1, large)}))});
  EXPECT_EQ(Least(tree), Least(large));
  EXPECT_EQ(Places(tree, {500, 400}).at("large").rect, (Rect{0, 0, 500, 400}));
}

TEST(Layout, TextsAreMeasuredAsTheyAreShown) {
  Label caption("caption"), literal("literal", LabelStyle::Literal), heading("heading", LabelStyle::Heading);
  for (Label* label : {&caption, &literal, &heading}) label->SetText(L"&Rock && Pop");
  EXPECT_EQ(Least(caption), (Size{10 * 6, 15}));
  EXPECT_EQ(Least(literal), (Size{12 * 6, 15}));
  EXPECT_EQ(Least(heading), (Size{10 * 12, 30}));
  literal.SetText(std::wstring(500, L'x'));
  EXPECT_LE(Least(literal).width, 400);
  EXPECT_EQ(Least(Wrap(300, literal)), (Size{300, 10 * 15}));

  Button icon("icon"), iconAndText("icon_and_text", L"A caption of its own");
  for (Button* button : {&icon, &iconAndText}) button->SetImage(L"x.ico", 32);
  EXPECT_EQ(Least(icon).width, Least(icon).height);
  EXPECT_GT(Least(iconAndText).width, 20 * 6);
  EXPECT_EQ(Least(iconAndText).height, Least(icon).height + 15);
}

}  // namespace
}  // namespace tagrix
