#pragma once

#include <QString>
#include <string>

namespace pallomir {

/// The path that a file dialog, or the command line, names, in the system's own notation. The toolkit's texts cannot
/// hold a name that is not UTF-8: what it made of such a name is looked for in its folder.
std::string PathOf(const QString& chosen);

}  // namespace pallomir
