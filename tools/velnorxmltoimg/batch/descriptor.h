// A file descriptor with an owner.
#ifndef VELNOR_TOOL_DESCRIPTOR_H
#define VELNOR_TOOL_DESCRIPTOR_H

#include <unistd.h>

#include <utility>

namespace tool {

class Descriptor {
public:
    explicit Descriptor(int openNumber = -1) : number(openNumber) {}
    ~Descriptor() { close(); }
    Descriptor(Descriptor&& other) noexcept : number(std::exchange(other.number, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number, other.number);
        return *this;
    }

    int get() const { return number; }

    void close() {
        if (number != -1) {
            ::close(std::exchange(number, -1));
        }
    }

private:
    int number;
};

} // namespace tool

#endif
