#include <algorithm>

#include "fuzz/fuzz_target.h"
#include "pallomir/files/bytes.h"
#include "pallomir/waveforms/waveform_picture.h"
#include "support/temporary_folder.h"

namespace pallomir {

/// A waveform file whose first bytes also choose the record to read and the view through which it is drawn, over the
/// previous record. A record exists if the file holds all of it, and the drawing is within the height of the picture.
FUZZ_TARGET(FuzzWaveformFile) {
  static const TemporaryFolder folder;
  static const std::string name = folder / "fuzzed.Ntt.parms";
  folder.Put("fuzzed.waveforms", {reinterpret_cast<const char*>(data), size});
  WaveformFile file(name);
  unsigned char head[24] = {};
  std::copy_n(data, std::min(size, sizeof head), head);
  const auto asked = LoadLittleEndian<int64_t>(head);
  const View whole = WholeWaveformView(1 + head[8], 1 + head[9]);
  const Vertex corner{LoadLittleEndian<float>(head + 12), LoadLittleEndian<float>(head + 16)};
  WaveformPicture picture(ZoomedWaveformView(whole, corner, {30, LoadLittleEndian<float>(head + 20)}));
  WaveformRecord record{};
  for (const int64_t n : {asked, asked % 4, int64_t{0}}) {
    const bool there = n >= 0 && n < static_cast<int64_t>(size / kWaveformRecordBytes);
    REQUIRE(file.Read(n, record) == there);
    picture.Draw(record, head[10] % 31, head[11] % 2 == 1 ? -1 : 1.0 / (1 + head[11]));
  }
  std::array<uint32_t, 256> palette{};
  for (size_t code = 0; code < palette.size(); ++code) palette[code] = static_cast<uint32_t>(code);
  std::vector<uint32_t> pixels(size_t{256} * 256);
  picture.Pixels().Paint(palette, pixels.data(), 256);
  for (int row = 0; row < whole.Height; ++row)
    for (int c = 0; c < whole.Width; ++c) REQUIRE(pixels[256U * row + c] == picture.Pixels().At(c, row));
  return 0;
}

}  // namespace pallomir
