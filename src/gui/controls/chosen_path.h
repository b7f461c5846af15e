#pragma once

#include <QString>
#include <filesystem>

namespace pallomir {

/// The path named by a file dialog or the command line. Qt's strings cannot represent a name that is not UTF-8:
/// the file that Qt shows under such a name is looked up in its folder.
std::filesystem::path PathOf(const QString& chosen);

/// How Qt shows a path; PathOf() finds it again.
QString ShownPath(const std::filesystem::path& path);

}  // namespace pallomir
