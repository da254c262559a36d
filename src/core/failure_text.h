// What a failure says to the user.
#ifndef TAGRIX_CORE_FAILURE_TEXT_H
#define TAGRIX_CORE_FAILURE_TEXT_H

#include <string>

#include "base/failure.h"
#include "core/language.h"

namespace tagrix {

// The reason alone.
std::wstring CauseText(const Language& language, const Failure& failure);

// What could not be done, the path and the reason, those that are known, one a line.
std::wstring FailureText(const Language& language, const Failure& failure);

}  // namespace tagrix

#endif
