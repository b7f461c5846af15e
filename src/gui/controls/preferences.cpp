#include "gui/controls/preferences.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QStandardPaths>
#include <QStringList>
#include <cmath>
#include <limits>
#include <optional>
#include <type_traits>

#include "gui/controls/chosen_path.h"
#include "pallomir/files/error.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/files/save_file.h"
#include "pallomir/files/set_aside.h"
#include "pallomir/files/write_target.h"

namespace pallomir {

namespace {

namespace fs = std::filesystem;

constexpr size_t kLongest = size_t{1} << 20;

/// What the file holds, nothing if it does not exist yet; no value if it is not ours.
std::optional<QJsonObject> ValuesIn(const fs::path& file) {
  try {
    const std::string text = ReadText(file, kLongest);
    const auto content = QJsonDocument::fromJson(QByteArray(text.data(), static_cast<qsizetype>(text.size())));
    if (content.isObject()) return content.object();
  } catch (const CommandError& error) {
    if (error.Kind() == ErrorKind::Missing) return QJsonObject();
  }
  return {};
}

void Write(const fs::path& file, const QByteArray& text) {
  std::error_code error;
  fs::create_directories(file.parent_path(), error);
  SaveFile save(file);
  save.Write(text.constData(), static_cast<size_t>(text.size()));
  save.Commit();
}

template <class Value>
QJsonValue ToJson(const Value& value) {
  if constexpr (std::is_same_v<Value, QStringList>)
    return QJsonArray::fromStringList(value);
  else if constexpr (std::is_same_v<Value, QByteArray>)
    return QString::fromLatin1(value.toBase64());
  else
    return value;
}

std::optional<int> WholeNumberIn(const QJsonValue& json) {
  const double number = json.toDouble(0.5);
  if (std::nearbyint(number) != number || std::abs(number) > std::numeric_limits<int>::max()) return {};
  return static_cast<int>(number);
}

std::optional<QStringList> TextsIn(const QJsonValue& json) {
  if (!json.isArray()) return {};
  QStringList texts;
  const QJsonArray array = json.toArray();
  for (const auto& text : array) {
    if (!text.isString()) return {};
    texts << text.toString();
  }
  return texts;
}

template <class Value>
std::optional<Value> FromJson(const QJsonValue& json) {
  if constexpr (std::is_same_v<Value, bool>) {
    if (json.isBool()) return json.toBool();
  } else if constexpr (std::is_same_v<Value, int>) {
    return WholeNumberIn(json);
  } else if constexpr (std::is_same_v<Value, double>) {
    if (json.isDouble()) return json.toDouble();
  } else if constexpr (std::is_same_v<Value, QString>) {
    if (json.isString()) return json.toString();
  } else if constexpr (std::is_same_v<Value, QStringList>) {
    return TextsIn(json);
  } else if (json.isString()) {
    return QByteArray::fromBase64(json.toString().toLatin1());
  }
  return {};
}

}  // namespace

Preferences::Preferences(fs::path file) : file_(std::move(file)), values_(ValuesIn(file_).value_or(QJsonObject())) {}

void Preferences::Reload() {
  const QJsonObject saved = ValuesIn(file_).value_or(QJsonObject());
  // What could not be saved here stays.
  for (auto value = saved.begin(); value != saved.end(); ++value) values_.insert(value.key(), value.value());
}

fs::path Preferences::UsualFile() {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
  return folder.isEmpty() ? fs::path() : PathOf(folder) / "preferences.json";
}

template <class Value>
Value Preferences::Get(const QString& key, const Value& otherwise) const {
  return FromJson<Value>(values_.value(key)).value_or(otherwise);
}

template <class Value>
void Preferences::Set(const QString& key, const Value& value) {
  const QJsonValue json = ToJson(value);
  if (values_.value(key) != json) Save(key, json);
}

void Preferences::Save(const QString& key, const QJsonValue& value) {
  values_.insert(key, value);
  if (file_.empty() || IsWriteProtected(file_)) return;
  try {
    std::optional<QJsonObject> all = ValuesIn(file_);
    if (!all) {
      SetAside(file_);
      all.emplace();
    }
    all->insert(key, value);
    Write(file_, QJsonDocument(*all).toJson());
  } catch (const CommandError&) {
    // It is remembered until the program ends.
  }
}

template bool Preferences::Get(const QString&, const bool&) const;
template int Preferences::Get(const QString&, const int&) const;
template double Preferences::Get(const QString&, const double&) const;
template QString Preferences::Get(const QString&, const QString&) const;
template QStringList Preferences::Get(const QString&, const QStringList&) const;
template QByteArray Preferences::Get(const QString&, const QByteArray&) const;
template void Preferences::Set(const QString&, const bool&);
template void Preferences::Set(const QString&, const int&);
template void Preferences::Set(const QString&, const double&);
template void Preferences::Set(const QString&, const QString&);
template void Preferences::Set(const QString&, const QStringList&);
template void Preferences::Set(const QString&, const QByteArray&);

}  // namespace pallomir
