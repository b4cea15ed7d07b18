// A fixed buffer that formatted pieces are appended to without overrun.
#pragma once

#include <cstdarg>
#include <cstdio>

namespace orv {

// An append that does not fit fills the buffer to its end and leaves no room
// for later appends, so an overlong line is cut at the buffer's end.
class BoundedText {
public:
    BoundedText(char* buf, int size) : buf_(buf), size_(size)
    {
        if (size_ > 0) buf_[0] = '\0';
    }

    void append(const char* fmt, ...) __attribute__((format(printf, 2, 3)))
    {
        std::va_list args;
        va_start(args, fmt);
        vappend(fmt, args);
        va_end(args);
    }
    void vappend(const char* fmt, std::va_list args)
    {
        const int room = size_ - length_;
        if (room <= 1) return;
        const int written = std::vsnprintf(buf_ + length_, static_cast<std::size_t>(room), fmt, args);
        if (written < 0) return;
        length_ = written < room ? length_ + written : size_ - 1;
    }

    const char* c_str() const { return buf_; }
    int length() const { return length_; }

private:
    char* buf_;
    int size_;
    int length_ = 0;
};

}  // namespace orv
