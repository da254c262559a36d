#include "tools/about/about_page.h"

#include "base/publisher.h"
#include "base/text.h"
#include "core/messages.h"
#include "core/notices.h"

namespace tagrix {

Node AboutLayout(AboutPage& page) {
  const auto link = [](Button& button, Label& address) { return Row({MinSize(150, 0, button), Stretch(1, address)}); };
  const Node facts =
      Column({page.about_name_lbl, page.about_version_lbl, Wrap(380, page.about_purpose_lbl), page.about_authors_lbl,
              MinSize(0, kWideGap, Row({})), link(page.about_mail_btn, page.about_mail_lbl),
              link(page.about_web_btn, page.about_web_lbl), Row({MinSize(150, 0, page.about_update_btn), Spacer()}),
              Row({MinSize(150, 0, page.about_licences_btn), Spacer()})});
  return Column({Spacer(), Row({Spacer(), MinSize(380, 0, Gap(kWideGap, facts)), Spacer()}), Spacer(2)});
}

void TranslateAboutPage(AboutPage& page, Context& context) {
  using publisher::kMajor, publisher::kMinor, publisher::kRevision;
  SetCaptions(context, {{page.about_update_btn, message::kCheckForUpdates},
                        {page.about_licences_btn, message::kLicences},
                        {page.about_mail_btn, message::kSupport},
                        {page.about_web_btn, message::kWebSite},
                        {page.about_purpose_lbl, message::kPurpose}});
  page.about_name_lbl.SetText(publisher::kProduct);
  page.about_version_lbl.SetText(FillMessage(
      context.Text(message::kVersion), {std::to_wstring(kMajor), std::to_wstring(kMinor), std::to_wstring(kRevision)}));
  page.about_authors_lbl.SetText(FillMessage(context.Text(message::kAuthors), {publisher::kAuthors}));
  page.about_mail_lbl.SetText(publisher::kSupportMail);
  page.about_web_lbl.SetText(publisher::kWebSite);
}

}  // namespace tagrix
