#include "pallomir/files/file_fault.h"

#include <array>

#include "pallomir/files/platform.h"

namespace pallomir {

namespace {

/// "line 3"; "header".
std::string PlaceText(const FilePlace& place) {
  constexpr std::array kUnits = {"", "header", "line ", "record ", "byte "};
  const std::string unit = kUnits[static_cast<size_t>(place.In)];
  return place.In > FilePlace::Unit::Header ? unit + std::to_string(place.Number) : unit;
}

std::string Joined(std::string subject, std::string_view rest) {
  return subject.append(rest) + ".";
}

}  // namespace

std::string Located(const std::filesystem::path& file, const FilePlace& place) {
  const std::string text = PlaceText(place);
  return NameText(file) + (text.empty() ? "" : ", " + text) + ": ";
}

CommandError FaultAt(ErrorKind kind, const std::filesystem::path& file, const FilePlace& place, std::string_view what) {
  return {kind, Joined(Located(file, place), what), file, place};
}

CommandError FaultOf(ErrorKind kind, const std::filesystem::path& file, std::string_view what, const FilePlace& place) {
  return {kind, Joined(NameText(file) + " ", what), file, place};
}

CommandError EndedEarly(const std::filesystem::path& file, const FilePlace& place) {
  return FaultOf(ErrorKind::Broken, file, "ended early, at " + PlaceText(place), place);
}

CommandError FaultOfPath(ErrorKind kind, const std::filesystem::path& file, std::string_view what) {
  return {kind, Joined(PathText(file) + " ", what), file};
}

CommandError NotPresent(const std::filesystem::path& file) {
  return {ErrorKind::Missing, PathText(file) + " is not present", file};
}

}  // namespace pallomir
