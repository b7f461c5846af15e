#include "pallomir/timesel/event_epochs.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>

#include "pallomir/files/number_text.h"
#include "pallomir/files/text_case.h"
#include "pallomir/files/text_lines.h"

namespace pallomir {

namespace {

constexpr std::array kStartWords = {"begin", "begins", "beginning", "start", "starts", "started", "starting", "on"};
constexpr std::array kEndWords = {"end",     "ends",     "ended",  "ending",   "stop", "stops",
                                  "stopped", "stopping", "finish", "finished", "off"};

struct Event {
  std::string Stamp;
  double Time = 0;
  std::string_view Text;
};

/// An event that says the start or the end of something.
struct Mark {
  bool Starts = false;
  std::string Name;
  const Event* At = nullptr;
};

bool IsWordCharacter(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// The events in the order of their times. The listing ends with a record of zeros, which is none.
std::vector<Event> EventsIn(std::string_view listing) {
  std::vector<Event> events;
  TextLine line;
  for (TextLines lines(listing); lines.Take(line);) {
    std::string_view text = line.Text;
    const std::string_view stamp = TakeWord(text);
    const auto time = NumberFromText(stamp);
    text = Trimmed(text);
    if (time && !(*time == 0 && text.empty())) events.push_back({std::string(stamp), *time, text});
  }
  std::stable_sort(events.begin(), events.end(), [](const Event& a, const Event& b) { return a.Time < b.Time; });
  return events;
}

template <class Words>
bool Holds(const Words& words, std::string_view word) {
  return std::any_of(words.begin(), words.end(), [word](const char* known) { return SameButForCase(known, word); });
}

/// The name without what joined it to the word, and without what a label cannot hold.
std::string NameFrom(std::string_view rest) {
  constexpr std::string_view kBefore = " \t-_:,;./=\")]", kBehind = " \t-_:,;./=\"([";
  rest.remove_prefix(std::min(rest.find_first_not_of(kBefore), rest.size()));
  std::string name(rest.substr(0, rest.find_last_not_of(kBehind) + 1));
  std::replace_if(
      name.begin(), name.end(), [](char c) { return c == ':' || c == '"'; }, ' ');
  return name;
}

std::optional<Mark> MarkOf(const Event& event, std::string_view word, std::string_view rest) {
  const bool starts = Holds(kStartWords, word);
  if (!starts && !Holds(kEndWords, word)) return {};
  return Mark{starts, NameFrom(rest), &event};
}

/// What an event says by its last word, or else by its first.
std::optional<Mark> MarkOf(const Event& event) {
  const auto isWord = [](char c) { return IsWordCharacter(c); };
  const std::string_view text = event.Text;
  const auto lastEnd = std::find_if(text.rbegin(), text.rend(), isWord);
  const auto lastBegin = std::find_if_not(lastEnd, text.rend(), isWord);
  const auto before = static_cast<size_t>(text.rend() - lastBegin);
  const auto length = static_cast<size_t>(lastBegin - lastEnd);
  if (auto mark = MarkOf(event, text.substr(before, length), text.substr(0, before))) return mark;
  const auto firstBegin = std::find_if(text.begin(), text.end(), isWord);
  const auto firstEnd = std::find_if_not(firstBegin, text.end(), isWord);
  const auto first = static_cast<size_t>(firstBegin - text.begin()),
             past = static_cast<size_t>(firstEnd - text.begin());
  return MarkOf(event, text.substr(first, past - first), text.substr(past));
}

std::string InLowerCase(std::string name) {
  for (char& c : name)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return name;
}

/// For each mark that is a start, the event that says its end, if one does.
std::vector<const Event*> EndsOf(const std::vector<Mark>& marks) {
  std::vector<const Event*> ends(marks.size());
  std::map<std::string, size_t> begun;  // the last start of each name, until it ends
  for (size_t i = 0; i < marks.size(); ++i) {
    const std::string name = InLowerCase(marks[i].Name);
    if (marks[i].Starts) {
      begun[name] = i;
    } else if (const auto start = begun.find(name); start != begun.end()) {
      ends[start->second] = marks[i].At;
      begun.erase(start);
    }
  }
  return ends;
}

/// For each mark, the next one that is a start, or else the last event.
std::vector<const Event*> NextStarts(const std::vector<Mark>& marks, const Event* last) {
  std::vector<const Event*> next(marks.size());
  for (size_t i = marks.size(); i-- > 0;) {
    next[i] = last;
    if (marks[i].Starts) last = marks[i].At;
  }
  return next;
}

/// The first few of them.
std::string Listed(const std::vector<std::string>& names) {
  constexpr size_t kShown = 3;
  std::string list;
  for (size_t i = 0; i < std::min(kShown, names.size()); ++i) list += (i == 0 ? "" : ", ") + names[i];
  return names.size() <= kShown ? list : list + " and " + std::to_string(names.size() - kShown) + " more";
}

std::string Counted(int count, const char* one, const char* many) {
  return std::to_string(count) + (count == 1 ? one : many);
}

}  // namespace

EventEpochs EpochsOfEvents(std::string_view listing) {
  const std::vector<Event> events = EventsIn(listing);
  std::vector<Mark> marks;
  for (const Event& event : events)
    if (auto mark = MarkOf(event)) marks.push_back(std::move(*mark));
  if (marks.empty()) return {};
  const std::vector<const Event*> ends = EndsOf(marks), next = NextStarts(marks, &events.back());
  EventEpochs epochs;
  int unnamed = 0;
  for (size_t i = 0; i < marks.size(); ++i) {
    const auto& [starts, name, at] = marks[i];
    epochs.Unused += starts ? 0 : 1;
    if (!starts) continue;
    epochs.Unused -= ends[i] ? 1 : 0;
    const Event& last = ends[i] ? *ends[i] : *next[i];
    if (last.Time <= at->Time) {
      ++epochs.Unused;
      continue;
    }
    const std::string label = name.empty() ? "epoch " + std::to_string(++unnamed) : name;
    epochs.Found.push_back({label, at->Stamp, last.Stamp});
    if (!ends[i]) epochs.WithoutEnd.push_back(label);
  }
  return epochs;
}

std::string FillFromEvents(EpochTable& table, std::string_view listing) {
  const EventEpochs epochs = EpochsOfEvents(listing);
  int filled = 0, held = 0, noRoom = 0;
  for (const Epoch& epoch : epochs.Found) {
    const auto isSame = [&](const Epoch& row) { return row.Start == epoch.Start && row.End == epoch.End; };
    const auto isEmpty = [](const Epoch& row) { return row.Label.empty() && row.Start.empty() && row.End.empty(); };
    const auto room = std::find_if(table.begin(), table.end(), isEmpty);
    if (std::any_of(table.begin(), table.end(), isSame)) {
      ++held;
    } else if (room == table.end()) {
      ++noRoom;
    } else {
      *room = epoch;
      ++filled;
    }
  }
  if (epochs.Found.empty()) return R"(No event says where a part begins ("maze1 start", "Begin sleep", "run on").)";
  std::string told = Counted(filled, " epoch was", " epochs were") + " filled in.";
  const auto add = [&told](const std::string& sentence) { told.append(1, ' ').append(sentence); };
  if (held > 0) add(Counted(held, " is", " are") + " in the table already.");
  if (noRoom > 0) add(Counted(noRoom, " found", " found") + " no empty row.");
  if (!epochs.WithoutEnd.empty())
    add("No event ends " + Listed(epochs.WithoutEnd) + ": taken up to the next start, or the last event.");
  if (epochs.Unused > 0) add(Counted(epochs.Unused, " event", " events") + " without a counterpart left out.");
  return told;
}

}  // namespace pallomir
