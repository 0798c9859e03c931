#pragma once

#include <functional>
#include <utility>

namespace tolvar {

/// A registration that lasts as long as this object: keep it as a member, drop it to end it.
/// An empty one stands for no registration.
class [[nodiscard]] Subscription {
public:
    Subscription() = default;
    /// Runs `cancel` once, when this object is destroyed, replaced or reset.
    explicit Subscription(std::function<void()> cancel)
        : m_cancel(std::move(cancel)) {}
    ~Subscription() { reset(); }

    Subscription(Subscription&& other) noexcept
        : m_cancel(std::exchange(other.m_cancel, nullptr)) {}
    Subscription& operator=(Subscription&& other) noexcept {
        if (this != &other) {
            reset();
            m_cancel = std::exchange(other.m_cancel, nullptr);
        }
        return *this;
    }

    void reset() {
        if (auto cancel = std::exchange(m_cancel, nullptr))
            cancel();
    }
    explicit operator bool() const { return m_cancel != nullptr; }

private:
    std::function<void()> m_cancel;
};

} // namespace tolvar
