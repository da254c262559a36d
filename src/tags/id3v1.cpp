#include "tags/id3v1.h"

#include <memory>

#include "base/failure.h"
#include "base/text.h"
#include "tags/genres.h"
#include "tags/tagged_file.h"

namespace tagrix {
namespace {

constexpr std::uint64_t kLongestUntagged = 130;  // files up to here are taken as having no tag
constexpr std::uint64_t kTagSize = 128;

std::string Field(std::wstring_view text, std::size_t width, CodePage& codePage) {
  std::string bytes = codePage.ToBytes(text);
  bytes.resize(width, ' ');
  return bytes;
}

char TrackByte(const std::wstring& track) {
  const std::wstring digits = Trim(track);
  int number = digits.empty() ? -1 : 0;
  for (const wchar_t digit : digits) {
    if (digit < L'0' || digit > L'9' || number > 255) number = -1;
    if (number < 0) break;
    number = number * 10 + (digit - L'0');
  }
  if (number < 0 || number > 255) throw Failure(Action::Tag, track, Cause::BadTrackNumber);
  return static_cast<char>(number);
}

}  // namespace

std::string BuildID3v1(const TagFields& fields, const std::vector<std::wstring>& styles, CodePage& codePage) {
  std::string record = Field(fields.title, 30, codePage) + Field(fields.artist, 30, codePage) +
                       Field(fields.album, 30, codePage) + Field(fields.year, 4, codePage) +
                       Field(fields.comment, 28, codePage);
  record += '\0';
  record += TrackByte(fields.track);
  record += static_cast<char>(147 - GetIDXFromStyleName(styles, fields.genre));
  return record;
}

bool HasID3v1(Files& files, const std::wstring& path) {
  const std::unique_ptr<File> file = OpenOnLabelledVolume(files, path);
  return file && HasID3v1(*file, file->Size());
}

bool HasID3v1(File& file, std::uint64_t size) {
  if (size <= kLongestUntagged) return false;
  std::string mark(kId3v1Mark.size(), '\0');
  file.Read(size - kTagSize, mark.data(), mark.size());
  return mark == kId3v1Mark;
}

}  // namespace tagrix
