#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace pallomir {

/// True if an existing file is read-only for everyone, so that it must not be replaced without asking.
bool IsWriteProtected(const std::filesystem::path& path);

/// The resolved target of `path`, following links, if it is outside `folder`; otherwise empty.
std::filesystem::path PlaceOutside(const std::filesystem::path& folder, const std::filesystem::path& path);

}  // namespace pallomir
