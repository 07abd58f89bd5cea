// Settings files, through each system's own functions if it has any. All texts are UTF-8.
#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace tarvelo::platform {

// Reads at most 255 characters of a value; empty if there is none.
[[nodiscard]] std::string ReadIni(const std::filesystem::path& file, const std::string& section,
                                  const std::string& key);
void WriteIni(const std::filesystem::path& file, const std::string& section, const std::string& key,
              const std::string& value);
[[nodiscard]] std::vector<std::pair<std::string, std::string>> ReadIniSection(
    const std::filesystem::path& file, const std::string& section);

}  // namespace tarvelo::platform
