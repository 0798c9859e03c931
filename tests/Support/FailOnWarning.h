#pragma once

#include <QString>

#include <gtest/gtest.h>

#include <cstdio>

namespace tolvar::test {

/// A warning that no test expected is a failure of the test it appears in.
inline void failOnWarning(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtWarningMsg || type == QtCriticalMsg)
        ADD_FAILURE() << "unexpected log line: " << message.toStdString();
    else if (type == QtFatalMsg)
        fprintf(stderr, "%s\n", qPrintable(message));
}

} // namespace tolvar::test
