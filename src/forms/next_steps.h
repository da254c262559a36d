// Which of a form's steps comes next.
#ifndef TAGRIX_FORMS_NEXT_STEPS_H
#define TAGRIX_FORMS_NEXT_STEPS_H

#include <vector>

#include "forms/form.h"
#include "forms/layout.h"

namespace tagrix {

// Marks, of each row of steps, the last that can be seen and used.
void MarkNextSteps(const Form& form, const std::vector<Placement>& places);

}  // namespace tagrix

#endif
