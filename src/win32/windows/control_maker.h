// Makes the fitting window for each kind of control.
#ifndef TAGRIX_WIN32_WINDOWS_CONTROL_MAKER_H
#define TAGRIX_WIN32_WINDOWS_CONTROL_MAKER_H

#include <memory>

#include "forms/form.h"
#include "win32/windows/binding.h"

namespace tagrix {

// Null for what isn't drawn: a frame without a text. `wraps`: a label whose text may take several lines.
std::unique_ptr<Binding> MakeBinding(const Site& site, const Form& form, Control& control, bool wraps);

}  // namespace tagrix

#endif
