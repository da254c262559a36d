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

bool Overlap(const Rect& a, const Rect& b) {
  return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height && b.y < a.y + a.height;
}

// A page with everything: a titled frame with a list and buttons beside it, a row of fields, hidden parts.
struct Page {
  Frame files{"files", L"&Files"}, hidden{"hidden"};
  ListBox list{"list"};
  Button up{"up", L"&Up"}, down{"down", L"Move this far down"}, lost{"lost", L"Lost"};
  Label caption{"caption"};
  TextBox field{"field"};
  ComboBox combo{"combo"};
  CheckBox tick{"tick", L"Write && check"};
  ProgressBox progress{"progress"};

  Page() {
    caption.SetText(L"Artist:");
    hidden.SetVisible(false);
    for (const wchar_t* text : {L"ISO", L"a much longer entry"}) combo.Add(text);
  }
  Node Tree() {
    return Margin(11, Column({Stretch(1, Framed(files, Row({Stretch(1, list), Column({up, down, Spacer()})}))),
                              Row({caption, Stretch(2, field), Stretch(1, combo)}), Framed(hidden, Row({lost})),
                              Row({tick, Spacer(), progress})}));
  }
};

TEST(Layout, ScalesAndNothingOverlapsOrIsCutOffFromTheLeastSizeUpwardsAtAnyDpi) {
  Page page;
  const Node tree = page.Tree();
  for (const int dpi : {96, 120, 144, 192}) {
    const Size least = Least(tree, dpi);
    EXPECT_NEAR(least.width, Least(tree).width * dpi / 96, 4);
    EXPECT_NEAR(least.height, Least(tree).height * dpi / 96, 4);
    for (const int more : {0, 1, 333}) {
      const Size size{least.width + more, least.height + more};
      const auto places = Places(tree, size, dpi);
      for (const auto& [name, place] : places) {
        if (!place.visible) continue;
        SCOPED_TRACE(testing::Message() << name << " at " << dpi << " DPI, " << more << " above the least size");
        EXPECT_GE(place.rect.x, 11 * dpi / 96);
        EXPECT_LE(place.rect.x + place.rect.width, size.width - 11 * dpi / 96);
        EXPECT_LE(place.rect.y + place.rect.height, size.height - 11 * dpi / 96);
        const Size natural = Least(Node(*place.control), dpi);
        EXPECT_GE(place.rect.width, natural.width);
        EXPECT_GE(place.rect.height, natural.height);
        for (const auto& [other, otherPlace] : places) {
          if (other == name || name == "files" || other == "files" || !otherPlace.visible) continue;
          EXPECT_FALSE(Overlap(place.rect, otherPlace.rect)) << "with " << other;
        }
      }
    }
  }
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
