// A bound on what is cut out of a hostile text, so that overlapping pieces can't outgrow it.
#ifndef TAGRIX_FREEDB_TEXT_ALLOWANCE_H
#define TAGRIX_FREEDB_TEXT_ALLOWANCE_H

#include <cstddef>
#include <string_view>

namespace tagrix {

// Pieces that don't overlap always fit; those that do fit as long as together they are no longer than the text and a
// mebibyte.
class TextAllowance {
 public:
  explicit TextAllowance(std::string_view text) : left_(text.size() + (std::size_t{1} << 20)) {}

  bool Take(std::string_view piece) {
    if (piece.size() > left_) return false;
    left_ -= piece.size();
    return true;
  }

 private:
  std::size_t left_;
};

}  // namespace tagrix

#endif
