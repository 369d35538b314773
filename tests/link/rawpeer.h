// The far end of a link, byte by byte: what a test needs to misbehave as App would.
#pragma once

#include "link/appmessage.h"

#include <string>
#include <vector>

// Every wait has a deadline and fails the calling test when it passes.
class RawPeer
{
public:
    struct Received {
        AppMsgHead head;
        std::vector<uint8_t> body;
    };

    RawPeer();
    ~RawPeer();
    const std::string &path() const { return path_; }

    // Takes the next connection, closing the one before.
    bool accept();
    // Ends the connection; with StopListening a reconnect is refused.
    enum class Then { KeepListening, StopListening };
    void hangUp(Then then = Then::KeepListening);

    bool sendBytes(const std::vector<uint8_t> &bytes);
    bool send(uint16_t mainType, uint16_t subType, const std::vector<uint8_t> &body = {},
              uint32_t sequence = 0);
    bool reply(const Received &request, const std::vector<uint8_t> &body = {});
    static std::vector<uint8_t> frame(const AppMsgHead &head, const std::vector<uint8_t> &body);

    // The next whole message; its head has number 0 when none came.
    Received receive();
    // Whether bytes are waiting to be read, now.
    bool hasInput() const;

private:
    bool readAll(void *out, size_t size);

    std::string path_;
    int listener_ = -1;
    int connection_ = -1;
};
