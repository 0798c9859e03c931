#pragma once

#include <QString>

namespace tolvar {

/// The kind of thing that was blocked.
enum class BlockTarget { app, site };

/// Tells the user that something was blocked.
class BlockAlert {
public:
    virtual ~BlockAlert() = default;

    /// Shows the alert for `name` (an application's display name or a blocked host). While one is
    /// on screen, further ones are dropped.
    virtual void presentBlocked(const QString& name, BlockTarget type) = 0;
};

} // namespace tolvar
