// The file of a language, as it comes from the resource directory or from anywhere else.
#pragma once

#include <cstddef>
#include <cstdint>
#include <zrhash>
#include <zrstring>

using Texts = ZrHash<std::uint32_t, ZrString>;

// Replaces the texts by those of a file: every element "tr", wherever it stands, with its "id" and
// "text". False, with the texts as they were, for what is no file, or no whole document in UTF-8
// within XmlBounds.
bool readLanguageFile(const char *path, Texts *texts);
// The same for a document in memory, behind whose last byte a zero stands.
bool readLanguage(const char *text, std::size_t size, Texts *texts);
