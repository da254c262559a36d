#include <gtest/gtest.h>

#include "fakes/fakes.h"
#include "tools/about/about_mod.h"

namespace tagrix {
namespace {

TEST(About, LeadsToThePublisher) {
  TestContext test;
  AboutPage page;
  int checks = 0;
  InitAboutPage(page, test.context, [&] {
    ++checks;
    page.about_update_btn.Click();  // refused while the check runs
  });
  TranslateAboutPage(page, test.context);
  EXPECT_EQ(page.about_version_lbl.Text(), L"<107> 1.0.0");
  EXPECT_EQ(page.about_authors_lbl.Text(), L"<106> Tagrix contributors");
  page.about_mail_btn.Click();
  page.about_web_btn.Click();
  EXPECT_EQ(test.shell.links,
            (std::vector<std::wstring>{L"mailto:support@tagrix.example", L"http://www.tagrix.example"}));
  page.about_update_btn.Click();
  EXPECT_EQ(checks, 1);
}

}  // namespace
}  // namespace tagrix
