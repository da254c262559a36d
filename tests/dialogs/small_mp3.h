// MP3 files of a wanted playing time.
#ifndef TAGRIX_TESTS_DIALOGS_SMALL_MP3_H
#define TAGRIX_TESTS_DIALOGS_SMALL_MP3_H

#include <string>

namespace tagrix {

// One frame header of 32 kbit/s and silence up to the end. At least 64 ms.
inline std::string SmallMp3(int milliseconds) {
  std::string bytes(static_cast<std::size_t>(milliseconds) * 4, '\0');
  return bytes.replace(0, 4, std::string("\xFF\xFB\x10\x00", 4));
}

}  // namespace tagrix

#endif
