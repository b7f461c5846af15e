#pragma once

#include <string>

#include "pallomir/files/bytes.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/files/parameter_header.h"
#include "pallomir/files/raw_layout.h"
#include "pallomir/files/text_header.h"
#include "support/analysis_files.h"
#include "support/events_files.h"
#include "support/parameter_files.h"
#include "support/temporary_folder.h"

// Raw files built byte by byte, and parameter files taken apart.
namespace pallomir::testing {

template <class T>
T At(const std::string& bytes, size_t offset) {
  return LoadLittleEndian<T>(reinterpret_cast<const unsigned char*>(bytes.data()) + offset);
}

template <class T>
void Set(std::string& bytes, size_t offset, T value) {
  StoreLittleEndian(reinterpret_cast<unsigned char*>(bytes.data()) + offset, value);
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

/// A parameter file taken apart.
struct ParameterRows {
  explicit ParameterRows(const std::string& path)
      : bytes(ReadText(path)), header(static_cast<size_t>(TextHeaderLength(bytes))) {}
  size_t Count() const { return (bytes.size() - header) / kRowBytes; }
  uint64_t Stamp(size_t row) const { return At<uint64_t>(bytes, header + kRowBytes * row); }
  float Value(size_t row, int parameter) const {
    return At<float>(bytes, header + kRowBytes * row + kStampBytes + sizeof(float) * parameter);
  }

  std::string bytes;
  size_t header;
};

}  // namespace pallomir::testing
