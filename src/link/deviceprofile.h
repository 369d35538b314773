// Reads the device profile and hands it to App, at start-up. Main thread; blocks on App.
#pragma once

#include "link/profilelayout.h"

#include <cstdint>
#include <string>
#include <zrinifile>

constexpr char kProfileFile[] = "custom-config.ini";

// Reads the file of the working directory, sends it to App, fetches App's defaults, overlays the
// file's on them and sends them back. Without the file the custom part is all zero and App's
// defaults stay as they are. A disk list that is shorter than its count ends the process with
// status 1. The custom part stays here, see deviceCustomPart().
void loadDeviceProfile(const char *path = kProfileFile);
// Sends the colour defaults of the analogue front end with this chip code.
void loadColorDefaults(uint32_t chipCode, const char *path = kProfileFile);

// The parts of the load, without App.

// What the file says about the model, into Profile::CustomSize zeroed bytes. Whether it names a
// model; one that does not carries only its factory mask.
bool readCustomPart(const ZrIniFile &file, uint8_t *custom);
// Empty, or the line that says which disk list is incomplete.
std::string checkDiskLists(const ZrIniFile &file);
// Five numbers by commas. 0, or -1 when they are not five: then as many bytes as there are parts,
// at most five, are zeroed.
int readColorQuintet(const ZrIniFile &file, const ZrString &key, uint8_t *out);
