#pragma once

#include <QString>
#include <QtGlobal>

namespace tolvar::test {

/// While it lives, warnings that contain a text are passed over. One at a time.
class ToleratedWarning {
public:
    explicit ToleratedWarning(const QString& part) {
        tolerated = part;
        before = qInstallMessageHandler(pass);
    }
    ~ToleratedWarning() { qInstallMessageHandler(before); }
    Q_DISABLE_COPY_MOVE(ToleratedWarning)

private:
    static void pass(QtMsgType type, const QMessageLogContext& context, const QString& message) {
        if (!message.contains(tolerated))
            before(type, context, message);
    }
    static inline QString tolerated;
    static inline QtMessageHandler before = nullptr;
};

} // namespace tolvar::test
