#pragma once

#include <QKeyEvent>

namespace tolvar {

/// Hands a key event on to `handle`, Return and Enter as the event that Space would have made: they
/// go down and up on a control as Space does, so that they are seen and heard.
template<typename Handle>
void withReturnAsSpace(QKeyEvent* event, Handle handle) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        return handle(event);
    QKeyEvent space(event->type(), Qt::Key_Space, event->modifiers(), QStringLiteral(" "),
                    event->isAutoRepeat());
    handle(&space);
}

} // namespace tolvar
