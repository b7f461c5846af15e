#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "files/bytes.h"
#include "files/parameter_header.h"
#include "files/raw_header.h"
#include "files/raw_layout.h"
#include "files/text_header.h"

// Raw files built byte by byte, and a folder to put them in.
namespace pallomir::testing {

/// A folder of its own that is gone after the test.
class TempFolder {
 public:
  TempFolder()
      : path_(std::filesystem::temp_directory_path() / ("pallomir-tools-" + std::to_string(std::random_device()()))) {
    std::filesystem::create_directories(path_);
  }
  ~TempFolder() { std::filesystem::remove_all(path_); }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  std::string operator/(const std::string& name) const { return (path_ / name).string(); }

  /// Writes a file and returns its path.
  std::string Put(const std::string& name, const std::string& bytes) const {
    std::filesystem::create_directories((path_ / name).parent_path());
    std::ofstream(path_ / name, std::ios::binary) << bytes;
    return *this / name;
  }

 private:
  std::filesystem::path path_;
};

inline std::string Bytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

template <class T>
T At(const std::string& bytes, size_t place) {
  return LoadLittleEndian<T>(reinterpret_cast<const unsigned char*>(bytes.data()) + place);
}

template <class T>
void Set(std::string& bytes, size_t place, T value) {
  StoreLittleEndian(reinterpret_cast<unsigned char*>(bytes.data()) + place, value);
}

inline std::string Header(const std::vector<std::pair<std::string, std::string>>& lines = {}) {
  return MakeRawHeader("a recording", lines);
}

/// A spike record; sample s of channel c is height * (c + 1) at s = 8, -height / 2 at s = 20, otherwise 0.
inline std::string Spike(uint64_t stamp, int16_t height, const RawLayout& layout = kTetrodeLayout) {
  std::string record(layout.RecordBytes, '\0');
  Set(record, 0, stamp);
  for (int c = 0; c < layout.Channels; ++c) {
    Set(record, kSpikeSamples + 2 * (8 * layout.Channels + c), static_cast<int16_t>(height * (c + 1)));
    Set(record, kSpikeSamples + 2 * (20 * layout.Channels + c), static_cast<int16_t>(-height / 2));
  }
  return record;
}

inline std::string VideoFrame(uint64_t stamp, int32_t x, int32_t y, int32_t angle = 90) {
  std::string record(kVideoLayout.RecordBytes, '\0');
  Set(record, kVideoLayout.StampOffset, stamp);
  Set(record, kFrameX, x);
  Set(record, kFrameY, y);
  Set(record, kFrameAngle, angle);
  return record;
}

inline std::string Event(uint64_t stamp, const std::string& text) {
  std::string record(kEventsLayout.RecordBytes, '\0');
  Set(record, kEventsLayout.StampOffset, stamp);
  std::copy(text.begin(), text.end(), record.begin() + kEventText);
  return record;
}

/// A parameter file taken apart.
struct ParameterRows {
  explicit ParameterRows(const std::string& path)
      : bytes(Bytes(path)), header(static_cast<size_t>(TextHeaderLength(bytes))) {}
  size_t Count() const { return (bytes.size() - header) / kRowBytes; }
  uint64_t Stamp(size_t row) const { return At<uint64_t>(bytes, header + kRowBytes * row); }
  float Value(size_t row, int parameter) const {
    return At<float>(bytes, header + kRowBytes * row + kStampBytes + sizeof(float) * parameter);
  }

  std::string bytes;
  size_t header;
};

}  // namespace pallomir::testing
