#include <algorithm>
#include <array>

#include "pallomir/files/bytes.h"
#include "pallomir/files/raw_header.h"
#include "pallomir/files/raw_layout.h"
#include "pallomir/files/save_file.h"
#include "tools/sample/sample_files.h"

namespace pallomir {

namespace {

constexpr int16_t kRecordingEvent = 19;
constexpr int16_t kTypedEvent = 4;
constexpr int16_t kTtlEvent = 11;
constexpr uint64_t kPulseInterval = 5'000'000;  // microseconds
constexpr uint64_t kPulseLength = 20'000;

struct Event {
  uint64_t Time;  ///< microseconds from the start
  int16_t Id;
  uint16_t Ttl;
  std::string Text;
};

std::vector<Event> AllEvents(uint64_t microseconds) {
  std::vector<Event> events{{0, kRecordingEvent, 0, "Starting Recording"},
                            {microseconds, kRecordingEvent, 0, "Stopping Recording"}};
  for (uint64_t epoch = 0; epoch < 3; ++epoch) {
    // In a recording of 20 minutes the epochs take 6 minutes each, with 30 s before each of them.
    const uint64_t begin = microseconds * (1 + 13 * epoch) / 40;
    const std::string name = "Epoch " + std::to_string(epoch + 1);
    events.push_back({begin, kTypedEvent, 0, name + " start"});
    events.push_back({begin + microseconds * 12 / 40, kTypedEvent, 0, name + " end"});
  }
  const std::string port = "TTL Input on AcqSystem1_0 board 0 port 0 value ";
  for (uint64_t time = kPulseInterval / 2; time + kPulseLength < microseconds; time += kPulseInterval) {
    events.push_back({time, kTtlEvent, 1, port + "(0x0001)."});
    events.push_back({time + kPulseLength, kTtlEvent, 0, port + "(0x0000)."});
  }
  std::stable_sort(events.begin(), events.end(), [](const Event& a, const Event& b) { return a.Time < b.Time; });
  return events;
}

}  // namespace

void WriteSampleEvents(const std::filesystem::path& path, uint64_t microseconds) {
  SaveFile file(path);
  file.Write(MakeRawHeader("Pallomir sample recording: events",
                           {{"FileType", "Event"}, {"RecordSize", "184"}, {"AcqEntName", "Events"}}));
  for (const Event& event : AllEvents(microseconds)) {
    std::array<unsigned char, kEventsLayout.RecordBytes> record{};
    StoreLittleEndian(record.data() + kEventsLayout.StampOffset, kSampleStart + event.Time);
    StoreLittleEndian(record.data() + kEventId, event.Id);
    StoreLittleEndian(record.data() + kEventTtl, event.Ttl);
    std::copy_n(event.Text.begin(), std::min(event.Text.size(), kEventTextBytes - 1), record.begin() + kEventText);
    file.Write(record.data(), record.size());
  }
  file.Commit();
}

}  // namespace pallomir
