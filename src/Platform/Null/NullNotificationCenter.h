#pragma once

#include "Platform/Interfaces/NotificationCenter.h"

namespace tolvar {

/// A desktop without a notification service: every request is answered with an error, at once.
class NullNotificationCenter final : public NotificationCenter {
public:
    void
    requestAuthorization(std::function<void(const NotificationAuthorization&)> answered) override {
        answered({.granted = false, .error = unavailable()});
    }
    void add(const QString&, const NotificationContent&,
             std::function<void(std::optional<QString>)> delivered) override {
        delivered(unavailable());
    }
    Subscription observeOpened(std::function<void(const QString&)>) override { return {}; }

private:
    static QString unavailable() { return QStringLiteral("no notification service is available"); }
};

} // namespace tolvar
