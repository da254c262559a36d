// Makes the fitting window for each kind of control.
#ifndef TAGRIX_WIN32_WINDOWS_CONTROL_MAKER_H
#define TAGRIX_WIN32_WINDOWS_CONTROL_MAKER_H

#include <memory>

#include "forms/form.h"
#include "win32/windows/binding.h"

namespace tagrix {

// Null for what the form draws itself.
std::unique_ptr<Binding> MakeBinding(const Site& site, const Form& form, Control& control);

}  // namespace tagrix

#endif
