#include "link/deviceprofile.h"

#include "link/app_messages.h"
#include "link/appcalls.h"
#include "link/deviceparams.h"
#include "link/profiledefaults.h"
#include "link/wirewriter.h"
#include "platform/boardpath.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <unistd.h>
#include <vector>
#include <zrstringlist>

namespace
{

constexpr int kMaximumDisks = 32;
constexpr int kQuintetSize = 5;

ZrStringList splitNodes(const ZrIniFile &file, const char *key)
{
    ZrString list = file.value(key);
    list.remove(ZrUcs2(' ')).remove(ZrUcs2('\t'));
    return list.split(ZrUcs2(','), ZrString::SkipEmptyParts);
}

uint64_t readDeviceType(ZrString text)
{
    text.remove("LLU");
    const uint64_t type = text.toULongLong(nullptr, 16);
    printf("DevType: 0x%llx\n", static_cast<unsigned long long>(type));
    return type;
}

// Signed or unsigned: the low bytes are the same, up to the largest unsigned number.
uint64_t readNumber(const ZrString &text)
{
    bool ok = false;
    const auto value = uint64_t(text.toLongLong(&ok));
    return ok ? value : text.toULongLong();
}

void readNodes(const ZrIniFile &file, const Profile::Key &key, WireWriter *custom)
{
    const ZrStringList nodes = splitNodes(file, key.key);
    const size_t count = std::min(size_t(nodes.size()), key.count);
    for (size_t i = 0; i < count; ++i)
        custom->text(key.offset + i * key.width, key.width, nodes.at(int(i)));
}

void readKey(const ZrIniFile &file, const Profile::Key &key, WireWriter *custom)
{
    const ZrString value = file.value(key.key);
    switch (key.conversion) {
    case Profile::Conversion::Number:
    case Profile::Conversion::Mask: // little-endian puts each bit where it belongs
        custom->number(key.offset, key.width, readNumber(value));
        break;
    case Profile::Conversion::Hex:
        custom->number(key.offset, key.width, value.toULongLong(nullptr, 16));
        break;
    case Profile::Conversion::HexLong:
        custom->number(key.offset, key.width, readDeviceType(value));
        break;
    case Profile::Conversion::Text:
        custom->text(key.offset, key.width, value);
        break;
    case Profile::Conversion::Nodes:
        readNodes(file, key, custom);
        break;
    case Profile::Conversion::Quintet:
        readColorQuintet(file, key.key, custom->data() + key.offset);
        break;
    }
}

} // namespace

bool readCustomPart(const ZrIniFile &file, uint8_t *custom)
{
    WireWriter out(custom, Profile::CustomSize);
    if (file.intValue("DeviceType/Type") != 0) {
        readKey(file, Profile::factoryMaskKey(), &out);
        return false;
    }
    for (const Profile::Key *key = Profile::keysBegin(); key != Profile::keysEnd(); ++key)
        readKey(file, *key, &out);
    return true;
}

std::string checkDiskLists(const ZrIniFile &file)
{
    struct {
        const char *countKey, *nodesKey, *list, *kind;
    } const lists[] = {
        {"DiskConfig/MaxDiskNum", "DiskConfig/DiskNodes", "DiskNodes", "disk"},
        {"DiskConfig/MaxEsataNum", "DiskConfig/EsataNodes", "EsataNodes", "esata"},
        {"DiskConfig/MaxUsbNum", "DiskConfig/usbNodes", "usbNodes", "usb"},
    };
    for (const auto &list : lists) {
        const int count = file.intValue(list.countKey);
        const int nodes = splitNodes(file, list.nodesKey).size();
        if (count <= kMaximumDisks && count <= nodes)
            continue;
        char line[160];
        snprintf(line, sizeof line,
                 "%s configure incomplete: %s count(%d), node count(%d), please check "
                 "custom-config.ini !!!\n",
                 list.list, list.kind, count, nodes);
        return line;
    }
    return std::string();
}

int readColorQuintet(const ZrIniFile &file, const ZrString &key, uint8_t *out)
{
    ZrString text;
    for (ZrUcs2 unit : file.value(key)) {
        if ((unit >= '0' && unit <= '9') || unit == ',')
            text.append(unit);
    }
    const ZrStringList parts = text.split(ZrUcs2(','), ZrString::KeepEmptyParts);
    if (parts.size() != kQuintetSize) {
        memset(out, 0, size_t(std::min(parts.size(), kQuintetSize)));
        return -1;
    }
    for (int i = 0; i < kQuintetSize; ++i)
        out[i] = uint8_t(parts.at(i).toULongLong());
    return 0;
}

void loadDeviceProfile(const char *path)
{
    std::vector<uint8_t> record(Profile::Size);
    const bool exists = access(boardPath(path).c_str(), F_OK) == 0;
    const ZrIniFile file = exists ? ZrIniFile(path) : ZrIniFile();
    const bool hasModel = exists && readCustomPart(file, record.data());
    if (hasModel) {
        const std::string fault = checkDiskLists(file);
        if (!fault.empty()) {
            fputs(fault.c_str(), stdout);
            exit(1);
        }
    }
    appSend(AppMain::parameters, AppParameter::setProfile, record.data(), Profile::Size);
    uint8_t *parameters = record.data() + Profile::OffsetParameters;
    appRequest(AppMain::parameters, AppParameter::getDefaultParams, parameters,
               Profile::ParametersSize, nullptr, 0);
    appRequest(AppMain::parameters, AppParameter::getSecondaryDefaults,
               record.data() + Profile::OffsetSecondary, Profile::Size - Profile::OffsetSecondary,
               nullptr, 0);
    if (hasModel)
        ProfileDefaults::overlay(file, parameters);
    DeviceCustomPart custom;
    memcpy(custom.bytes, record.data(), sizeof custom.bytes);
    setDeviceCustomPart(custom);
    appSend(AppMain::parameters, AppParameter::setDefaultParams, parameters,
            Profile::ParametersSentSize);
}

void loadColorDefaults(uint32_t chipCode, const char *path)
{
    const ZrIniFile file =
        access(boardPath(path).c_str(), F_OK) == 0 ? ZrIniFile(path) : ZrIniFile();
    WireWriter record(Profile::ColorRecordSize);
    const ZrString section = Profile::colorSection(chipCode);
    for (auto key = Profile::colorKeysBegin(); key != Profile::colorKeysEnd(); ++key) {
        ZrString name = section;
        readColorQuintet(file, name.append(key->key), record.data() + key->offset);
    }
    appSend(AppMain::parameters, AppParameter::setColorDefaults, record.data(),
            uint32_t(record.size()));
}
