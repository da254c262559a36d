#include "tags/id3v2.h"

#include <memory>
#include <string_view>

#include "base/failure.h"
#include "base/text.h"
#include "tags/tagged_file.h"

namespace tagrix {
namespace {

constexpr std::string_view kMark = "ID3";

// The weights of the four bytes of a size. The first should be 128 cubed, 2097152: kept, so that sizes are read as they
// were written.
constexpr std::uint64_t kWeights[] = {kId3v2FirstByte, 16384, 128, 1};

std::string EncodeSize(std::uint64_t size) {
  std::string bytes;
  for (const std::uint64_t weight : kWeights) {
    if (size / weight > 255) throw Failure(Action::Tag, {}, Cause::TextTooLong);
    bytes += static_cast<char>(size / weight);
    size %= weight;
  }
  return bytes;
}

std::string FrameBytes(std::string_view id, const std::string& data) {
  return std::string(id) + EncodeSize(data.size()) + std::string(2, '\0') + data;
}

}  // namespace

std::string BuildID3v2(const TagFields& fields, CodePage& codePage) {
  const std::string latin1(1, '\0');  // the code of the text encoding
  const auto text = [&](std::string_view id, const std::wstring& value) {
    return FrameBytes(id, latin1 + codePage.ToBytes(Trim(value)));
  };
  const std::string frames =
      text("TIT2", fields.title) + text("TPE1", fields.artist) + text("TALB", fields.album) +
      text("TYER", fields.year) + text("TCON", fields.genre) + text("TRCK", fields.track) +
      FrameBytes("COMM", latin1 + "engComments" + std::string(1, '\0') + codePage.ToBytes(Trim(fields.comment)));
  return std::string(kMark) + '\3' + std::string(2, '\0') + EncodeSize(frames.size()) + frames;
}

std::uint64_t GetID3v2Size(Files& files, const std::wstring& path) {
  const std::unique_ptr<File> file = OpenOnLabelledVolume(files, path);
  return file ? GetID3v2Size(*file) : 0;
}

std::uint64_t GetID3v2Size(File& file) {
  std::string start(kId3v2HeaderSize + 1, '\0');
  start.resize(file.Read(0, start.data(), start.size()));
  if (start.size() <= kId3v2HeaderSize || !start.starts_with(kMark)) return 0;
  std::uint64_t size = 0;
  for (std::size_t i = 0; i < 4; ++i) size += kWeights[i] * static_cast<unsigned char>(start[6 + i]);
  return size;
}

}  // namespace tagrix
