#include "pallomir/session/defaults_file.h"

#include "pallomir/files/file_fault.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/files/file_utility.h"
#include "pallomir/files/number_text.h"
#include "pallomir/files/printable.h"
#include "pallomir/files/save_file.h"
#include "pallomir/files/text_header.h"
#include "pallomir/files/text_items.h"
#include "pallomir/files/text_lines.h"

namespace pallomir {

namespace {

int32_t RecordNumber(const std::filesystem::path& file, const FilePlace& place, std::string_view text) {
  const auto number = NumberFromText(text);
  if (!number) throw FaultAt(ErrorKind::OutOfRange, file, place, Quoted(text) + " is not a record number");
  return WholeNumber(*number, Located(file, place) + "record");
}

std::string Line(std::string_view key, std::string_view value) {
  if (value.find_first_of("\"\r\n") != std::string_view::npos)
    throw CommandError(ErrorKind::Refused,
                       "A Defaults file cannot hold a double quote: " + std::string(value) + ". Nothing was written.");
  return '"' + std::string(key) + "\",\"" + std::string(value) + "\"\r\n";
}

}  // namespace

bool ReadDefaults(Session& session, Defaults& defaults, const std::filesystem::path& path) {
  if (!FileUtility::FileExists(path)) return true;
  defaults.Epochs.clear();
  const std::string text = ReadText(path);
  const auto body = BodyBehindHeader(text);
  if (!body) return false;
  TextItems items(std::string_view(text).substr(body->Begin), path, body->FirstLine);
  size_t epoch = 0;
  while (!items.AtEnd()) {
    const std::string key = items.Text(), value = items.Text();
    if (key == "cbfilewrite") defaults.CBFileWrite = value;
    if (key == "cbfileread") defaults.CBFileRead = value;
    if (key == "clustfile") defaults.ClustFile = value;
    if (key == "paramfile") defaults.ParamFile = value;
    if (key == "posfile") defaults.PosFile = value;
    if (key == "Epoch") defaults.Epochs.push_back(value);
    if (key != "EpochEventIDs") continue;
    if (epoch == kEpochs) throw FaultAt(ErrorKind::OutOfRange, path, items.Place(), "there are more than 30 epochs");
    TextFields records(value);
    session.EpochStartRecord[epoch] = RecordNumber(path, items.Place(), records.Take());
    session.EpochEndRecord[epoch] = RecordNumber(path, items.Place(), records.Rest());
    ++epoch;
  }
  return true;
}

bool IsDefaultsFile(const std::filesystem::path& path) {
  const std::string text = ReadText(path, kTextHeaderLimit);
  const auto body = BodyBehindHeader(text);
  return body && HeaderValue(std::string_view(text).substr(0, body->Begin), "Kind") == "Defaults";
}

void WriteDefaults(const Session& session, const Defaults& defaults, const std::filesystem::path& path) {
  std::string text = TextHeader("Defaults") + Line("cbfilewrite", defaults.CBFileWrite) +
                     Line("cbfileread", defaults.CBFileRead) + Line("clustfile", defaults.ClustFile) +
                     Line("paramfile", "") + Line("posfile", defaults.PosFile);
  if (defaults.Epochs.size() > kEpochs)
    throw CommandError(ErrorKind::OutOfRange, "A Defaults file holds at most 30 epochs. Nothing was written.");
  for (size_t i = 0; i < defaults.Epochs.size(); ++i) {
    text += Line("Epoch", defaults.Epochs[i]);
    text += Line("EpochEventIDs",
                 std::to_string(session.EpochStartRecord[i]) + "," + std::to_string(session.EpochEndRecord[i]));
  }
  SaveFile file(path);
  file.Write(text);
  file.Commit();
}

}  // namespace pallomir
