// Which keys a form acts on as a whole.
#ifndef TAGRIX_WIN32_WINDOWS_FORM_KEYS_H
#define TAGRIX_WIN32_WINDOWS_FORM_KEYS_H

#include <windows.h>

#include <optional>

#include "forms/form.h"

namespace tagrix {

// Whether a key that closes or starts something is being held down: it acts once, so that it goes through no dialog
// that it closes into the window behind.
bool IsHeld(const MSG& message);

struct MeantKey {
  FormKey key;
  int page;  // FormKey::Page: which, from 0 on
};
// What a key that is pressed now, with those that are held beside it, means; nothing when it is for a control.
std::optional<MeantKey> FormKeyOf(WPARAM key);

}  // namespace tagrix

#endif
