// Every page and every sample dialog of the gallery as PNG files.
#pragma once

#include <string>

// Into the folder, which is made: PAGE-LANGUAGE-WIDTHxHEIGHT.png, at both sizes and in each
// language that has a file. With a page name only that one. False, with a line on standard error.
bool takeShots(const std::string &folder, const std::string &onlyPage);
