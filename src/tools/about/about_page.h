// The about page's controls: what the program is, and the ways to its publisher.
#ifndef TAGRIX_TOOLS_ABOUT_ABOUT_PAGE_H
#define TAGRIX_TOOLS_ABOUT_ABOUT_PAGE_H

#include "core/context.h"
#include "forms/buttons.h"
#include "forms/layout.h"
#include "forms/text_controls.h"

namespace tagrix {

struct AboutPage {
  Label about_name_lbl{"about_name_lbl", LabelStyle::Heading};
  Label about_version_lbl{"about_version_lbl"}, about_purpose_lbl{"about_purpose_lbl"};
  Label about_authors_lbl{"about_authors_lbl"};
  Label about_mail_lbl{"about_mail_lbl", LabelStyle::Literal}, about_web_lbl{"about_web_lbl", LabelStyle::Literal};
  Button about_mail_btn{"about_mail_btn"}, about_web_btn{"about_web_btn"}, about_update_btn{"about_update_btn"};
  Button about_licences_btn{"about_licences_btn"};
};

Node AboutLayout(AboutPage& page);
// Sets the captions from the language texts.
void TranslateAboutPage(AboutPage& page, Context& context);

}  // namespace tagrix

#endif
