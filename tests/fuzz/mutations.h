// Saved inputs, and inputs made from them by random changes that are the same in every run.
#ifndef TAGRIX_TESTS_FUZZ_MUTATIONS_H
#define TAGRIX_TESTS_FUZZ_MUTATIONS_H

#include <functional>
#include <string>

namespace tagrix {

// Runs `target` on every file of the corpus folder as it is, and on `rounds` inputs that are made of each by cutting,
// repeating, splicing and changing bytes. After a failed expectation it stops and writes the input beside the program.
void Fuzz(const std::string& folder, int rounds, const std::function<void(const std::string&)>& target);

}  // namespace tagrix

#endif
