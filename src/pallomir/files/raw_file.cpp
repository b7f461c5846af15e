#include "pallomir/files/raw_file.h"

#include "pallomir/files/file_fault.h"
#include "pallomir/files/file_utility.h"
#include "pallomir/files/number_text.h"
#include "pallomir/files/raw_header.h"
#include "pallomir/files/text_case.h"

namespace pallomir {

const RawLayout* LayoutByExtension(const std::filesystem::path& path) {
  const std::string extension = FileUtility::GetExtension(path);
  for (const RawLayout& layout : kRawLayouts)
    if (SameButForCase(extension, layout.Extension)) return &layout;
  return nullptr;
}

RawFile::RawFile(const std::filesystem::path& path, const RawLayout& layout) : file_(path), layout_(layout) {
  char firstByte = 0;
  if (file_.ReadUpTo(0, &firstByte, 1) == 1 && firstByte == '#') {
    header_.resize(kRawHeaderLength);
    header_.resize(file_.ReadUpTo(0, header_.data(), header_.size()));
  }
  const uint64_t data = file_.Length() - std::min<uint64_t>(file_.Length(), header_.size());
  records_ = data / layout_.RecordBytes;
  trailing_ = static_cast<size_t>(data % layout_.RecordBytes);

  const std::vector<double> size = HeaderNumbers(header_, "RecordSize");
  if (!size.empty() && size[0] != static_cast<double>(layout_.RecordBytes))
    throw FaultOf(ErrorKind::Foreign, file_.Path(),
                  "holds records of " + DoubleText(size[0]) + " bytes according to its header; the " +
                      std::string(layout_.Records) + " of a ." + std::string(layout_.Extension) + " file have " +
                      std::to_string(layout_.RecordBytes),
                  FilePlace::InHeader());
}

void RawFile::Read(uint64_t first, size_t count, unsigned char* into) {
  file_.Read(header_.size() + first * layout_.RecordBytes, into, count * layout_.RecordBytes);
}

}  // namespace pallomir
