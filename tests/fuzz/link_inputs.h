// Any bytes as what the link reads from outside: an ini file, a device profile, App's stream. Each
// stops the process when something holds that never may. Shared by the fuzz targets and by the
// tests that run their corpora.
#pragma once

#include <cstddef>
#include <cstdint>

void tryIniFile(const std::uint8_t *bytes, std::size_t size);
void tryProfile(const std::uint8_t *bytes, std::size_t size);
void tryFrames(const std::uint8_t *bytes, std::size_t size);
