#pragma once

#include <QPoint>

#include <optional>

namespace tolvar {

/// Remembers the press that closed a popover, because the click on the item which that press may
/// have been the beginning of is told later: it shall not open the popover again.
class ClosingPress {
public:
    /// A popover was closed by a press at `position`, at `now` seconds.
    void note(const QPoint& position, double now);
    /// Whether a click that is told at `now`, the pointer being at `position`, began with the noted
    /// press. The answer is yes once.
    bool takeClick(const QPoint& position, double now);

private:
    struct Press {
        QPoint position;
        double time;
    };
    std::optional<Press> m_press;
};

} // namespace tolvar
