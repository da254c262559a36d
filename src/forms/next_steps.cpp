#include "forms/next_steps.h"

#include <algorithm>

#include "forms/buttons.h"

namespace tagrix {

void MarkNextSteps(const Form& form, const std::vector<Placement>& places) {
  const auto usable = [&](const Button* step) {
    return std::any_of(places.begin(), places.end(), [step](const Placement& place) {
      return place.control == step && place.visible && place.enabled;
    });
  };
  for (const std::vector<Button*>& steps : form.steps) {
    const auto next = std::find_if(steps.rbegin(), steps.rend(), usable);
    for (Button* step : steps) step->SetMarked(next != steps.rend() && step == *next);
  }
}

}  // namespace tagrix
