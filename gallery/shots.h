// Every page and every sample dialog of the gallery as PNG files.
#pragma once

#include <string>

// What to take; an empty name stands for all.
struct ShotChoice {
    std::string page;
    std::string language; // such as "english"
};

// Into the folder, which is made: PAGE-LANGUAGE-WIDTHxHEIGHT.png, at both sizes and in each chosen
// language that has a file. False, with a line on standard error.
bool takeShots(const std::string &folder, const ShotChoice &choice);
