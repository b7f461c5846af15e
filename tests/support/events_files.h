#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "pallomir/files/bytes.h"
#include "pallomir/files/raw_layout.h"

namespace pallomir {

/// A record of an events file; its unused bytes are not zero.
inline std::string EventRecord(uint64_t stamp, std::string_view text) {
  std::string record(kEventsLayout.RecordBytes, '\x81');
  StoreLittleEndian(reinterpret_cast<unsigned char*>(record.data()) + kEventsLayout.StampOffset, stamp);
  record.replace(kEventText, kEventTextBytes, std::string(kEventTextBytes, '\0'));
  record.replace(kEventText, text.size(), text);
  return record;
}

}  // namespace pallomir
