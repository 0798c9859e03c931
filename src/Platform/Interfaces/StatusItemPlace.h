#pragma once

#include "Platform/Interfaces/StatusItem.h"

#include <QtGlobal>

#include <functional>
#include <memory>

namespace tolvar {

/// A kind of place where a status item can be, which comes and goes with the program that offers
/// it.
class StatusItemPlace {
public:
    enum class Presence {
        unknown, ///< not known yet, but soon
        absent,
        present,
    };

    virtual ~StatusItemPlace() = default;

    virtual Presence presence() const = 0;
    /// The process that offers it, while it is there; 0 where that is not known.
    virtual qint64 hostProcess() const = 0;
    /// Calls `changed` whenever `presence` has another answer.
    [[nodiscard]] virtual Subscription observePresence(std::function<void()> changed) = 0;
    /// The item there. It may outlive the presence, shows nothing meanwhile, and is there again
    /// when the place is; it does not outlive the place.
    virtual std::unique_ptr<StatusItem> makeItem() = 0;
};

} // namespace tolvar
