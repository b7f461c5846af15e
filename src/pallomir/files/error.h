#pragma once

#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <utility>

#include "pallomir/files/printable.h"

namespace pallomir {

/// What went wrong, for callers that can do something about it.
enum class ErrorKind {
  Missing,     ///< a file that the command needs does not exist
  Unreadable,  ///< a file or folder cannot be read: it is not a regular file, or the system refuses
  Broken,      ///< a file's content is damaged, or ends early
  Foreign,     ///< a file is of the wrong kind, or has replaced the one that was opened
  NotWritten,  ///< a file or folder cannot be created, written or renamed; nothing was lost
  Refused,     ///< a name, number or text cannot be used
  OutOfRange,  ///< records, times or epochs that the recording, or the table of epochs, does not hold
  NotReady,    ///< there is nothing to work on yet: no points are loaded, no cluster is chosen
  NoMemory,
};

/// A location in a file: its header, or a line (from 1), record (from 0) or byte (from 0).
struct FilePlace {
  enum class Unit { Nowhere, Header, Line, Record, Byte };
  Unit In = Unit::Nowhere;
  int64_t Number = 0;

  static FilePlace InHeader() { return {Unit::Header, 0}; }
  static FilePlace AtLine(int64_t line) { return {Unit::Line, line}; }
  static FilePlace AtRecord(int64_t record) { return {Unit::Record, record}; }
  static FilePlace AtByte(uint64_t byte) { return {Unit::Byte, static_cast<int64_t>(byte)}; }
  bool operator==(const FilePlace&) const = default;
};

/// Ends a command; throwers leave the session consistent. what() is one sentence for the user, which says what is
/// wrong, in which file and where. Texts from files may contain any bytes; only printable ones are shown. See
/// file_fault.h for sentences about files.
class CommandError : public std::runtime_error {
 public:
  CommandError(ErrorKind kind, const std::string& sentence, std::filesystem::path file = {}, FilePlace place = {})
      : std::runtime_error(Printable(sentence)), kind_(kind), file_(std::move(file)), place_(place) {}

  ErrorKind Kind() const noexcept { return kind_; }
  /// The file that is wrong; empty if none is.
  const std::filesystem::path& File() const noexcept { return file_; }
  const FilePlace& Place() const noexcept { return place_; }

  /// The same error with `more` after its sentence.
  CommandError With(const std::string& more) const { return {kind_, what() + more, file_, place_}; }

 private:
  ErrorKind kind_;
  std::filesystem::path file_;
  FilePlace place_;
};

/// The program cannot continue: it exits once the user has read the sentence.
class ProgramEnd : public std::runtime_error {
 public:
  explicit ProgramEnd(const std::string& sentence) : std::runtime_error(Printable(sentence)) {}
};

/// The user stopped a long operation; no message is shown.
class Interrupted : public std::exception {
 public:
  const char* what() const noexcept override { return "interrupted"; }
};

}  // namespace pallomir
