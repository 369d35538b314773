// A file descriptor with an owner.
#pragma once

// Closes its descriptor when it goes. Moves, and is not copied.
class FileDescriptor
{
public:
    explicit FileDescriptor(int descriptor = -1) : descriptor_(descriptor) {}
    FileDescriptor(FileDescriptor &&other) noexcept : descriptor_(other.release()) {}
    FileDescriptor &operator=(FileDescriptor &&other) noexcept
    {
        reset(other.release());
        return *this;
    }
    ~FileDescriptor() { reset(); }

    int get() const { return descriptor_; }
    bool isOpen() const { return descriptor_ >= 0; }
    // Closes the present descriptor and takes the given one. errno stays as it was, so that the
    // cause of a failure can still be told behind the clean-up.
    void reset(int descriptor = -1);
    // Hands the descriptor over to the caller.
    int release()
    {
        const int given = descriptor_;
        descriptor_ = -1;
        return given;
    }

private:
    int descriptor_;
};
