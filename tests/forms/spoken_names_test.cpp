#include "forms/spoken_names.h"

#include <gtest/gtest.h>

#include <map>

#include "forms/buttons.h"
#include "forms/captions.h"
#include "forms/lists.h"
#include "forms/text_controls.h"

namespace tagrix {
namespace {

TEST(Captions, MarkTheirAccessKeyWithAnAmpersand) {
  EXPECT_EQ(WithoutAccessKeys(L"&Rock && P&op&"), L"Rock & Pop");
  EXPECT_EQ(AccessKeyOf(L"Rock && &Pop"), L'p');
  EXPECT_EQ(AccessKeyOf(L"Rock && Pop&"), L'\0');
}

TEST(SpokenNames, ComeFromTheCaptionTheLabelBeforeOrTheFrameAround) {
  Frame frame{"frame", L"&Files"};
  Label label{"label"}, path{"path", LabelStyle::Path};
  TextBox labelled{"labelled"}, framed{"framed"}, own{"own"}, afterPath{"after_path"};
  Button picture{"picture"}, captioned{"captioned", L"&Go"};
  label.SetText(L"&Year:");
  path.SetText(L"C:\\Music");
  picture.SetTooltip(L"Move up");
  own.SetSpokenName(L"Own");
  std::map<std::string, std::wstring> names;
  const Node layout =
      Column({Framed(frame, Column({label, labelled, framed, path, afterPath})), picture, captioned, own});
  for (const SpokenName& name : SpokenNames(layout)) {
    names[name.control->Name()] = name.name;
    EXPECT_EQ(name.fromLabel, name.control == &labelled);
  }
  EXPECT_EQ(names, (std::map<std::string, std::wstring>{{"labelled", L"Year:"},
                                                        {"framed", L"Files"},
                                                        {"after_path", L"Files"},
                                                        {"picture", L"Move up"},
                                                        {"captioned", L"Go"},
                                                        {"own", L"Own"}}));
}

}  // namespace
}  // namespace tagrix
