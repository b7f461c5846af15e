#pragma once

#include <string>
#include <string_view>

namespace pallomir {

/// True if an existing file is read-only for everyone, so that it must not be replaced without asking.
bool IsWriteProtected(std::string_view path);

/// The resolved target of `path`, following links, if it is outside `folder`; otherwise empty.
std::string PlaceOutside(std::string_view folder, std::string_view path);

}  // namespace pallomir
