#include "Platform/Common/SystemClock.h"

#include <chrono>

namespace tolvar {

Date SystemClock::now() const {
    const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
    return Date::fromEpoch(std::chrono::duration<Seconds>(sinceEpoch).count());
}

} // namespace tolvar
