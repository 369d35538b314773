// An App that holds the device's parameters, for a translator in this process.
#pragma once

#include "link/appcalls.h"
#include "link/applink.h"
#include "link/general_records.h"
#include "workbench/simapp/simapp.h"

#include <gtest/gtest.h>

#include <string>

class TranslatorApp
{
public:
    explicit TranslatorApp(const std::string &socketPath)
        : app_(options(socketPath)), link_(socketPath)
    {
        appUseLink(&link_);
        EXPECT_TRUE(app_.start());
        appLinkStart(nullptr);
    }
    ~TranslatorApp()
    {
        link_.stop();
        appUseLink(nullptr);
    }
    TranslatorApp(const TranslatorApp &) = delete;
    TranslatorApp &operator=(const TranslatorApp &) = delete;

    SimApp &app() { return app_; }
    void configure(std::uint32_t language, std::uint32_t low, std::uint32_t high)
    {
        app_.changeParam(GeneralParams::Kind, [&](std::vector<std::uint8_t> &record) {
            GeneralParams params = GeneralParams::decode(record.data(), record.size());
            params.language = language;
            params.languageMask = low;
            params.extendedLanguageMask = high;
            params.bytes[100] = 42; // a byte without a name passes through
            const WireWriter encoded = params.encode();
            record.assign(encoded.data(), encoded.data() + encoded.size());
        });
    }

private:
    static SimApp::Options options(const std::string &socketPath)
    {
        SimApp::Options options;
        options.socketPath = socketPath;
        return options;
    }

    SimApp app_;
    AppLink link_;
};
