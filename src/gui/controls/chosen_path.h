#pragma once

#include <QString>
#include <string>

namespace pallomir {

/// The path named by a file dialog or the command line, in the internal notation. Qt's strings cannot represent a name
/// that is not UTF-8: the file that Qt shows under such a name is looked up in its folder.
std::string PathOf(const QString& chosen);

}  // namespace pallomir
