#include "tools/info/describe_file.h"

#include "pallomir/files/file_fault.h"
#include "pallomir/files/file_lines.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/files/file_utility.h"
#include "pallomir/files/number_text.h"
#include "pallomir/files/platform.h"
#include "pallomir/files/raw_file.h"
#include "pallomir/files/raw_header.h"
#include "pallomir/files/text_case.h"
#include "pallomir/files/text_header.h"
#include "pallomir/files/text_items.h"
#include "tools/figures.h"
#include "tools/info/facts.h"

namespace pallomir {

namespace {

std::string DescribeVideoSampling(const std::filesystem::path& path) {
  const std::string text = ReadText(path, 256);
  Facts facts("VideoSampling: the frame rate of the video");
  TextItems items(text, "VideoSampling");
  const auto rate = NumberFromText(items.AtEnd() ? std::string() : items.Text());
  if (rate)
    facts.Add("rate", DoubleText(*rate) + " frames per second");
  else
    facts.Odd("it does not begin with a number");
  if (rate && *rate != 30 && *rate != 60) facts.Odd("only 30 and 60 can be used");
  return facts.Text();
}

std::string DescribeOwnText(const std::filesystem::path& path, std::string_view header) {
  FileReader file(path);
  Facts facts(file.Name() + ": a text file of kind " + HeaderValue(header, "Kind").value_or(""));
  facts.Add("written", HeaderValue(header, "Date").value_or(""));
  uint64_t lines = 0;
  ForEachLine(file, {header.size(), 1}, [&](const TextLine&) { ++lines; });
  facts.Add("lines", CountText(lines) + " after the header");
  return facts.Text();
}

bool IsVideoSampling(const std::filesystem::path& path) {
  return SameButForCase(NameText(path), "VideoSampling");
}

/// The layout with the record size stated in the header; nullptr if there is none.
const RawLayout* LayoutByHeader(std::string_view header) {
  const std::vector<double> size = HeaderNumbers(header, "RecordSize");
  for (const RawLayout& layout : kRawLayouts)
    if (!size.empty() && size[0] == static_cast<double>(layout.RecordBytes)) return &layout;
  return nullptr;
}

}  // namespace

std::string DescribeFile(const std::filesystem::path& path, ProgressBar& progress) {
  const std::string extension = FileUtility::GetExtension(path);
  if (const RawLayout* layout = LayoutByExtension(path)) return DescribeRaw(path, *layout, progress);
  if (SameButForCase(extension, "parms")) return DescribeParameters(path, progress);
  if (SameButForCase(extension, "waveforms")) return DescribeWaveforms(path, progress);
  if (SameButForCase(extension, "p")) return DescribePositions(path);
  if (IsVideoSampling(path)) return DescribeVideoSampling(path);

  const std::string beginning = ReadText(path, kTextHeaderLimit);
  if (const long length = TextHeaderLength(beginning); beginning.starts_with('#') && length > 0) {
    const std::string_view header = std::string_view(beginning).substr(0, static_cast<size_t>(length));
    const std::string kind = HeaderValue(header, "Kind").value_or("");
    if (kind == "Parameters") return DescribeParameters(path, progress);
    if (kind == "PosFile") return DescribePositions(path);
    if (!kind.empty()) return DescribeOwnText(path, header);
  }
  if (beginning.starts_with('#'))
    if (const RawLayout* layout = LayoutByHeader(std::string_view(beginning).substr(0, kRawHeaderLength)))
      return DescribeRaw(path, *layout, progress);
  throw FaultOfPath(ErrorKind::Foreign, path, "is not a file of a known kind");
}

}  // namespace pallomir
