#pragma once

#include <string>
#include <string_view>

namespace pallomir {

/// True when nobody may write to an existing file, so that it is not to be replaced unasked.
bool IsWriteProtected(std::string_view path);

/// Where `path` leads, links resolved, when that is not within `folder`; else empty.
std::string PlaceOutside(std::string_view folder, std::string_view path);

}  // namespace pallomir
