// The dialog that asks how tags are written where the classic way would lose something.
#ifndef TAGRIX_DIALOGS_ASK_TAG_STYLE_H
#define TAGRIX_DIALOGS_ASK_TAG_STYLE_H

#include <optional>

#include "core/context.h"
#include "forms/buttons.h"
#include "forms/form.h"
#include "forms/text_controls.h"
#include "session/apply.h"

namespace tagrix {

struct AskTagStyleDialog {
  Label reasons_lbl{"reasons_lbl", LabelStyle::Literal}, kept_lbl{"kept_lbl", LabelStyle::Literal};
  Button standard_btn{"standard_btn"}, classic_btn{"classic_btn"}, cancel_btn{"cancel_btn"};
  Form form{"AskTagStyle"};
};

// Tells the reasons and stores the answer as the setting. Nothing when the user cancels.
std::optional<TagStyle> AskTagStyle(Context& context, const TagStyleReasons& reasons);

}  // namespace tagrix

#endif
