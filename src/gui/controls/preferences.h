#pragma once

#include <QJsonObject>
#include <QString>
#include <filesystem>

namespace pallomir {

/// What the program remembers from one start to the next, by key: options, places of windows, recordings opened last.
/// Kept in a readable file of the program's own, as one JSON object. Nothing depends on it: a file that cannot be read
/// or understood counts as empty, and is set aside when there is something to save; one that cannot be written, or that
/// the user has write-protected, stays as it is.
class Preferences {
 public:
  /// Remembers only as long as the program runs.
  Preferences() = default;
  /// Reads `file`, which need not exist yet, nor its folder.
  explicit Preferences(std::filesystem::path file);

  /// Takes over what other running programs have saved.
  void Reload();

  /// The user's own file, in the folder that the desktop keeps for configuration.
  static std::filesystem::path UsualFile();

  /// The value of a key: a bool, int, double, QString, QStringList or QByteArray. `otherwise` if there is none, or if
  /// it is of another type.
  template <class Value>
  Value Get(const QString& key, const Value& otherwise = {}) const;

  /// Remembers a value of one of these types, and saves it at once if it is new. What another running program has saved
  /// under other keys meanwhile is kept.
  template <class Value>
  void Set(const QString& key, const Value& value);

 private:
  void Save(const QString& key, const QJsonValue& value);

  std::filesystem::path file_;
  QJsonObject values_;
};

}  // namespace pallomir
