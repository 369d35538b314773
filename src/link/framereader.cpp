#include "link/framereader.h"

#include "link/linklog.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <sys/socket.h>
#include <sys/uio.h>

FrameReader::FrameReader() : buffer_(new uint8_t[BufferSize]) {}
FrameReader::~FrameReader() = default;

void FrameReader::reset()
{
    begin_ = end_ = filled_ = 0;
    open_.reset();
}

FrameReader::Status FrameReader::read(int descriptor, std::vector<AppMessage *> &messages,
                                      int flags)
{
    const Status status = receive(descriptor, flags);
    return status == Status::Open ? cut(messages) : status;
}

FrameReader::Status FrameReader::receive(int descriptor, int flags)
{
    // At most a part of one head is left over.
    memmove(buffer_.get(), buffer_.get() + begin_, end_ - begin_);
    end_ -= begin_;
    begin_ = 0;
    iovec parts[2];
    msghdr message = {};
    message.msg_iov = parts;
    const size_t missing = open_ ? open_->bodyLength() - filled_ : 0;
    if (missing)
        parts[message.msg_iovlen++] = {open_->body() + filled_, missing};
    parts[message.msg_iovlen++] = {buffer_.get() + end_, BufferSize - end_};
    ssize_t count;
    do {
        count = recvmsg(descriptor, &message, flags);
    } while (count < 0 && errno == EINTR);
    if (count < 0 && errno == EAGAIN)
        return Status::Quiet;
    if (count == 0)
        LINK_LOG("ReadData", "!!!!------Connect rest by peer!");
    else if (count < 0)
        LINK_LOG("ReadData", "------!!!-%s", strerror(errno));
    if (count <= 0)
        return lost();
    const size_t toBody = std::min(missing, size_t(count));
    filled_ += toBody;
    end_ += size_t(count) - toBody;
    return Status::Open;
}

FrameReader::Status FrameReader::lost() const
{
    const int wanted = open_ ? int(open_->bodyLength()) : int(AppMsgHead::Size);
    const int there = open_ ? int(filled_) : int(end_ - begin_);
    LINK_LOG("ReadData", "ss32Size=%d,s32ReadSize = %d", wanted, there);
    return open_ ? Status::BodyLost : Status::HeadLost;
}

bool FrameReader::fillBody()
{
    const size_t count = std::min(open_->bodyLength() - filled_, end_ - begin_);
    if (count)
        memcpy(open_->body() + filled_, buffer_.get() + begin_, count);
    begin_ += count;
    filled_ += count;
    return filled_ == open_->bodyLength();
}

FrameReader::Status FrameReader::cut(std::vector<AppMessage *> &messages)
{
    for (;;) {
        if (open_) {
            if (!fillBody())
                return Status::Open;
            messages.push_back(open_.release());
            filled_ = 0;
        }
        if (end_ - begin_ < AppMsgHead::Size)
            return Status::Open;
        uint8_t bytes[AppMsgHead::Size];
        memcpy(bytes, buffer_.get() + begin_, sizeof bytes);
        begin_ += sizeof bytes;
        WireReader head(bytes, sizeof bytes);
        if (head.i16(AppMsgHead::OffsetBodyCount) <= 0)
            continue;
        if (head.u32(AppMsgHead::OffsetBodyLength) <= MaxBodyLength)
            open_.reset(AppMessage::allocate(bytes));
        if (!open_)
            return Status::BodyLost;
    }
}
