#pragma once

#include "Extensions/Subscription.h"

#include <QString>

#include <functional>
#include <optional>

namespace tolvar {

enum class NotificationSound { none, systemDefault };

struct NotificationContent {
    QString title;
    QString body;
    NotificationSound sound = NotificationSound::none;

    bool operator==(const NotificationContent&) const = default;
};

/// The answer to a request for permission to notify.
struct NotificationAuthorization {
    bool granted = false;
    /// What went wrong while asking; absent when there was an answer.
    std::optional<QString> error;
};

/// The desktop's notification service. Answers arrive later, on the caller's thread; an answer
/// that never comes leaves the callback uncalled.
class NotificationCenter {
public:
    virtual ~NotificationCenter() = default;

    /// Asks for permission to show alerts with sound.
    virtual void
    requestAuthorization(std::function<void(const NotificationAuthorization&)> answered) = 0;

    /// Shows a notification now; one with the same `identifier` is replaced. `delivered` gets the
    /// error's description, or nothing when all went well.
    virtual void add(const QString& identifier, const NotificationContent& content,
                     std::function<void(std::optional<QString> error)> delivered) = 0;

    /// Calls `opened` with the identifier of each notification that the user clicks.
    [[nodiscard]] virtual Subscription
    observeOpened(std::function<void(const QString& identifier)> opened) = 0;
};

} // namespace tolvar
