#include "whole_files.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <vector>

namespace pallomir {

namespace {

constexpr std::string_view kHeaderEnd = "# End of header\r\n";

std::string BytesOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// The lines of a text if every line ends in CR LF; otherwise the text itself.
std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  for (size_t at = 0; at < text.size();) {
    const size_t end = text.find("\r\n", at);
    if (end == std::string::npos) return {text};
    lines.push_back(text.substr(at, end - at));
    at = end + 2;
  }
  return lines;
}

auto Commas(const std::string& line) {
  return std::count(line.begin(), line.end(), ',');
}

std::string FaultOfBoundaries(const std::vector<std::string>& lines) {
  // Cluster, two parameters, their names, the number of corners, the corners, an empty line.
  constexpr size_t kBeforeCorners = 6;
  for (size_t at = 0; at < lines.size();) {
    if (at + kBeforeCorners > lines.size()) return "a boundary lacks its head";
    const size_t end = at + kBeforeCorners + std::stoul(lines[at + kBeforeCorners - 1]);
    if (end >= lines.size() || !lines[end].empty()) return "a boundary lacks corners";
    for (size_t corner = at + kBeforeCorners; corner < end; ++corner)
      if (Commas(lines[corner]) != 1) return "a corner is not a pair";
    at = end + 1;
  }
  return {};
}

std::string FaultOfLines(const std::vector<std::string>& lines, size_t first, long commas) {
  for (size_t at = first; at < lines.size(); ++at)
    if (Commas(lines[at]) != commas) return "line " + std::to_string(at + 1) + " has other items than its kind";
  return {};
}

std::string FaultOfMap(const std::vector<std::string>& lines) {
  const long columns = lines.empty() ? 0 : std::stol(lines[0]);
  const size_t rows = lines.empty() ? 0 : std::stoul(lines[0].substr(lines[0].find(',') + 1));
  if (lines.size() != rows + 1) return "the map lacks rows";
  return FaultOfLines(lines, 1, columns - 1);
}

}  // namespace

std::string FaultOf(const std::filesystem::path& path) {
  const std::string name = path.filename().string();
  const auto begins = [&](std::string_view start) { return name.starts_with(start); };
  const auto ends = [&](std::string_view end) { return name.ends_with(end); };
  if (ends(".saving~")) return "was left behind half written";
  const std::string bytes = BytesOf(path);
  if (ends(".png")) return bytes.ends_with("IEND\xAE\x42\x60\x82") ? "" : "the picture has no end";
  if (ends(".pdf")) return bytes.ends_with("%%EOF\n") ? "" : "the document has no end";
  if (ends(".svg")) return bytes.ends_with("</svg>\n") ? "" : "the picture has no end";
  if (begins("ClNotes")) {
    const std::vector<std::string> lines = LinesOf(bytes);
    return lines.size() == 31 ? "" : "the notes have " + std::to_string(lines.size()) + " lines";
  }
  if (name == "AxesScaleFile") {
    const std::vector<std::string> lines = LinesOf(bytes);
    return lines.size() == 134 ? FaultOfLines(lines, 0, 1)
                               : "the scales have " + std::to_string(lines.size()) + " lines";
  }
  const bool boundaries = begins("cbfile") && name.find(".txt") != std::string::npos,
             map = ends(".rmap") || ends(".occ") || ends(".2DAcorr");
  const bool cluster = name.find("cl-") != std::string::npos;
  if (!boundaries && !map && !cluster && name != "ttmp" && name != "Defaults" && !ends(".acorr") && !ends(".isi") &&
      !ends(".dir"))
    return {};
  const size_t header = bytes.find(kHeaderEnd);
  if (header == std::string::npos) return "the header has no end";
  const std::vector<std::string> lines = LinesOf(bytes.substr(header + kHeaderEnd.size()));
  if (boundaries) return FaultOfBoundaries(lines);
  if (map) return FaultOfMap(lines);
  if (cluster) return FaultOfLines(lines, 2, 17);
  if (name == "ttmp") return FaultOfLines(lines, 0, 0);
  return !bytes.ends_with("\r\n") ? "the last line has no end" : "";
}

void FileWatch::Excuse(const std::filesystem::path& path) {
  excused_.insert(BytesOf(path));
}

std::string FileWatch::FirstFault() const {
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_)) {
    if (!entry.is_regular_file()) continue;
    std::string fault;
    try {
      fault = FaultOf(entry.path());
    } catch (const std::exception&) {
      fault = "a number is missing";
    }
    if (!fault.empty() && !excused_.contains(BytesOf(entry.path()))) return entry.path().string() + ": " + fault;
  }
  return {};
}

}  // namespace pallomir
