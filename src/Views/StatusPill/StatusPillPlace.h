#pragma once

#include "Platform/Interfaces/StatusItemPlace.h"
#include "Platform/Interfaces/StatusItemPopups.h"
#include "Views/StatusPill/StatusPill.h"

#include <functional>

namespace tolvar {

/// The place that there is always: a corner of the screen, where the status item is a StatusPill.
class StatusPillPlace final : public StatusItemPlace {
public:
    /// What the pill needs; all outlive the place and its items.
    struct Environment {
        Preferences& preferences;
        AnimationDriver& motion;
        StatusItemPopups& popups;
        /// Asked each time a pill is made.
        std::function<StatusPill::Ends()> ends;
    };

    explicit StatusPillPlace(const Environment& environment)
        : m_environment(environment) {}

    Presence presence() const override { return Presence::present; }
    qint64 hostProcess() const override { return 0; }
    Subscription observePresence(std::function<void()>) override { return {}; }
    std::unique_ptr<StatusItem> makeItem() override;

private:
    Environment m_environment;
};

} // namespace tolvar
