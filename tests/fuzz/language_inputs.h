// The bytes of a language file, for the fuzz target and for the test that runs its corpus.
// Aborts when something does not hold.
#pragma once

#include <cstddef>
#include <cstdint>

void tryLanguage(const std::uint8_t *bytes, std::size_t size);
