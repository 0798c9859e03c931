#pragma once

#include <unistd.h>

#include <utility>

namespace tolvar {

/// An open file descriptor, closed with this object; empty when it is negative.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number)
        : m_number(number) {}
    ~Descriptor() { reset(); }

    Descriptor(Descriptor&& other) noexcept
        : m_number(std::exchange(other.m_number, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        if (this != &other) {
            reset();
            m_number = std::exchange(other.m_number, -1);
        }
        return *this;
    }

    void reset() {
        if (m_number >= 0)
            ::close(std::exchange(m_number, -1));
    }
    int number() const { return m_number; }
    explicit operator bool() const { return m_number >= 0; }

private:
    int m_number = -1;
};

} // namespace tolvar
