#include "tools/about/about_mod.h"

#include <string>
#include <utility>

#include "base/licences.h"
#include "base/publisher.h"
#include "core/dispatch.h"

namespace tagrix {

void InitAboutPage(AboutPage& page, Context& context, std::function<void()> checkForUpdate) {
  page.about_mail_btn.clicked =
      Command(context, [&] { context.shell.OpenLink(std::wstring(L"mailto:") + publisher::kSupportMail); });
  page.about_web_btn.clicked = Command(context, [&] { context.shell.OpenLink(publisher::kWebSite); });
  page.about_licences_btn.clicked = Command(context, [&] { context.prompts.Message(kLicences); });
  page.about_update_btn.clicked = Command(context, std::move(checkForUpdate));
}

}  // namespace tagrix
