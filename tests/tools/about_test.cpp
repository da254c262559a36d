#include <gtest/gtest.h>

#include "fakes/fakes.h"
#include "tools/about/about_mod.h"

namespace tagrix {

TEST(About, LeadsToThePublisher) {
  TestContext test;
  AboutPage page;
  InitAboutPage(page, test.context, [] {});
  page.about_mail_btn.Click();
  page.about_web_btn.Click();
  EXPECT_EQ(test.shell.links,
            (std::vector<std::wstring>{L"mailto:support@tagrix.example", L"http://www.tagrix.example"}));
}

}  // namespace tagrix
