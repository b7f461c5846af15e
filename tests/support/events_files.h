#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "files/bytes.h"

namespace pallomir {

/// A record of an events file; what is not used of it is not zero.
inline std::string EventRecord(uint64_t stamp, std::string_view text) {
  std::string record(184, '\x81');
  StoreLittleEndian(reinterpret_cast<unsigned char*>(record.data()) + 6, stamp);
  record.replace(56, 128, std::string(128, '\0'));
  record.replace(56, text.size(), text);
  return record;
}

}  // namespace pallomir
